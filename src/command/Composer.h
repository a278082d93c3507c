#pragma once
// Turns the answers into the game's command: the whole command as one text
// (head line, then one "+" token a line), and its split into the head that
// stays a real command line and the rest that becomes "asdf.cfg".
#include "command/DMFlagsRules.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace torvik {

struct CustomOption {
    bool ticked = false;
    QString text; // "word{?word two{..." as the custom options store it
};

// Everything the command is made of, read off the controls.
struct ComposerInput {
    QString quake2Location;
    QString modShortName;
    QString gameTypeCode = QStringLiteral("DM");

    bool dedicated = false;            // Advanced.Check16
    QList<CustomOption> customOptions; // Custom trees, in node order
    bool setName = false;              // Check35
    QString playerName;                // Text13
    int skill = 0;                     // HScroll2
    bool viewWeapons = false;          // Check15
    bool cheats = false;               // Check20
    bool timeLimitOn = false;          // Check17
    QString timeLimit;                 // Text4
    bool fragLimitOn = false;          // Check18
    QString fragLimit;                 // Text3
    bool botChat = true;               // Check25
    bool autoSkill = false;            // Check1
    bool clientCommands = true;        // Check24
    bool connectInfo = true;           // Check23
    bool calcNodes = false;            // Check22
    bool captureLimitOn = false;       // Check37
    QString captureLimit;              // Text16
    bool ctfAutoTeams = false;         // Check36
    QString ctfTeamSize;               // Text14
    bool maxPlayersOn = false;         // Check31
    QString maxPlayers;                // Text10
    bool randomBots = true;            // Option4
    QString randomBotCount;            // Text1
    bool freeSlotsOn = false;          // Check32
    QString freeSlots;                 // Text11
    DMFlagBoxes dmflags;
    QString playersPerTeam;            // Text2
    bool mapmodRandom = false;         // Check39
    bool tarzanEnabled = true;         // Check40 enabled
    bool tarzan = false;               // Check40
    bool handOn = false;               // Check41
    int handIndex = -1;                // Combo3
    bool crosshairOn = false;          // Check43
    int crosshairIndex = -1;           // Combo4
    bool skinOn = false;               // Check42
    QString model;                     // Combo5
    QString skin;                      // Combo6
    QString rateText;                  // Advanced.Combo8
    int rateIndex = -1;
    bool specialTeams = false;         // Check46
    QString specialTeamsBots;          // Text15
    bool humanOnlyTeams = false;       // Check45
    bool downloads = false;            // Advanced.Check1
    bool downloadMaps = true;          // Advanced.Check2..5
    bool downloadModels = true;
    bool downloadSounds = true;
    bool downloadPlayers = true;
    bool connect = false;              // Advanced.Check6
    QString address[4];                // Advanced.Text1..4
    QString map;                       // Label24
    bool lagOn = false;                // Check21
    QString lag;                       // Text5

    // Teams page.
    QString ownTeam;                   // Combo1
    QStringList teamRows;              // List3
    QList<bool> teamSelected;
    // Bots pages.
    bool specificBots = false;         // Option5
    QString selectedCount;             // Label36
    bool specificTeams = false;        // Check38
    QStringList redBots;               // List5
    QStringList blueBots;              // List6
    QStringList selectedBots;          // selected rows of List2
    int teamChoice = -1;               // Combo7
};

// The whole command, lines joined by CR LF.
QString composeCommandLine(const ComposerInput& in);

struct SplitCommand {
    bool ok = false;
    QString launchHead;
    QString config; // what goes into "asdf.cfg", CR LF kept
};

// Cuts the command behind "deathmatch 1": the head keeps its "+" signs, the
// rest loses the "+" that lead tokens (not those inside quotes or after an
// alias).
SplitCommand splitCommandLine(const QString& text, bool dedicated);

// The bytes of "asdf.cfg": the game reads 8-bit text, so what the user typed
// goes as Latin-1, while the map to start is a file name and keeps the bytes
// the file system holds, or the game wouldn't find it.
QByteArray configFileBytes(const QString& config);

// The rate sent for each row of the connection list; 0 for none.
int rateForIndex(int index);

// The words of a command head for a start without a shell: split at blanks
// outside double quotes, the quotes taken off. The game's own path is kept
// whole where the head begins with it, blanks and all.
QStringList splitHead(const QString& head, const QString& gamePath);

} // namespace torvik
