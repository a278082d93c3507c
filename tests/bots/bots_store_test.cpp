// Loads and saves of bots.cfg through the store, on a generated install: the
// listing filter, the failure paths with their messages, and rewrites.
#include "bots/BotListing.h"
#include "bots/BotStore.h"
#include "bots/BotsFile.h"
#include "bots/BotsTestSupport.h"

#include <QDir>
#include <QFile>

using namespace torvik;

namespace {

const QStringList kDemoListed = {"Brannock", "Cinder", "Dagny",  "Echo", "Frostbite",
                                 "Gunnar",   "Harrow", "Isolde", "Jax"};

std::vector<BotRecord> rowsOf(const std::vector<int>& listed)
{
    std::vector<BotRecord> out;
    for (int i : listed)
        out.push_back(Bots.at(size_t(i)));
    return out;
}

BotRecord ranger(const char* name, const char* modelSkin = "male/ranger")
{
    BotRecord b;
    b.Name = QString::fromLatin1(name);
    b.ModelSkin = QString::fromLatin1(modelSkin);
    return b;
}

using BotsLoad = botstest::DemoStore;

TEST_F(BotsLoad, DemoInstallLoadsTeamsAndListsOnlyInstalledBotsByName)
{
    for (bool mixedCase : {false, true}) {
        SCOPED_TRACE(mixedCase ? "mixed case" : "plain");
        reset();
        useDemo(mixedCase);
        ASSERT_TRUE(GetNewTeams());
        ASSERT_EQ(TeamCount, 4);
        EXPECT_EQ(Teams.size(), 4u);
        EXPECT_EQ(Teams[0], (TeamRecord{"IronWolves", "IW", "male/ranger", "Brannock Gunnar Harrow "}));
        EXPECT_EQ(Teams[3], (TeamRecord{"Nightjars", "NJ", "", "Dagny Isolde Mordecai "}));
        EXPECT_GT(TeamsSectionLines, 4);

        const auto listed = GetNewBots();
        ASSERT_TRUE(listed);
        EXPECT_EQ(names(*listed), kDemoListed);
        EXPECT_EQ(BotCount, 13); // hidden bots keep their rows
        EXPECT_EQ(Bots.size(), 13u);
        const auto echo = std::find_if(Bots.begin(), Bots.end(), [](const BotRecord& b) { return b.Name == "Echo"; });
        ASSERT_NE(echo, Bots.end());
        EXPECT_EQ(*echo, (BotRecord{"Echo", "cyborg/unit7", 2, 2, 2, 0, 0, 0, 200}));
        EXPECT_TRUE(TeamsText.startsWith(QStringLiteral("# name, abbreviation, model/skin, members\r\n\"IronWolves\"")));
        EXPECT_TRUE(TeamsText.endsWith(QStringLiteral("]\r\n\r\n")));
        EXPECT_TRUE(dialogs.boxes.empty()) << messages().join(" | ").toStdString();
        EXPECT_EQ(dialogs.beeps, 0);
        EXPECT_EQ(BotFileErrorFlag, 0);
    }
}

TEST_F(BotsLoad, NothingHappensOnceTheErrorFlagIsSet)
{
    useDemo();
    Bots = {ranger("Kept")};
    BotCount = 1;
    Teams = {TeamRecord{"KeptTeam", "", "", ""}};
    TeamCount = 1;
    BotFileErrorFlag = 1;
    EXPECT_FALSE(GetNewBots());
    EXPECT_FALSE(GetNewTeams());
    EXPECT_EQ(Bots.size(), 1u);
    EXPECT_EQ(Teams.size(), 1u);
    EXPECT_TRUE(TeamsText.isEmpty());
    EXPECT_TRUE(dialogs.boxes.empty());
    EXPECT_EQ(dialogs.beeps, 0);
    EXPECT_EQ(restores, 0);
}

TEST_F(BotsLoad, AMissingOrUnreadableFileIsToldOnceByEachLoader)
{
    const QString root = useDemo();
    ASSERT_TRUE(QFile::remove(botsFilePath()));
    EXPECT_FALSE(GetNewBots());
    EXPECT_EQ(messages(), QStringList{"Error: Couldn't load bots!"});
    EXPECT_EQ(dialogs.beeps, 1);
    EXPECT_EQ(restores, 1);
    EXPECT_EQ(BotFileErrorFlag, 1);

    BotFileErrorFlag = 0;
    EXPECT_FALSE(GetNewTeams());
    EXPECT_EQ(messages(), (QStringList{"Error: Couldn't load bots!", "Error: Couldn't load teams!"}));
    EXPECT_EQ(restores, 2);

    // A folder where the file should be is no file either.
    BotFileErrorFlag = 0;
    ASSERT_TRUE(QDir().mkpath(demo::modFolder(root) + QStringLiteral("/BOTS.CFG")));
    EXPECT_FALSE(GetNewBots());
    EXPECT_EQ(messages().size(), 3);
    EXPECT_EQ(messages().last(), QStringLiteral("Error: Couldn't load bots!"));
}

TEST_F(BotsLoad, MissingSectionLines)
{
    useDemo();
    writeBotsFile("# no section at all\r\n\"A\" \"male/ranger\" 1 1 1 1 1 1 1\r\n[teams]\r\n\"T\" \"T\" \"\" []\r\n");
    EXPECT_FALSE(GetNewBots());
    EXPECT_EQ(messages(), QStringList{"Error: Couldn't load bots!"});
    EXPECT_EQ(restores, 1);

    // Without "[teams]" the teams load fails on its own, the bots load doesn't.
    reset();
    dialogs.boxes.clear();
    writeBotsFile("[bots]\r\n\"A\" \"male/ranger\" 1 1 1 1 1 1 1\r\n");
    EXPECT_FALSE(GetNewTeams());
    EXPECT_EQ(messages(), QStringList{"Couldn't load data from bots.cfg."});
    EXPECT_EQ(restores, 2);
    EXPECT_EQ(BotFileErrorFlag, 1);
    BotFileErrorFlag = 0;
    const auto listed = GetNewBots();
    ASSERT_TRUE(listed);
    EXPECT_EQ(names(*listed), QStringList{"A"});
    EXPECT_EQ(messages().size(), 1);
    EXPECT_TRUE(TeamsText.isEmpty());
}

TEST_F(BotsLoad, ABadRowGivesOneMessageAndTheRestoreOffer)
{
    useDemo();
    writeBotsFile("[bots]\r\n\"A\" \"male/ranger\" 1 1 1 1 1 1 1\r\n\"B\" \"male/scout\" 1 \t1 1 1 1 1 1\r\n"
                  "\"C\" \"male/scout\" 1 1 1 1 1 1 1\r\n[teams]\r\n");
    EXPECT_FALSE(GetNewBots());
    EXPECT_EQ(messages(), QStringList{"Error loading bots!"});
    EXPECT_EQ(dialogs.beeps, 2);
    EXPECT_EQ(restores, 1);
    EXPECT_EQ(BotFileErrorFlag, 1);
    EXPECT_EQ(BotLineErrorFlag, 1);
    EXPECT_EQ(BotCount, 2); // the failed row is counted, the rest never read
    EXPECT_EQ(Bots.back().Name, QStringLiteral("B"));
}

TEST_F(BotsLoad, AModelSkinWithoutSlashFailsTheWholeLoad)
{
    useDemo();
    writeBotsFile("[bots]\r\n\"A\" \"male/ranger\" 1 1 1 1 1 1 1\r\n\"B\" \"ranger\" 1 1 1 1 1 1 1\r\n[teams]\r\n");
    EXPECT_FALSE(GetNewBots());
    EXPECT_EQ(messages(), QStringList{"Error: Couldn't load bots!"});
    EXPECT_EQ(dialogs.beeps, 1);
    EXPECT_EQ(restores, 1);
}

TEST_F(BotsLoad, EmptySectionsAreNoFailure)
{
    useDemo();
    writeBotsFile("[bots]\r\n[teams]\r\n");
    ASSERT_TRUE(GetNewTeams());
    EXPECT_EQ(TeamsSectionLines, 0); // the team page's "no teams"
    const auto listed = GetNewBots();
    ASSERT_TRUE(listed);
    EXPECT_TRUE(listed->empty());

    writeBotsFile("[bots]\r\n[teams]\r\n# nothing yet\r\n");
    ASSERT_TRUE(GetNewTeams());
    EXPECT_EQ(TeamsSectionLines, 1);
    EXPECT_EQ(TeamCount, 0);
    EXPECT_TRUE(dialogs.boxes.empty());
}

TEST_F(BotsLoad, TooManyTeamsStopTheTeamsRead)
{
    useDemo();
    QByteArray file = "[bots]\r\n[teams]\r\n";
    for (int i = 0; i <= kMaxTeams; ++i)
        file += "\"T" + QByteArray::number(i) + "\" \"T\" \"\" []\r\n";
    writeBotsFile(file);
    EXPECT_FALSE(GetNewTeams());
    EXPECT_EQ(messages(), QStringList{"Error loading teams!"});
    EXPECT_EQ(dialogs.beeps, 1);
    EXPECT_EQ(restores, 0);
    EXPECT_EQ(BotFileErrorFlag, 1);
    EXPECT_EQ(TeamCount, kMaxTeams + 1);
    EXPECT_EQ(Teams.size(), size_t(kMaxTeams) + 1);
}

TEST_F(BotsLoad, TeamsTextGrowsWithEveryBotsLoadUntilEmptied)
{
    useDemo();
    writeBotsFile("[bots]\r\n[teams]\r\n# t\r\n");
    ASSERT_TRUE(GetNewBots());
    ASSERT_TRUE(GetNewBots());
    EXPECT_EQ(TeamsText, QStringLiteral("# t\r\n# t\r\n"));
    TeamsText.clear();
    ASSERT_TRUE(GetNewBots());
    EXPECT_EQ(TeamsText, QStringLiteral("# t\r\n"));
}

TEST_F(BotsLoad, ProgressIsReportedOnlyWhenAsked)
{
    useDemo();
    std::vector<std::pair<int, int>> reports;
    BotProgressHook = [&](int value, int maximum) { reports.emplace_back(value, maximum); };
    ASSERT_TRUE(GetNewBots());
    EXPECT_TRUE(reports.empty());

    ShowBotProgress = 1;
    ASSERT_TRUE(GetNewBots());
    ASSERT_FALSE(reports.empty());
    // 13 rows and "[teams]" counted, so 29; 15 lines read and 9 bots listed.
    EXPECT_EQ(reports.front(), std::make_pair(0, 29));
    EXPECT_EQ(reports.back(), std::make_pair(24, 29));
    for (size_t i = 1; i < reports.size(); ++i)
        EXPECT_EQ(reports[i].first, reports[i - 1].first + 1);
}

// --- the listing filter ---

using BotsListing = botstest::DemoStore;

TEST_F(BotsListing, TheIndexAnswersFromMemoryWithoutRegardToCase)
{
    const QString root = useDemo(true);
    const PlayersIndex index(playersFolderPath());
    EXPECT_EQ(index.modelCount(), 4);
    // Gone from disk, still known: the filter never goes back to the folder.
    ASSERT_TRUE(QDir(demo::baseFolder(root, {true})).removeRecursively());
    EXPECT_TRUE(index.isInstalled("skarn", "ember"));
    EXPECT_TRUE(index.isInstalled("SKARN", "Frost"));
    EXPECT_TRUE(index.isInstalled("Male", "RANGER"));
    EXPECT_FALSE(index.isInstalled("female", "nova"));  // no face
    EXPECT_FALSE(index.isInstalled("cyborg", "rust"));  // no skin
    EXPECT_FALSE(index.isInstalled("ghoul", "pale"));   // no model
    EXPECT_FALSE(index.isInstalled("male", ""));
    EXPECT_FALSE(index.isInstalled("male", "weapon"));  // a skin without face
    EXPECT_FALSE(index.isInstalled("", "ranger"));
    EXPECT_EQ(PlayersIndex(playersFolderPath()).modelCount(), 0);
}

TEST_F(BotsListing, NameOrderKeepsDuplicatesAndFileOrderOfEqualNames)
{
    useDemo();
    const PlayersIndex index(playersFolderPath());
    const std::vector<BotRecord> bots = {ranger("delta"),   ranger("Alpha", "male/scout"), ranger("alpha"),
                                         ranger("Charlie"), ranger("Bravo", "ghoul/pale"), ranger("alpha"),
                                         ranger("Echo", "/ranger"), ranger("Foxtrot", "male/ranger/x")};
    const auto listed = listInstalledBots(bots, index);
    ASSERT_TRUE(listed);
    EXPECT_EQ(*listed, (std::vector<int>{1, 2, 5, 3, 0}));

    std::vector<BotRecord> noSlash = bots;
    noSlash.push_back(ranger("Golf", "male"));
    EXPECT_FALSE(listInstalledBots(noSlash, index));
}

// --- rewrites ---

using BotsSave = botstest::DemoStore;

TEST_F(BotsSave, OnlyAnExistingFileIsRewritten)
{
    const QString root = useDemo();
    ASSERT_TRUE(QFile::remove(botsFilePath()));
    EXPECT_FALSE(SaveBots({ranger("A")}));
    EXPECT_FALSE(SaveFile({ranger("A")}, {}));
    EXPECT_EQ(messages(), (QStringList{"Error! Couldn't save bots to bots.cfg.", "Error! Couldn't save teams to bots.cfg."}));
    EXPECT_EQ(dialogs.beeps, 2);
    EXPECT_FALSE(platform::fileExists(platform::joinPath(demo::modFolder(root), QStringLiteral("bots.cfg"))));
}

TEST_F(BotsSave, WritesTheLayoutUnderTheFilesOwnSpelling)
{
    const QString root = useDemo(true);
    TeamsText = QStringLiteral("# kept\r\n");
    const std::vector<BotRecord> rows = {ranger("Zed"), ranger("Amy", "female/lynx")};
    ASSERT_TRUE(SaveBots(rows));
    EXPECT_EQ(messages(), QStringList{"Bots.cfg file has been updated!"});
    EXPECT_EQ(QDir(demo::modFolder(root)).entryList({"bots.cfg"}, QDir::Files), QStringList{"Bots.cfg"});
    EXPECT_EQ(botsFileBytes(), botsFileForBots(rows, TeamsText));

    const std::vector<TeamRecord> teams = {TeamRecord{"Reds", "R", "", "Zed Amy "}};
    ASSERT_TRUE(SaveFile(rows, teams));
    EXPECT_EQ(botsFileBytes(), botsFileForTeams(rows, teams));
    EXPECT_EQ(messages().size(), 2);
    EXPECT_EQ(dialogs.beeps, 0);
}

TEST_F(BotsSave, ARowTooWideKeepsTheOldFile)
{
    useDemo();
    const QByteArray before = botsFileBytes();
    EXPECT_FALSE(SaveBots({ranger("A"), ranger("SixteenCharName!")}));
    EXPECT_EQ(messages(), QStringList{"Error! Couldn't save bots to bots.cfg."});
    EXPECT_EQ(botsFileBytes(), before);

    EXPECT_FALSE(SaveFile({ranger("A")}, {TeamRecord{"TwentyTwoCharacters!!!", "", "", ""}}));
    EXPECT_EQ(messages().last(), QStringLiteral("Error! Couldn't save teams to bots.cfg."));
    EXPECT_EQ(botsFileBytes(), before);
    EXPECT_EQ(dialogs.beeps, 2);
}

TEST_F(BotsSave, EditorRoundTripsThroughTheFile)
{
    useDemo();
    ASSERT_TRUE(GetNewTeams());
    const std::vector<TeamRecord> teams = Teams;
    const auto first = GetNewBots();
    ASSERT_TRUE(first);
    const std::vector<BotRecord> listedRows = rowsOf(*first);
    const QString teamsText = TeamsText;

    // The bot editor's save: hidden bots and comments of the bots section
    // are gone, the teams part comes back as it was, plus the closing line.
    ASSERT_TRUE(SaveBots(listedRows));
    TeamsText.clear();
    const auto second = GetNewBots();
    ASSERT_TRUE(second);
    EXPECT_EQ(BotCount, 9);
    EXPECT_EQ(rowsOf(*second), listedRows);
    EXPECT_EQ(TeamsText, teamsText + QStringLiteral("\r\n"));
    ASSERT_TRUE(GetNewTeams());
    EXPECT_EQ(Teams, teams);

    // The team editor's save rebuilds the teams part from the rows.
    ASSERT_TRUE(SaveFile(listedRows, teams));
    ASSERT_TRUE(GetNewTeams());
    EXPECT_EQ(Teams, teams);
    EXPECT_EQ(TeamsSectionLines, 5);
    TeamsText.clear();
    const auto third = GetNewBots();
    ASSERT_TRUE(third);
    EXPECT_EQ(rowsOf(*third), listedRows);
    EXPECT_FALSE(TeamsText.contains(QLatin1Char('#')));
    EXPECT_EQ(messages(), QStringList(2, QStringLiteral("Bots.cfg file has been updated!")));
}

} // namespace
