#include "bots/BotStore.h"

#include "bots/BotListing.h"
#include "bots/BotsFile.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QFile>
#include <QFileInfo>

namespace torvik {
namespace {

const QString kBotsFileName = QStringLiteral("bots.cfg");

// The file as spelled on disk when it is a file there; empty otherwise.
QString existingBotsFile()
{
    const QString real = platform::resolvePath(platform::joinPath(platform::programContext.modFolder(), kBotsFileName));
    return !real.isEmpty() && QFileInfo(real).isFile() ? real : QString();
}

bool readBotsFile(QByteArray& bytes)
{
    const QString path = existingBotsFile();
    return !path.isEmpty() && platform::readFile(path, bytes);
}

void offerRestore()
{
    if (RestoreBotsCfgHook)
        RestoreBotsCfgHook();
}

// A bot load's own failure path. A row failure has told the user already, so
// the user gets one message either way, and always the offer to restore.
void botsLoadFailed()
{
    platform::beep();
    if (BotFileErrorFlag != 1) {
        platform::msgBox(QStringLiteral("Error: Couldn't load bots!"));
        BotFileErrorFlag = 1;
    }
    offerRestore();
}

void rowFailed(const QString& message)
{
    platform::beep();
    platform::msgBox(message);
    BotLineErrorFlag = 1;
    BotFileErrorFlag = 1;
}

void teamsLoadFailed()
{
    platform::beep();
    if (BotFileErrorFlag != 1) {
        platform::msgBox(QStringLiteral("Error: Couldn't load teams!"));
        BotFileErrorFlag = 1;
        offerRestore();
    }
}

// Rewrites the file whole. A text that couldn't be built (a bot name too
// wide for its column) or a write that fails leaves the old file as it was:
// the mod must never find its bots.cfg empty.
bool rewriteBotsFile(const QString& path, const std::optional<QByteArray>& text, const QString& failure)
{
    if (!text || !platform::writeFile(path, *text)) {
        platform::beep();
        platform::msgBox(failure);
        return false;
    }
    platform::msgBox(QStringLiteral("Bots.cfg file has been updated!"));
    return true;
}

} // namespace

QString botsFilePath()
{
    const QString plain = platform::joinPath(platform::programContext.modFolder(), kBotsFileName);
    const QString real = platform::resolvePath(plain);
    return real.isEmpty() ? plain : real;
}

QString playersFolderPath()
{
    const QString plain = platform::joinPath(platform::joinPath(platform::programContext.gameFolder(), QStringLiteral("baseq2")),
                                             QStringLiteral("players"));
    const QString real = platform::resolvePath(plain);
    return real.isEmpty() ? plain : real;
}

void clearBotStore()
{
    Bots.clear();
    BotCount = 0;
    Teams.clear();
    TeamCount = 0;
    TeamsText.clear();
    BotLineErrorFlag = 0;
    TeamsSectionLines = 0;
}

std::optional<std::vector<int>> loadBots(const ProgressFn& progress)
{
    if (BotFileErrorFlag == 1)
        return std::nullopt;
    Bots.clear();
    BotCount = 0;
    BotLineErrorFlag = 0;

    QByteArray bytes;
    if (!readBotsFile(bytes)) {
        botsLoadFailed();
        return std::nullopt;
    }
    ProgressBar bar(progress);
    ProgressBar* const steps = progress ? &bar : nullptr;
    BotsSection section = ReadBotsSection(bytes, steps);
    bytes.clear();
    if (!section.found) {
        botsLoadFailed();
        return std::nullopt;
    }
    Bots = std::move(section.rows);
    BotCount = qint16(Bots.size());
    TeamsText += section.teamsText;
    if (section.rowFailed)
        rowFailed(QStringLiteral("Error loading bots!"));
    if (BotLineErrorFlag == 1) {
        botsLoadFailed();
        return std::nullopt;
    }

    const PlayersIndex index(playersFolderPath());
    std::optional<std::vector<int>> listed = listInstalledBots(Bots, index, steps);
    if (!listed)
        botsLoadFailed();
    return listed;
}

std::optional<std::vector<int>> GetNewBots()
{
    return loadBots(ShowBotProgress == 1 ? BotProgressHook : ProgressFn{});
}

bool GetNewTeams()
{
    if (BotFileErrorFlag == 1)
        return false;
    Teams.clear();
    TeamCount = 0;
    TeamsSectionLines = 0;
    BotLineErrorFlag = 0;

    QByteArray bytes;
    if (!readBotsFile(bytes)) {
        teamsLoadFailed();
        return false;
    }
    TeamsSection section = ReadTeamsSection(bytes);
    if (!section.found) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't load data from bots.cfg."));
        BotFileErrorFlag = 1;
        offerRestore();
        return false;
    }
    TeamsSectionLines = section.lines;
    Teams = std::move(section.rows);
    TeamCount = qint16(Teams.size());
    // A row that failed has told the user; unlike the bot loads, the team
    // load has no second look at it, so no second beep and no restore offer.
    if (section.rowFailed) {
        rowFailed(QStringLiteral("Error loading teams!"));
        return false;
    }
    return true;
}

std::vector<BotRecord> unlistedBots(const std::vector<int>& listed)
{
    std::vector<bool> isListed(Bots.size(), false);
    for (int row : listed)
        isListed[size_t(row)] = true;
    std::vector<BotRecord> rest;
    for (size_t i = 0; i < Bots.size(); ++i)
        if (!isListed[i])
            rest.push_back(Bots[i]);
    return rest;
}

bool SaveBots(const std::vector<BotRecord>& rows)
{
    const QString failure = QStringLiteral("Error! Couldn't save bots to bots.cfg.");
    const QString path = existingBotsFile();
    if (path.isEmpty()) {
        platform::beep();
        platform::msgBox(failure);
        return false;
    }
    return rewriteBotsFile(path, botsFileForBots(rows, TeamsText), failure);
}

bool SaveFile(const std::vector<BotRecord>& bots, const std::vector<TeamRecord>& teams)
{
    const QString failure = QStringLiteral("Error! Couldn't save teams to bots.cfg.");
    const QString path = existingBotsFile();
    if (path.isEmpty()) {
        platform::beep();
        platform::msgBox(failure);
        return false;
    }
    return rewriteBotsFile(path, botsFileForTeams(bots, teams), failure);
}

} // namespace torvik
