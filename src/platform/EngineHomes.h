#pragma once
// The Linux builds of the engine keep a player's own copy of the game folders
// in the home folder (Yamagi Quake II, Q2PRO, the classic ports) and look
// there before the game's own folders. A configuration left there by another
// program is read instead of the one Torvik writes.
#include <QString>
#include <QStringList>

namespace platform {

// The home copies of the mod's and of baseq2's folders, in the order the
// engines search them: ~/.yq2, $XDG_DATA_HOME/YamagiQ2 (~/.local/share when
// unset), ~/.q2pro, ~/.quake2.
QStringList engineHomeFolders(const QString& modName);
// The files of that name (any case) that stand in those folders.
QStringList filesInEngineHomes(const QString& modName, const QString& fileName);

} // namespace platform
