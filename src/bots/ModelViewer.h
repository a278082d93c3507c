#pragma once
// The external model viewer of the plugins folder, started on a player
// model's mesh and one of its skins. The player page, the bot editor and the
// examination all offer it.
#include <QString>

namespace torvik {

// Starts the viewer on <players>/<model>/tris.md2 and <players>/<model>/<skin>.pcx,
// spelt as on disk where they are there, and does not wait for it. A missing
// viewer (or the library the Windows viewer needs) is told and nothing starts.
void startModelViewer(const QString& playersFolder, const QString& model, const QString& skin);

} // namespace torvik
