// Damaged and hostile bots files: every one either loads or ends in the
// loader's own message, and none crashes, hangs or breaks the store.
#include "bots/BotStore.h"
#include "bots/BotsFile.h"
#include "bots/BotsTestSupport.h"


#include <random>
#include <string_view>

using namespace torvik;
using namespace std::string_view_literals;

namespace {

const QStringList kBotsMessages = {"Error: Couldn't load bots!", "Error loading bots!"};
const QStringList kTeamsMessages = {"Error: Couldn't load teams!", "Couldn't load data from bots.cfg.",
                                    "Error loading teams!"};

struct Outcome {
    bool teamsLoaded = false;
    QStringList teamsBoxes;
    std::optional<std::vector<int>> listed;
    QStringList botsBoxes;
    int botsRestores = 0;
};

class BotsFuzz : public botstest::DemoStore {
protected:
    void SetUp() override
    {
        DemoStore::SetUp();
        useDemo();
        demoFile = botsFileBytes();
    }

    QStringList boxesSince(size_t from) const
    {
        QStringList out;
        for (size_t i = from; i < dialogs.boxes.size(); ++i)
            out << dialogs.boxes[i].text;
        return out;
    }

    // Start-up order: teams first, then bots, each from a clear flag so that
    // both readers get to see the file.
    Outcome load(const QByteArray& bytes)
    {
        writeBotsFile(bytes);
        Outcome o;
        reset();
        size_t mark = dialogs.boxes.size();
        o.teamsLoaded = GetNewTeams();
        o.teamsBoxes = boxesSince(mark);
        EXPECT_EQ(Teams.size(), size_t(TeamCount));
        EXPECT_LE(TeamCount, kMaxTeams + 1);
        if (o.teamsLoaded) {
            EXPECT_TRUE(o.teamsBoxes.isEmpty()) << o.teamsBoxes.join(" | ").toStdString();
            EXPECT_EQ(BotFileErrorFlag, 0);
        } else {
            EXPECT_EQ(o.teamsBoxes.size(), 1);
            if (!o.teamsBoxes.isEmpty()) {
                EXPECT_TRUE(kTeamsMessages.contains(o.teamsBoxes.first())) << o.teamsBoxes.first().toStdString();
            }
            EXPECT_EQ(BotFileErrorFlag, 1);
        }

        BotFileErrorFlag = 0;
        mark = dialogs.boxes.size();
        const int restoresBefore = restores;
        o.listed = GetNewBots();
        o.botsBoxes = boxesSince(mark);
        o.botsRestores = restores - restoresBefore;
        EXPECT_EQ(Bots.size(), size_t(BotCount));
        EXPECT_LE(BotCount, kMaxBots + 1);
        if (o.listed) {
            EXPECT_TRUE(o.botsBoxes.isEmpty()) << o.botsBoxes.join(" | ").toStdString();
            EXPECT_EQ(o.botsRestores, 0);
            for (size_t i = 0; i < o.listed->size(); ++i) {
                const int row = (*o.listed)[i];
                EXPECT_GE(row, 0);
                EXPECT_LT(row, BotCount);
                if (i > 0) {
                    const QString& before = Bots[size_t((*o.listed)[i - 1])].Name;
                    EXPECT_LE(before.compare(Bots[size_t(row)].Name, Qt::CaseInsensitive), 0);
                }
            }
        } else {
            EXPECT_EQ(o.botsBoxes.size(), 1);
            if (!o.botsBoxes.isEmpty()) {
                EXPECT_TRUE(kBotsMessages.contains(o.botsBoxes.first())) << o.botsBoxes.first().toStdString();
            }
            EXPECT_EQ(o.botsRestores, 1);
            EXPECT_EQ(BotFileErrorFlag, 1);
        }
        return o;
    }

    QByteArray demoFile;
};

QByteArray bytes(std::string_view text) { return QByteArray(text.data(), qsizetype(text.size())); }

QByteArray row(const QByteArray& name, const QByteArray& modelSkin, const QByteArray& numbers = "1 1 1 1 1 1 1")
{
    return "\"" + name + "\" \"" + modelSkin + "\" " + numbers + "\r\n";
}

TEST_F(BotsFuzz, EdgeFilesEndAsTold)
{
    const QByteArray good = row("A", "male/ranger");
    struct Case {
        const char* what;
        QByteArray bytes;
        QString teamsMessage; // empty: loads
        QString botsMessage;
    };
    const Case cases[] = {
        {"no [bots]", "# x\r\n" + good + "[teams]\r\n", "", "Error: Couldn't load bots!"},
        {"no [teams]", "[bots]\r\n" + good, "Couldn't load data from bots.cfg.", ""},
        {"neither", good + good, "Couldn't load data from bots.cfg.", "Error: Couldn't load bots!"},
        {"empty file", "", "Couldn't load data from bots.cfg.", "Error: Couldn't load bots!"},
        {"[teams] before [bots]", "[teams]\r\n\"T\" \"T\" \"\" []\r\n[bots]\r\n" + good, "", ""},
        {"tab stepped over", "[bots]\r\n\"A\"\t\"male/ranger\"\t1\t1\t1\t1\t1\t1\t1\r\n[teams]\r\n", "", ""},
        {"tab looked at", "[bots]\r\n" + row("A", "male/ranger", "1 1 1 \t1 1 1 1") + "[teams]\r\n", "",
         "Error loading bots!"},
        {"name never closed", "[bots]\r\n\"A male/ranger 1 1 1 1 1 1 1\r\n[teams]\r\n", "", "Error loading bots!"},
        {"model never closed", "[bots]\r\n\"A\" \"male/ranger 1 1 1 1 1 1 1\r\n[teams]\r\n", "",
         "Error loading bots!"},
        {"team never closed", "[bots]\r\n[teams]\r\n\"Team \"T\" [\"x\r\n", "", ""},
        {"no slash", "[bots]\r\n" + good + row("B", "ranger") + "[teams]\r\n", "", "Error: Couldn't load bots!"},
        {"only a quote", "[bots]\r\n\"\r\n[teams]\r\n\"\r\n", "", "Error loading bots!"},
        {"5000-character name", "[bots]\r\n" + row(QByteArray(4998, 'n'), "male/ranger") + "[teams]\r\n", "", ""},
        {"5001-character name", "[bots]\r\n" + row(QByteArray(5001, 'n'), "male/ranger") + "[teams]\r\n", "",
         "Error loading bots!"},
        {"5000-character comment", "[bots]\r\n#" + QByteArray(5000, 'c') + "\r\n" + good + "[teams]\r\n", "", ""},
        {"5000-character team", "[bots]\r\n[teams]\r\n\"" + QByteArray(5000, 't') + "\" \"T\" \"\" []\r\n", "", ""},
        {"NUL bytes", bytes("[bots]\r\n\"A\0\" \"male/ranger\" 1 1 1 1 1 1 1\r\n[teams]\r\n\0\r\n"sv), "", ""},
        {"NUL as a column", bytes("[bots]\r\n\"A\" \"male/ranger\" 1 \0 1 1 1 1 1\r\n[teams]\r\n"sv), "",
         "Error loading bots!"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const Outcome o = load(c.bytes);
        EXPECT_EQ(o.teamsBoxes, c.teamsMessage.isEmpty() ? QStringList() : QStringList{c.teamsMessage});
        EXPECT_EQ(o.botsBoxes, c.botsMessage.isEmpty() ? QStringList() : QStringList{c.botsMessage});
    }
}

TEST_F(BotsFuzz, ALongNameWithinTheLimitIsListed)
{
    const Outcome o = load("[bots]\r\n" + row(QByteArray(4998, 'n'), "male/ranger") + "[teams]\r\n");
    ASSERT_TRUE(o.listed);
    ASSERT_EQ(o.listed->size(), 1u);
    EXPECT_EQ(Bots[0].Name.size(), 4998);
}

TEST_F(BotsFuzz, LineEndsOfAnyKindReadTheSame)
{
    const Outcome crlf = load(demoFile);
    ASSERT_TRUE(crlf.listed && crlf.teamsLoaded);
    const std::vector<BotRecord> bots = Bots;
    const std::vector<TeamRecord> teams = Teams;
    const QString teamsText = TeamsText;

    for (const char* end : {"\r", "\n"}) {
        SCOPED_TRACE(end[0] == '\r' ? "CR" : "LF");
        QByteArray other = demoFile;
        other.replace("\r\n", end);
        const Outcome o = load(other);
        ASSERT_TRUE(o.listed && o.teamsLoaded);
        EXPECT_EQ(*o.listed, *crlf.listed);
        EXPECT_EQ(Bots, bots);
        EXPECT_EQ(Teams, teams);
        EXPECT_EQ(TeamsText, teamsText);
    }
}

TEST_F(BotsFuzz, BinaryDataNeverBreaksTheStore)
{
    std::mt19937 random(20240611);
    for (int round = 0; round < 40; ++round) {
        SCOPED_TRACE(round);
        QByteArray noise(int(random() % 65536), Qt::Uninitialized);
        for (char& c : noise)
            c = char(random());
        // Half the rounds give the noise real sections to be read in.
        if (round % 2)
            noise = "[bots]\r\n\"" + noise.left(noise.size() / 2) + "\r\n[teams]\r\n\"" + noise.mid(noise.size() / 2);
        load(noise);
    }
}

TEST_F(BotsFuzz, MutatedDemoFilesNeverBreakTheStore)
{
    static const char kSpecial[] = {'"', '\t', '\r', '\n', '/', '`', '[', ']', ' ', '#', '0', '9', 'x', '\0'};
    std::mt19937 random(7);
    int loaded = 0;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        QByteArray file = demoFile;
        const int edits = 1 + int(random() % 6);
        for (int e = 0; e < edits; ++e) {
            const int at = int(random() % file.size());
            const char c = kSpecial[random() % sizeof kSpecial];
            switch (random() % 3) {
            case 0: file[at] = c; break;
            case 1: file.insert(at, c); break;
            default: file.remove(at, 1 + int(random() % 8)); break;
            }
        }
        const Outcome o = load(file);
        loaded += o.listed ? 1 : 0;
    }
    // Most single edits land in harmless places; some must fail.
    EXPECT_GT(loaded, 0);
    EXPECT_LT(loaded, 300);
}

TEST_F(BotsFuzz, MegabyteFilesAreReadToTheirLimits)
{
    // How fast such files load is measured in bench/, not here.
    const int size = 4 * 1024 * 1024;

    // Valid, with a huge teams part: read whole and kept verbatim.
    QByteArray bigTeams = "[bots]\r\n" + row("A", "male/ranger") + "[teams]\r\n";
    const QByteArray comment = "# " + QByteArray(60, 'c') + "\r\n";
    while (bigTeams.size() < size)
        bigTeams += comment;
    Outcome o = load(bigTeams);
    ASSERT_TRUE(o.listed && o.teamsLoaded);
    EXPECT_EQ(TeamsText.size(), bigTeams.size() - bigTeams.indexOf("[teams]\r\n") - 9);

    // Bot rows without end: the store's limit stops the read.
    QByteArray bigBots = "[bots]\r\n";
    const QByteArray r = row("Bot", "male/ranger");
    bigBots.reserve(size + r.size());
    while (bigBots.size() < size)
        bigBots += r;
    o = load(bigBots + "[teams]\r\n");
    EXPECT_EQ(o.botsBoxes, QStringList{"Error loading bots!"});
    EXPECT_EQ(BotCount, kMaxBots + 1);

    // One line of 4 MB, opened like a row: every scan gives up at its limit.
    QByteArray oneLine = "[bots]\r\n\"";
    std::mt19937 random(3);
    oneLine.reserve(size);
    while (oneLine.size() < size)
        oneLine += char('!' + random() % 90);
    o = load(oneLine);
    EXPECT_EQ(o.teamsBoxes, QStringList{"Couldn't load data from bots.cfg."});
    EXPECT_FALSE(o.listed);
}

} // namespace
