#pragma once

namespace torvik {

// Removes the configuration files an earlier launch left behind, read-only
// ones included.
void KillFiles();

} // namespace torvik

#include <QStringList>

namespace torvik {

// The words of a command head for a start without a shell: split at blanks
// outside double quotes, the quotes taken off. The game's own path is kept
// whole where the head begins with it, blanks and all.
QStringList splitHead(const QString& head, const QString& gamePath);

} // namespace torvik
