// The grammar of bots.cfg over plain bytes, a table a rule: the row scanners
// with the quirks files in the field rely on, the section readers and the
// row writers; then the user's file damaged at random.
#include "bots/BotsFile.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <array>
#include <random>

using namespace torvik;

namespace {

BotRecord bot(const char* name, const char* modelSkin, std::array<int, 7> n)
{
    return {QString::fromLatin1(name), QString::fromLatin1(modelSkin), qint16(n[0]), qint16(n[1]), qint16(n[2]),
            qint16(n[3]),              qint16(n[4]),                    qint16(n[5]), qint16(n[6])};
}

TeamRecord team(const char* name, const char* abbreviation, const char* modelSkin, const char* members)
{
    return {QString::fromLatin1(name), QString::fromLatin1(abbreviation), QString::fromLatin1(modelSkin),
            QString::fromLatin1(members)};
}

QStringList names(const std::vector<BotRecord>& rows)
{
    QStringList out;
    for (const BotRecord& b : rows)
        out << b.Name;
    return out;
}

TEST(BotsFile, BotRows)
{
    const QByteArray head = "\"A\" \"m/s\" ";
    struct Row {
        QByteArray line;
        bool ok;
        std::optional<BotRecord> expected; // what the row reads as, failed rows as far as they got
    };
    const Row rows[] = {
        {"\"Amber\"          \"crakhor/amber\"      5 3 3 7 1 0 100", true, bot("Amber", "crakhor/amber", {5, 3, 3, 7, 1, 0, 100})},
        // Anything between name and model/skin, blanks and tabs before the
        // first column, words behind the ping.
        {"\"Bo\"xyz\"m/s\"\t \t4 1 2 0 0 1 999 trailing words", true, bot("Bo", "m/s", {4, 1, 2, 0, 0, 1, 999})},
        {"\"\" \"\" 1 1 1 1 1 1 -20", true, bot("", "", {1, 1, 1, 1, 1, 1, -20})},
        // A column is one character with one unseen behind it: a second digit
        // is stepped over, a third becomes the next column.
        {head + "12 3 4 5 1 0 100", true, bot("A", "m/s", {1, 3, 4, 5, 1, 0, 100})},
        {head + "123 4 5 6 1 0 100", true, bot("A", "m/s", {1, 3, 4, 5, 6, 1, 0})},
        {head + "5x4x3x2x1x0x250", true, bot("A", "m/s", {5, 4, 3, 2, 1, 0, 250})},
        // A tab is harmless where it is stepped over, fatal where it is read.
        {head + "5\t3\t3\t7\t1\t0\t100", true, bot("A", "m/s", {5, 3, 3, 7, 1, 0, 100})},
        {head + "5 \t3 3 7 1 0 100", false, bot("A", "m/s", {5, 0, 0, 0, 0, 0, 0})},
        {head + "5 3 3 7 1 0 \t100", false, {}},
        // The ping is gathered in batches of five digits.
        {head + "1 1 1 1 1 1 123456", true, bot("A", "m/s", {1, 1, 1, 1, 1, 1, 12345})},
        {head + "1 1 1 1 1 1 3000012", true, bot("A", "m/s", {1, 1, 1, 1, 1, 1, 30000})},
        {head + "1 1 1 1 1 1 00123457", true, bot("A", "m/s", {1, 1, 1, 1, 1, 1, 1237})},
        {head + "1 1 1 1 1 1 12345678", false, {}},
        {head + "1 1 1 1 1 1    75 more", true, bot("A", "m/s", {1, 1, 1, 1, 1, 1, 75})},
        // Bad, missing or oversized values, and rows never closed.
        {head + "5 3 x 7 1 0 100", false, {}},
        {head + "5 3 3 7 1 0", false, {}},
        {head + "5 3 3 7 1 0 40000", false, {}},
        {head + "- 3 3 7 1 0 100", false, {}},
        {"\"A\" \"m/s 5 3 3 7 1 0 100", false, {}},
        {"\"A 5 3 3 7 1 0 100", false, {}},
        {"\"", false, {}},
        // No scan runs past the working limit of a row.
        {head.left(9) + QByteArray(kRowScanLimit - 1, ' ') + "1 1 1 1 1 1 1", true, bot("A", "m/s", {1, 1, 1, 1, 1, 1, 1})},
        {head.left(9) + QByteArray(kRowScanLimit + 1, ' ') + "1 1 1 1 1 1 1", false, {}},
        {"\"" + QByteArray(6000, 'n') + "\" \"m/s\" 1 1 1 1 1 1 1", false, {}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.line.left(60).constData());
        BotRecord b;
        EXPECT_EQ(ParseBotLine(r.line, b), r.ok);
        if (r.expected) {
            EXPECT_EQ(b, *r.expected);
        }
    }
}

TEST(BotsFile, TeamRows)
{
    const std::pair<QByteArray, TeamRecord> rows[] = {
        {"\"WasteRed\"             \"WR\"             \"waste/RED\"          [\"Red1\" \"Red2\" ]",
         team("WasteRed", "WR", "waste/RED", "Red1 Red2 ")},
        {"\"T\"\t\"AB\"\t\"\"\t[\"x\"\t\"y\"]", team("T", "AB", "", "x y ")},
        {"\"T\" \"AB\" \"m/s\" []", team("T", "AB", "m/s", "")},
        {"\"T\"", team("T", "", "", "")},
        // The character behind a closing mark is never seen: a second name
        // without a separator loses its opening mark, and its closing mark
        // opens a name that runs to the end of the row.
        {"\"T\" \"A\" \"\" [\"x\"\"y\"]", team("T", "A", "", "x ] ")},
        // The bracket means nothing; a backtick ends the list, unless quoted.
        {"\"T\" \"A\" \"\" [\"x\"] \"y\"", team("T", "A", "", "x y ")},
        {"\"T\" \"A\" \"\" [\"x\" ` \"y\"]", team("T", "A", "", "x ")},
        {"\"T\" \"A\" \"\" [\"x`z\" \"y\"]", team("T", "A", "", "x`z y ")},
        // An open name takes the rest of the row; an empty one still counts.
        {"\"T\" \"A\" \"\" [\"x\" \"y", team("T", "A", "", "x y ")},
        {"\"T\" \"A\" \"\" [\"\" \"y\"]", team("T", "A", "", " y ")},
    };
    for (const auto& [line, expected] : rows)
        EXPECT_EQ(ParseTeamLine(line), expected) << line.constData();
}

TEST(BotsFile, Sections)
{
    const QByteArray a = "\"A\" \"m/s\" 5 3 3 7 1 0 100\r\n";
    QByteArray full = "[bots]\r\n";
    for (int i = 0; i < kMaxBots; ++i)
        full += "\"B\" \"m/s\" 1 1 1 1 1 1 1\r\n";
    struct Case {
        const char* what;
        QByteArray file;
        bool botsFound; // then what the bots reader gives, then the teams reader
        QStringList bots;
        bool botFailed;
        QString teamsText;
        bool teamsFound;
        int teamRows, teamLines;
    };
    const Case cases[] = {
        {"odd lines", "\"Early\" \"m/s\" 1 1 1 1 1 1 1\r\n[bots]\r\n# c\r\n\r\n \"In\" \"m/s\" 1 1 1 1 1 1 1\r\n[teams] \r\n" + a
                          + "[teams]\r\n# t\r\n\"T\" \"AB\" \"\" []\r\n\r\nlast\n",
         true, {"A"}, false, "# t\r\n\"T\" \"AB\" \"\" []\r\n\r\nlast\r\n", true, 2, 6},
        {"section lines mind case", "[Bots]\r\n[BOTS]\r\n[bots] old\r\n" + a + "[teams]X\r\n", true, {"A"}, false, "",
         true, 0, 0},
        {"lone CR and LF", "[bots]\r" + a.left(a.size() - 2) + "\n[teams]\n\"T\"\r", true, {"A"}, false, "\"T\"\r\n",
         true, 1, 1},
        // A team row behind an inexact "[teams]" is read as a bot row, and fails.
        {"inexact teams line", "[bots]\r\n" + a + "[teams]\t\r\n\"Red\"  \"WR\"  \"w/R\"  [\"R1\" ]\r\n" + a, true,
         {"A", "Red"}, true, "", true, 2, 2},
        {"teams before bots", "[teams]\r\n\"T\" \"AB\" \"m/s\" []\r\n[bots]\r\n" + a, true, {"A"}, false, "", true, 2, 3},
        {"no sections", a, false, {}, false, "", false, 0, 0},
        {"empty sections", "[bots]\r\n[teams]\r\n", true, {}, false, "", true, 0, 0},
        {"bot store full", full + "[teams]\r\n", true, {}, false, "", true, 0, 0},
        {"one bot too many", full + a + "[teams]\r\nx\r\n", true, {}, true, "", true, 0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const BotsSection b = ReadBotsSection(c.file);
        EXPECT_EQ(b.found, c.botsFound);
        EXPECT_EQ(b.rowFailed, c.botFailed);
        if (b.rows.size() < 10) {
            EXPECT_EQ(names(b.rows), c.bots);
        } else {
            EXPECT_EQ(b.rows.size(), size_t(kMaxBots) + (c.botFailed ? 1 : 0));
        }
        EXPECT_EQ(b.teamsText, c.teamsText);
        const TeamsSection t = ReadTeamsSection(c.file);
        EXPECT_EQ(t.found, c.teamsFound);
        EXPECT_EQ(int(t.rows.size()), c.teamRows);
        EXPECT_EQ(t.lines, c.teamLines);
    }
}

TEST(BotsFile, RowWriters)
{
    const std::pair<BotRecord, std::optional<QString>> bots[] = {
        {bot("Amber", "crakhor/amber", {5, 3, 3, 7, 1, 0, 100}), "\"Amber\"          \"crakhor/amber\"      5 3 3 7 1 0 100"},
        // A model/skin wider than its columns gets the blanks the name left.
        {bot("Bo", "averylongmodel/longskin", {1, 2, 3, 0, 0, 1, 50}),
         "\"Bo\"             \"averylongmodel/longskin\"             1 2 3 0 0 1 50"},
        {bot("ABCDEFGHIJKLMNO", "averylongmodel/longskin", {1, 1, 1, 1, 1, 1, 1}),
         "\"ABCDEFGHIJKLMNO\"\"averylongmodel/longskin\"1 1 1 1 1 1 1"},
        {bot("ABCDEFGHIJKLMNOP", "m/s", {1, 1, 1, 1, 1, 1, 1}), std::nullopt},
    };
    for (const auto& [row, text] : bots)
        EXPECT_EQ(botRowText(row), text) << row.Name.toStdString();
    const std::pair<TeamRecord, std::optional<QString>> teams[] = {
        {team("WasteRed", "WR", "waste/RED", "Red1 Red2 "),
         "\"WasteRed\"             \"WR\"             \"waste/RED\"          [\"Red1\" \"Red2\" ]"},
        // The abbreviation gets the name's blanks whatever its own width.
        {team("Team", "ABCD", "", ""), "\"Team\"                 \"ABCD\"                 \"\"                   []"},
        // Members are what precedes each blank.
        {team("T", "T", "", "a  b"), "\"T\"                    \"T\"                    \"\"                   [\"a\" \"\" ]"},
        {team("ABCDEFGHIJKLMNOPQRSTUV", "T", "", ""), std::nullopt},
    };
    for (const auto& [row, text] : teams)
        EXPECT_EQ(teamRowText(row), text) << row.Name.toStdString();
    EXPECT_EQ(botsFileForBots({bots[0].first}, QStringLiteral("# t\r\n")),
              QByteArray("[bots]\r\n\"Amber\"          \"crakhor/amber\"      5 3 3 7 1 0 100\r\n[teams]\r\n# t\r\n\r\n"));
    EXPECT_FALSE(botsFileForTeams({bots[3].first}, {}));
}

// The user's file damaged at random, or not text at all: both readers end,
// within the store's limits, a failed row counted last.
TEST(BotsFile, DamagedFilesAtRandom)
{
    const QByteArray sample = "[bots]\r\n\"Zed\"  \"male/ranger\"  1 2 3 4 0 1 50\r\n\"Amy\"  \"f/lynx\"  5 5 5 0 1 0 75\r\n"
                              "[teams]\r\n# members\r\n\"Reds\"  \"R\"  \"m/r\"  [\"Zed\" \"Amy\" ]\r\n";
    static const char kSpecial[] = {'"', '\t', '\r', '\n', '/', '`', '[', ']', ' ', '#', '0', '9', 'x', '\0'};
    std::mt19937 random(7);
    int failed = 0;
    for (int round = 0; round < 400; ++round) {
        QByteArray file = sample;
        if (round % 10 == 0) {
            file = "[bots]\r\n\"" + QByteArray(int(random() % 65536), Qt::Uninitialized) + "\r\n[teams]\r\n\"";
            for (qsizetype i = 9; i < file.size() - 12; ++i)
                file[i] = char(random());
        }
        for (int e = int(1 + random() % 6); e > 0; --e) {
            const int at = int(random() % file.size());
            switch (random() % 3) {
            case 0: file[at] = kSpecial[random() % sizeof kSpecial]; break;
            case 1: file.insert(at, kSpecial[random() % sizeof kSpecial]); break;
            default: file.remove(at, 1 + int(random() % 8)); break;
            }
        }
        const BotsSection b = ReadBotsSection(file);
        EXPECT_LE(b.rows.size(), size_t(kMaxBots) + 1) << round;
        EXPECT_LE(ReadTeamsSection(file).rows.size(), size_t(kMaxTeams) + 1) << round;
        failed += b.rowFailed ? 1 : 0;
    }
    EXPECT_GT(failed, 0);
    // One line of 4 MB opened like a row: every scan gives up at its limit.
    const BotsSection huge = ReadBotsSection("[bots]\r\n\"" + QByteArray(4 * 1024 * 1024, 'n'));
    EXPECT_TRUE(huge.rowFailed);
}

} // namespace
