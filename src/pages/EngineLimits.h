#pragma once
// What the game engine does with the configuration Torvik writes. It reads a
// line of at most 1023 characters (its CR included), keeps at most 80 words
// of a command, and drops a whole configuration file of 32 KB or more. A long
// list of bots passes those limits silently; these tell the user beforehand.
#include <QString>

namespace pages {

inline constexpr int kEngineLineLimit = 1023;
inline constexpr int kEngineWordLimit = 80;
inline constexpr int kEngineConfigLimit = 32 * 1024;

struct BotLoss {
    int named = 0;      // bots named on the "sv bots", "sv redbots" and "sv bluebots" lines
    int lost = 0;       // of those, the ones the game will not get
    bool tooLong = false;   // a line passed the character limit
    bool tooManyWords = false;
    bool fileDropped = false;
};

// The configuration as written to asdf.cfg (lines ended by CR LF).
BotLoss botsTheGameLoses(const QByteArray& config);
// The warning shown beside the command; empty when every bot gets through.
QString botLossWarning(const BotLoss& loss);

// The game's command line is split at blanks and every "+" starts a command,
// with no quoting. A game folder with a "+" in its path or a mod folder whose
// name holds a blank or a "+" is therefore read wrongly by the game; these
// say what will go wrong, empty when nothing will.
QString gameFolderWarning(const QString& gameFolder);
QString modFolderWarning(const QString& modShortName);

} // namespace pages
