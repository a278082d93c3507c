// bots.cfg as the user's file: damaged and hostile files either load or end
// in one of the loaders' own messages, never in a crash, a hang or a broken
// store; and the editors' saves rewrite the file the user has.
#include "Doubles.h"
#include "bots/BotStore.h"
#include "bots/BotsFile.h"
#include "platform/Files.h"
#include "wizard/Globals.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

using namespace torvik;

namespace {

const QByteArray kSample = "# the mod's bots\r\n[bots]\r\n"
                           "\"Zed\"            \"male/ranger\"      1 2 3 4 0 1 50\r\n"
                           "\"Amy\"            \"female/lynx\"      5 5 5 0 1 0 75\r\n"
                           "\"Ghost\"          \"ghoul/pale\"       1 1 1 1 1 1 1\r\n"
                           "[teams]\r\n# name, abbreviation, model/skin, members\r\n"
                           "\"Reds\"                 \"R\"                    \"male/ranger\"        [\"Zed\" \"Amy\" ]\r\n"
                           "\"Blues\"                \"B\"                    \"\"                   []\r\n";

class BotsStore : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir().mkpath(tmp.path() + QStringLiteral("/q2/baseq2/players/male")));
        ASSERT_TRUE(QDir().mkpath(tmp.path() + QStringLiteral("/q2/Gorvan")));
        Quake2Location = tmp.path() + QStringLiteral("/q2/quake2");
        GorvanLocation = tmp.path() + QStringLiteral("/q2/Gorvan/GAMEX86.DLL");
        RestoreBotsCfgHook = [] {};
    }
    void TearDown() override { RestoreBotsCfgHook = {}; }

    // Start-up order, teams then bots, each from a clear flag so that both
    // readers see the file. Gives the boxes shown.
    QStringList load(const QByteArray& bytes)
    {
        EXPECT_TRUE(platform::writeFile(tmp.path() + QStringLiteral("/q2/Gorvan/Bots.cfg"), bytes));
        const size_t before = dialogs.boxes.size();
        clearBotStore();
        BotFileErrorFlag = 0;
        const bool teams = GetNewTeams();
        BotFileErrorFlag = 0;
        const auto listed = GetNewBots();
        BotFileErrorFlag = 0;
        EXPECT_EQ(Bots.size(), size_t(BotCount));
        EXPECT_LE(BotCount, kMaxBots + 1);
        EXPECT_EQ(Teams.size(), size_t(TeamCount));
        if (listed) {
            for (int row : *listed)
                EXPECT_LT(row, BotCount);
        }
        QStringList shown;
        for (size_t i = before; i < dialogs.boxes.size(); ++i)
            shown << dialogs.boxes[i].text;
        EXPECT_EQ(shown.size(), (teams ? 0 : 1) + (listed ? 0 : 1)) << shown.join(" | ").toStdString();
        return shown;
    }

    QTemporaryDir tmp;
    harness::RecordingDialogs dialogs;
};

TEST_F(BotsStore, MutatedAndBinaryFilesEndInTheLoadersMessages)
{
    const QStringList known = {"Error: Couldn't load bots!", "Error loading bots!", "Error: Couldn't load teams!",
                               "Couldn't load data from bots.cfg.", "Error loading teams!"};
    EXPECT_TRUE(load(kSample).isEmpty());
    static const char kSpecial[] = {'"', '\t', '\r', '\n', '/', '`', '[', ']', ' ', '#', '0', '9', 'x', '\0'};
    std::mt19937 random(7);
    int failed = 0;
    for (int round = 0; round < 300; ++round) {
        QByteArray file = kSample;
        if (round % 10 == 0) {
            file = QByteArray(int(random() % 65536), Qt::Uninitialized);
            for (char& c : file)
                c = char(random());
            if (round % 20 == 0)
                file = "[bots]\r\n\"" + file + "\r\n[teams]\r\n\"" + file;
        }
        for (int e = int(1 + random() % 6); e > 0; --e) {
            const int at = int(random() % file.size());
            switch (random() % 3) {
            case 0: file[at] = kSpecial[random() % sizeof kSpecial]; break;
            case 1: file.insert(at, kSpecial[random() % sizeof kSpecial]); break;
            default: file.remove(at, 1 + int(random() % 8)); break;
            }
        }
        SCOPED_TRACE(round);
        const QStringList shown = load(file);
        for (const QString& text : shown)
            EXPECT_TRUE(known.contains(text)) << text.toStdString();
        failed += shown.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(failed, 0);
    EXPECT_LT(failed, 300);
    // One line of 4 MB opened like a row: every scan gives up at its limit.
    EXPECT_EQ(load("[bots]\r\n\"" + QByteArray(4 * 1024 * 1024, 'n')),
              (QStringList{"Couldn't load data from bots.cfg.", "Error loading bots!"}));
}

TEST_F(BotsStore, SavesRewriteTheFileUnderItsOwnSpellingOnly)
{
    const QString folder = tmp.path() + QStringLiteral("/q2/Gorvan");
    const std::vector<BotRecord> bots = {{"Zed", "male/ranger", 1, 2, 3, 4, 0, 1, 50}};
    EXPECT_FALSE(SaveBots(bots));
    EXPECT_FALSE(SaveFile(bots, {}));
    EXPECT_TRUE(QDir(folder).isEmpty());

    load(kSample);
    ASSERT_TRUE(SaveBots(bots));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList{"Bots.cfg"});
    QByteArray bytes;
    ASSERT_TRUE(platform::readFile(folder + QStringLiteral("/Bots.cfg"), bytes));
    EXPECT_EQ(bytes, botsFileForBots(bots, TeamsText));
    const std::vector<TeamRecord> teams = {{"Reds", "R", "", "Zed "}};
    ASSERT_TRUE(SaveFile(bots, teams));
    ASSERT_TRUE(platform::readFile(folder + QStringLiteral("/Bots.cfg"), bytes));
    EXPECT_EQ(bytes, botsFileForTeams(bots, teams));

    QStringList shown;
    for (const harness::BoxRecord& box : dialogs.boxes)
        shown << box.text;
    EXPECT_EQ(shown, (QStringList{"Error! Couldn't save bots to bots.cfg.", "Error! Couldn't save teams to bots.cfg.",
                                  "Bots.cfg file has been updated!", "Bots.cfg file has been updated!"}));
}

} // namespace
