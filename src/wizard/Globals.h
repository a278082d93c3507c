#pragma once
// Process-wide state of the wizard. The answers themselves are the values of
// the form controls; these are the few values that live beside them.
#include <QString>

class QWidget;

namespace media {
class GraphicsComponent;
}

namespace torvik {

// Folder of the executable, holding the program's own files.
inline QString ProgramFolder;

inline media::GraphicsComponent* GraphicsObject = nullptr;

inline int DataFileMode = 0;
inline QString DataFileName;
inline QString CompanionFileName;
inline int RebuildCTFBots = 1;
inline QString GameTypeCode = QStringLiteral("DM");
inline int MapFamilyAtLoad = 1;
inline int LocationsMissing = 0;

// Game and mod locations.
inline QString Quake2Location;
inline QString GorvanLocation;
inline int Quake2Set = 0;
inline int GorvanSet = 0;
inline int StoredExeValid = 0;
inline int DirPrimed = 0;
inline int ExePicked = 0;
inline int ReloadAfterPrefs = 0;
inline int PrefsOpen = 0;

// Page engine.
inline int PageNumber = 1;
inline int AboutOpen = 0;
inline QString LastBotCount;
inline int KeepMapLabel = 0;

// Bots file state shared with the loaders.
inline int BotFileErrorFlag = 0;
inline int ShowBotProgress = 0;

// The game folder: the game executable's path cut before its last separator.
QString gameFolder();
// The mod folder: the mod library's path without its last 12 characters.
QString modFolder();
// The mod's short name, the last folder name of the mod folder.
QString modShortName();

} // namespace torvik
