#pragma once
// The user's four edited files, their named copies in the Backup folder and
// the factory copies of bots.cfg and chat.txt that ship inside the program.
// Plain functions over paths and bytes; the forms in this folder show them.
#include <QByteArray>
#include <QString>

#include <functional>

namespace backup {

// 0 normal; 1 the Backup Manager was opened to replace bots.cfg, 2 chat.txt.
// Set just before the manager is shown for a rescue, cleared when it closes.
inline int BackupRescueMode = 0;
// "BOTS" or "CHAT": which factory copy restoreFactoryCopy writes.
inline QString RestoreWhat;

// The offer to put a good chat.txt in place, for whoever finds it broken;
// the main form points it at the Backup Manager's chat rescue.
inline std::function<void()> RestoreChatHook;

// One of the four files a backup can be made of.
enum class Kind { Bots, Chat, Script, MapInfo };

// Where the file lives, spelt as on disk when it is there, else in its
// usual spelling: a restore replaces the user's file under its own name.
QString userFilePath(Kind kind);
// The Backup folder below the program folder, as spelt on disk.
QString backupFolder();

// The factory texts as the manager shows them; a restore writes them with
// one line end more, so the written file ends in an empty line.
QByteArray factoryBotsText();
QByteArray factoryChatText();

} // namespace backup
