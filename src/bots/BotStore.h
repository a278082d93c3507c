#pragma once
// The bots and teams of the mod's bots.cfg as the whole program sees them:
// one store, rebuilt by every load, read by the wizard pages, the editors,
// the CTF lists and the command line composer.
#include <QString>
#include <QtGlobal>

#include <functional>
#include <optional>
#include <vector>

namespace torvik {

// One bot row. The numbers are 16-bit because the mod's own reader keeps
// them so; the reader takes any value that fits.
struct BotRecord {
    QString Name;
    QString ModelSkin; // "model/skin"
    qint16 Accuracy = 0;       // 1 to 5
    qint16 Aggressiveness = 0; // 1 to 5
    qint16 CombatSkills = 0;   // 1 to 5
    qint16 FavoriteWeapon = 0; // 0 to 9; 0 is the editor's tenth position
    qint16 QuadFreak = 0;      // 0 or 1
    qint16 Camper = 0;         // 0 or 1
    qint16 Ping = 0;           // milliseconds

    bool operator==(const BotRecord&) const = default;
};

// One team row. Members holds each member's name followed by exactly one
// blank, so a non-empty text ends in a blank: the team writer relies on it.
struct TeamRecord {
    QString Name;
    QString Abbreviation;
    QString ModelSkin; // may be empty: the team has no model of its own
    QString Members;

    bool operator==(const TeamRecord&) const = default;
};

inline constexpr int kMaxBots = 10000;
inline constexpr int kMaxTeams = 5000;

// Rows 1 to BotCount of the file's bots live in Bots[0] to Bots[BotCount - 1].
// After a failed read the row that failed is the last one, counted and
// partly filled (empty when it lay past kMaxBots), so BotCount may then be
// kMaxBots + 1; Bots.size() always equals BotCount.
inline std::vector<BotRecord> Bots;
inline qint16 BotCount = 0;
// The same for teams, up to kMaxTeams.
inline std::vector<TeamRecord> Teams;
inline qint16 TeamCount = 0;
// Every line behind the bots section's "[teams]" line, verbatim, each with
// CR LF. A bots load appends and never clears it; whoever wants it fresh
// (the editors, before their load) empties it first. SaveBots writes it back.
inline QString TeamsText;
// Set by the row parsers' failure path; the bot loaders look at it after the
// read. Each load starts with it cleared.
inline int BotLineErrorFlag = 0;
// Lines behind "[teams]" seen by the last teams load, comments and blanks
// included. Zero is what the team page takes for "no teams".
inline int TeamsSectionLines = 0;

// 1 once reading bots.cfg failed and the user has been told: every load
// looks at it first and does nothing, so one damaged file makes one message.
inline int BotFileErrorFlag = 0;
// 1 while a GetNewBots run is to report its progress (start-up and Refresh).
inline int ShowBotProgress = 0;

// Progress of a bots load: value of maximum, value starting at 0.
using ProgressFn = std::function<void(int value, int maximum)>;

// Where a GetNewBots run reports while ShowBotProgress is 1: the bot page
// sets it around its load and passes the reports on to the Progress form.
inline ProgressFn BotProgressHook;

// The offer to put the internal bots.cfg in place. The main form points it
// at its restoreBotsCfg, the one place where the Backup Manager's rescue is
// to start; the loaders call it at the end of their failure path.
inline std::function<void()> RestoreBotsCfgHook;

// <mod folder>/bots.cfg as spelled on disk, or with that spelling when absent.
QString botsFilePath();
// <game folder>/baseq2/players as spelled on disk (the plain spelling when absent).
QString playersFolderPath();

// Empties the store (both arrays and counts) as before each load.
void clearBotStore();

// Start-up and Refresh load of the bots: reads bots.cfg into Bots, appends
// TeamsText, and returns the rows (indexes into Bots) that the bot page lists,
// name order. Nothing happens, and nullopt comes back, while BotFileErrorFlag
// is 1; nullopt too after a failure, which has been reported and has set the
// flag.
std::optional<std::vector<int>> GetNewBots();
// The load that GetNewBots and the editors' bot loads share; progress, when
// given, gets the read's and the listing's steps.
std::optional<std::vector<int>> loadBots(const ProgressFn& progress);
// The rows of Bots that a load didn't list (model or skin not installed), in
// the file's order. The editors write them back: they are still the user's.
std::vector<BotRecord> unlistedBots(const std::vector<int>& listed);

// Start-up and Refresh load of the teams into Teams; sets TeamsSectionLines.
// False while BotFileErrorFlag is 1 and after a reported failure.
bool GetNewTeams();

// The bot editor's Save: rewrites bots.cfg with these rows, in this order,
// then "[teams]" and TeamsText. Only an existing file is rewritten. Every
// outcome is told to the user; true when the file was written.
bool SaveBots(const std::vector<BotRecord>& rows);
// The team editor's Save: bots.cfg with the bot rows, then the team rows.
bool SaveFile(const std::vector<BotRecord>& bots, const std::vector<TeamRecord>& teams);

} // namespace torvik
