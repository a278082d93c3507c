// The grammar of bots.cfg over plain bytes: line splitting, the row scanners
// with their kept quirks, the section readers and the row writers.
#include "bots/BotsFile.h"

#include <QByteArray>
#include <QString>
#include <gtest/gtest.h>

#include <random>
#include <vector>

using namespace torvik;

namespace {

BotRecord bot(const char* name, const char* modelSkin, int acc, int agg, int cs, int fw, int quad, int camper,
              int ping)
{
    BotRecord b;
    b.Name = QString::fromLatin1(name);
    b.ModelSkin = QString::fromLatin1(modelSkin);
    b.Accuracy = qint16(acc);
    b.Aggressiveness = qint16(agg);
    b.CombatSkills = qint16(cs);
    b.FavoriteWeapon = qint16(fw);
    b.QuadFreak = qint16(quad);
    b.Camper = qint16(camper);
    b.Ping = qint16(ping);
    return b;
}

TeamRecord team(const char* name, const char* abbreviation, const char* modelSkin, const char* members)
{
    return {QString::fromLatin1(name), QString::fromLatin1(abbreviation), QString::fromLatin1(modelSkin),
            QString::fromLatin1(members)};
}

QString blanks(int n) { return QString(n, QLatin1Char(' ')); }

std::vector<QByteArray> lineTexts(const QByteArray& file)
{
    std::vector<QByteArray> out;
    for (QByteArrayView v : splitBotsFileLines(file))
        out.push_back(v.toByteArray());
    return out;
}

BotRecord parsed(const QByteArray& line, bool expectOk = true)
{
    BotRecord b;
    EXPECT_EQ(ParseBotLine(line, b), expectOk) << line.constData();
    return b;
}

// --- lines ---

TEST(BotsLines, EveryKindOfLineEndEndsOneLine)
{
    using V = std::vector<QByteArray>;
    EXPECT_EQ(lineTexts("a\r\nb\r\n"), (V{"a", "b"}));
    EXPECT_EQ(lineTexts("a\rb\r"), (V{"a", "b"}));
    EXPECT_EQ(lineTexts("a\nb"), (V{"a", "b"}));
    EXPECT_EQ(lineTexts("a\r\n\r\nb"), (V{"a", "", "b"}));
    EXPECT_EQ(lineTexts("a\n\rb"), (V{"a", "", "b"}));
    EXPECT_EQ(lineTexts("a\r\n\r\n"), (V{"a", ""}));
    EXPECT_TRUE(lineTexts("").empty());
    EXPECT_EQ(lineTexts(QByteArray("x\0y\r\n", 5)), (V{QByteArray("x\0y", 3)}));
}

TEST(BotsLines, SectionStartsArePrefixTestsThatMindCase)
{
    const QByteArray file = "[Bots]\r\n[BOTS]\r\n[bots] old\r\n\"A\"\r\n[teams]X\r\n";
    const auto lines = splitBotsFileLines(file);
    EXPECT_EQ(SkipToBots(lines), std::optional<size_t>(3));
    EXPECT_EQ(SkipToTeams(lines), std::optional<size_t>(5));
    const auto none = splitBotsFileLines("[Teams]\r\n [bots]\r\n[bot]\r\n");
    EXPECT_FALSE(SkipToBots(none));
    EXPECT_FALSE(SkipToTeams(none));
}

// --- numbers ---

TEST(BotsNumbers, OnlySignedDecimalsWithinSixteenBits)
{
    EXPECT_EQ(botNumber("7"), std::optional<qint16>(7));
    EXPECT_EQ(botNumber("0100"), std::optional<qint16>(100));
    EXPECT_EQ(botNumber("-32768"), std::optional<qint16>(-32768));
    EXPECT_EQ(botNumber("+32767"), std::optional<qint16>(32767));
    for (const char* bad : {"", "\t", "+", "-", "a", "1a", "32768", "-32769", "1.5", " 1", "99999999999999999999"})
        EXPECT_FALSE(botNumber(bad)) << bad;
}

// --- bot rows ---

TEST(BotsParseBotLine, ReadsTheWritersLayout)
{
    EXPECT_EQ(parsed("\"Amber\"          \"crakhor/amber\"      5 3 3 7 1 0 100"),
              bot("Amber", "crakhor/amber", 5, 3, 3, 7, 1, 0, 100));
    // Anything may lie between name and model/skin, and the gap before the
    // first column may mix blanks and tabs.
    EXPECT_EQ(parsed("\"Bo\"xyz\"m/s\"\t \t4 1 2 0 0 1 999 trailing words"), bot("Bo", "m/s", 4, 1, 2, 0, 0, 1, 999));
    EXPECT_EQ(parsed("\"\" \"\" 1 1 1 1 1 1 1"), bot("", "", 1, 1, 1, 1, 1, 1, 1));
    EXPECT_EQ(parsed("\"Cy\" \"nomodelslash\" 1 2 3 4 0 1 -20"), bot("Cy", "nomodelslash", 1, 2, 3, 4, 0, 1, -20));
}

TEST(BotsParseBotLine, ColumnsAreOneCharacterWithOneUnseenBehind)
{
    // Two digits: the second is stepped over and the row reads on normally.
    EXPECT_EQ(parsed("\"A\" \"m/s\" 12 3 4 5 1 0 100"), bot("A", "m/s", 1, 3, 4, 5, 1, 0, 100));
    // Three digits: the last one becomes the next column and the rest of the
    // row shifts one column on; the ping takes the camper's "0".
    EXPECT_EQ(parsed("\"A\" \"m/s\" 123 4 5 6 1 0 100"), bot("A", "m/s", 1, 3, 4, 5, 6, 1, 0));
    // No blanks at all: every other character counts.
    EXPECT_EQ(parsed("\"A\" \"m/s\" 5x4x3x2x1x0x250"), bot("A", "m/s", 5, 4, 3, 2, 1, 0, 250));
}

TEST(BotsParseBotLine, ATabIsHarmlessWhenSteppedOverAndFatalWhenLookedAt)
{
    EXPECT_EQ(parsed("\"A\" \"m/s\" 5\t3\t3\t7\t1\t0\t100"), bot("A", "m/s", 5, 3, 3, 7, 1, 0, 100));
    BotRecord b = parsed("\"A\" \"m/s\" 5 \t3 3 7 1 0 100", false);
    EXPECT_EQ(b.Accuracy, 5); // filled up to the failing column
    EXPECT_EQ(b.Aggressiveness, 0);
    EXPECT_EQ(b.Name, QStringLiteral("A"));
    EXPECT_EQ(b.ModelSkin, QStringLiteral("m/s"));
    parsed("\"A\" \"m/s\" 5 3 3 7 1 0 \t100", false);
    parsed("\"A\" \"m/s\" 5 3 3 7 1 0 100\t", false);
}

TEST(BotsParseBotLine, BadOrMissingValuesFailTheRow)
{
    parsed("\"A\" \"m/s\" 5 3 x 7 1 0 100", false);
    parsed("\"A\" \"m/s\" 5 3 3 7 1 0", false);   // no ping
    parsed("\"A\" \"m/s\" 5 3 3 7 1 0 ", false);  // ping empty
    parsed("\"A\" \"m/s\" 5 3 3", false);
    parsed("\"A\" \"m/s\"", false);
    parsed("\"A\" \"m/s 5 3 3 7 1 0 100", false); // model/skin never closed
    parsed("\"A 5 3 3 7 1 0 100", false);         // name never closed
    parsed("\"", false);
    parsed("\"A\" \"m/s\" 5 3 3 7 1 0 40000", false); // past 16 bits
    parsed("\"A\" \"m/s\" - 3 3 7 1 0 100", false);
}

TEST(BotsParseBotLine, PingIsGatheredInBatchesOfFive)
{
    EXPECT_EQ(parsed("\"A\" \"m/s\" 1 1 1 1 1 1 12345").Ping, 12345);
    EXPECT_EQ(parsed("\"A\" \"m/s\" 1 1 1 1 1 1 123456").Ping, 12345);
    EXPECT_EQ(parsed("\"A\" \"m/s\" 1 1 1 1 1 1 3000012").Ping, 30000);
    // Sixth and seventh digits unseen, the eighth joins the first five.
    EXPECT_EQ(parsed("\"A\" \"m/s\" 1 1 1 1 1 1 00123457").Ping, 1237);
    parsed("\"A\" \"m/s\" 1 1 1 1 1 1 12345678", false); // reads as 123458
    EXPECT_EQ(parsed("\"A\" \"m/s\" 1 1 1 1 1 1    75 more").Ping, 75);
}

TEST(BotsParseBotLine, ScansGiveUpAtTheWorkingLimitOfARow)
{
    // A name longer than the limit is cut there and the rest of the row is
    // then read as the model/skin and columns, which fail.
    BotRecord b = parsed("\"" + QByteArray(6000, 'n') + "\" \"m/s\" 1 1 1 1 1 1 1", false);
    EXPECT_EQ(b.Name, QString(kRowScanLimit, QLatin1Char('n')));
    // Blanks up to the limit are skipped; beyond it the blank is the value.
    EXPECT_EQ(parsed("\"A\" \"m/s\"" + QByteArray(kRowScanLimit - 1, ' ') + "1 1 1 1 1 1 1").Accuracy, 1);
    parsed("\"A\" \"m/s\"" + QByteArray(kRowScanLimit + 1, ' ') + "1 1 1 1 1 1 1", false);
}

// --- team rows ---

TEST(BotsParseTeamLine, ReadsTheWritersLayoutAndTabbedRows)
{
    EXPECT_EQ(ParseTeamLine("\"WasteRed\"             \"WR\"             \"waste/RED\"          "
                            "[\"Red1\" \"Red2\" \"Red3\" \"Red4\" ]"),
              team("WasteRed", "WR", "waste/RED", "Red1 Red2 Red3 Red4 "));
    EXPECT_EQ(ParseTeamLine("\"T\"\t\"AB\"\t\"\"\t[\"x\"\t\"y\"]"), team("T", "AB", "", "x y "));
    EXPECT_EQ(ParseTeamLine("\"T\" \"AB\" \"m/s\" []"), team("T", "AB", "m/s", ""));
    EXPECT_EQ(ParseTeamLine("\"T\" \"AB\" \"m/s\""), team("T", "AB", "m/s", ""));
    EXPECT_EQ(ParseTeamLine("\"T\""), team("T", "", "", ""));
}

TEST(BotsParseTeamLine, MemberScanQuirks)
{
    // The character behind a closing mark is never seen: two names without a
    // separator lose the second one's opening mark, and its closing mark then
    // opens a name that runs to the end of the row.
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" [\"x\"\"y\"]").Members, QStringLiteral("x ] "));
    // The bracket means nothing: quoted text behind it is a member too.
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" [\"x\"] \"y\"").Members, QStringLiteral("x y "));
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" \"x\" \"y\"").Members, QStringLiteral("x y "));
    // A backtick ends the list, unless it stands inside a name.
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" [\"x\" ` \"y\"]").Members, QStringLiteral("x "));
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" [\"x`z\" \"y\"]").Members, QStringLiteral("x`z y "));
    // An open name takes the rest of the row; an empty one still adds its blank.
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" [\"x\" \"y").Members, QStringLiteral("x y "));
    EXPECT_EQ(ParseTeamLine("\"T\" \"A\" \"\" [\"\" \"y\"]").Members, QStringLiteral(" y "));
}

// --- sections ---

TEST(BotsReadSection, SkipsOddLinesAndGathersTheTeamsVerbatim)
{
    const QByteArray file = "\"Early\" \"m/s\" 1 1 1 1 1 1 1\r\n"
                            "# head\r\n"
                            "[bots]\r\n"
                            "# comment\r\n"
                            "\r\n"
                            " \"Indented\" \"m/s\" 1 1 1 1 1 1 1\r\n"
                            ";\"Semi\" \"m/s\" 1 1 1 1 1 1 1\r\n"
                            "[teams] \r\n"
                            "\"A\" \"m/s\" 5 3 3 7 1 0 100\r\n"
                            "[teams]\r\n"
                            "# team comment\r\n"
                            "\"T\" \"AB\" \"\" []\r\n"
                            "\r\n"
                            "last\n";
    const BotsSection s = ReadBotsSection(file);
    ASSERT_TRUE(s.found);
    EXPECT_FALSE(s.rowFailed);
    ASSERT_EQ(s.rows.size(), 1u);
    EXPECT_EQ(s.rows[0].Name, QStringLiteral("A"));
    EXPECT_EQ(s.teamsText, QStringLiteral("# team comment\r\n\"T\" \"AB\" \"\" []\r\n\r\nlast\r\n"));
}

TEST(BotsReadSection, TeamRowsBehindAnInexactTeamsLineFailAsBotRows)
{
    const QByteArray file = "[bots]\r\n\"A\" \"m/s\" 5 3 3 7 1 0 100\r\n[teams]\t\r\n"
                            "\"WasteRed\"  \"WR\"  \"waste/RED\"  [\"Red1\" ]\r\n\"B\" \"m/s\" 1 1 1 1 1 1 1\r\n";
    const BotsSection s = ReadBotsSection(file);
    EXPECT_TRUE(s.rowFailed);
    ASSERT_EQ(s.rows.size(), 2u); // the failed row is counted
    EXPECT_EQ(s.rows[1].Name, QStringLiteral("WasteRed"));
    EXPECT_EQ(s.rows[1].ModelSkin, QStringLiteral("WR"));
    EXPECT_TRUE(s.teamsText.isEmpty());
    // The teams reader, whose start is a prefix test, still finds its rows.
    const TeamsSection t = ReadTeamsSection(file);
    ASSERT_TRUE(t.found);
    ASSERT_EQ(t.rows.size(), 2u);
    EXPECT_EQ(t.rows[0], team("WasteRed", "WR", "waste/RED", "Red1 "));
}

TEST(BotsReadSection, TeamsBeforeBots)
{
    const QByteArray file = "[teams]\r\n\"T\" \"AB\" \"m/s\" [\"A\" ]\r\n[bots]\r\n\"A\" \"m/s\" 5 3 3 7 1 0 100\r\n";
    const BotsSection s = ReadBotsSection(file);
    ASSERT_TRUE(s.found);
    ASSERT_EQ(s.rows.size(), 1u);
    EXPECT_TRUE(s.teamsText.isEmpty());
    const TeamsSection t = ReadTeamsSection(file);
    EXPECT_EQ(t.lines, 3);
    ASSERT_EQ(t.rows.size(), 2u); // the bot row read as a team
    EXPECT_EQ(t.rows[1], team("A", "m/s", "", ""));
}

TEST(BotsReadSection, MissingSectionsAndEmptySections)
{
    EXPECT_FALSE(ReadBotsSection("\"A\" \"m/s\" 1 1 1 1 1 1 1\r\n[teams]\r\n").found);
    EXPECT_FALSE(ReadTeamsSection("[bots]\r\n\"A\" \"m/s\" 1 1 1 1 1 1 1\r\n").found);

    const BotsSection noTeams = ReadBotsSection("[bots]\r\n\"A\" \"m/s\" 1 1 1 1 1 1 1\r\n");
    EXPECT_EQ(noTeams.rows.size(), 1u);
    EXPECT_TRUE(noTeams.teamsText.isEmpty());

    const BotsSection empty = ReadBotsSection("[bots]\r\n[teams]\r\n");
    EXPECT_TRUE(empty.found && empty.rows.empty() && !empty.rowFailed);

    // Nothing behind "[teams]" is no teams; a comment is something.
    EXPECT_EQ(ReadTeamsSection("[bots]\r\n[teams]\r\n").lines, 0);
    const TeamsSection comments = ReadTeamsSection("[bots]\r\n[teams]\r\n# none yet\r\n\r\n");
    EXPECT_EQ(comments.lines, 2);
    EXPECT_TRUE(comments.rows.empty());
}

TEST(BotsReadSection, StoreLimitsEndTheReadWithAFailedRow)
{
    QByteArray file = "[bots]\r\n";
    for (int i = 0; i < kMaxBots; ++i)
        file += "\"B" + QByteArray::number(i) + "\" \"m/s\" 1 1 1 1 1 1 1\r\n";
    const BotsSection full = ReadBotsSection(file + "[teams]\r\n");
    EXPECT_FALSE(full.rowFailed);
    EXPECT_EQ(full.rows.size(), size_t(kMaxBots));
    const BotsSection over = ReadBotsSection(file + "\"Z\" \"m/s\" 1 1 1 1 1 1 1\r\n[teams]\r\nx\r\n");
    EXPECT_TRUE(over.rowFailed);
    ASSERT_EQ(over.rows.size(), size_t(kMaxBots) + 1);
    EXPECT_EQ(over.rows.back(), BotRecord{});
    EXPECT_TRUE(over.teamsText.isEmpty()); // reading stopped at the failure

    QByteArray teams = "[teams]\r\n";
    for (int i = 0; i < kMaxTeams; ++i)
        teams += "\"T" + QByteArray::number(i) + "\" \"T\" \"\" []\r\n";
    EXPECT_FALSE(ReadTeamsSection(teams).rowFailed);
    const TeamsSection overTeams = ReadTeamsSection(teams + "\"X\" \"X\" \"\" []\r\n\"Y\" \"Y\" \"\" []\r\n");
    EXPECT_TRUE(overTeams.rowFailed);
    EXPECT_EQ(overTeams.rows.size(), size_t(kMaxTeams) + 1);
}

TEST(BotsReadSection, ProgressIsSizedByTheCountingPassAndNeverOverruns)
{
    std::vector<std::pair<int, int>> reports;
    ProgressBar bar([&](int value, int maximum) { reports.emplace_back(value, maximum); });
    // Counted: two rows, an odd line and "[teams]"; comments and blanks are not.
    const QByteArray file = "# x\r\n[bots]\r\n\"A\" \"m/s\" 1 1 1 1 1 1 1\r\n#c\r\n\r\nodd\r\n"
                            "\"B\" \"m/s\" 1 1 1 1 1 1 1\r\n[teams]\r\n\"T\" \"T\" \"\" []\r\n";
    ReadBotsSection(file, &bar);
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports.front(), std::make_pair(0, 9));
    EXPECT_EQ(bar.maximum(), 9);
    EXPECT_EQ(bar.value(), 6); // one step per line up to and with "[teams]"

    // Mostly comments: more lines than the bar holds, and it stops when full.
    QByteArray chatty = "[bots]\r\n";
    for (int i = 0; i < 50; ++i)
        chatty += "# note\r\n";
    chatty += "\"A\" \"m/s\" 1 1 1 1 1 1 1\r\n";
    ProgressBar small;
    ReadBotsSection(chatty, &small);
    EXPECT_EQ(small.maximum(), 3);
    EXPECT_EQ(small.value(), 3);
}

// --- writers ---

TEST(BotsWriter, BotRowsFillSeventeenAndTwentyOneColumns)
{
    EXPECT_EQ(botRowText(bot("Amber", "crakhor/amber", 5, 3, 3, 7, 1, 0, 100)),
              QStringLiteral("\"Amber\"          \"crakhor/amber\"      5 3 3 7 1 0 100"));
    // A model/skin wider than its columns gets the blanks that followed the name.
    EXPECT_EQ(botRowText(bot("Bo", "averylongmodel/longskin", 1, 2, 3, 0, 0, 1, 50)),
              "\"Bo\"" + blanks(13) + "\"averylongmodel/longskin\"" + blanks(13) + "1 2 3 0 0 1 50");
    // Fifteen characters fill the name's columns exactly; sixteen don't fit.
    EXPECT_EQ(botRowText(bot("ABCDEFGHIJKLMNO", "averylongmodel/longskin", 1, 1, 1, 1, 1, 1, 1)),
              QStringLiteral("\"ABCDEFGHIJKLMNO\"\"averylongmodel/longskin\"1 1 1 1 1 1 1"));
    EXPECT_FALSE(botRowText(bot("ABCDEFGHIJKLMNOP", "m/s", 1, 1, 1, 1, 1, 1, 1)));
}

TEST(BotsWriter, TeamRowsFillTwentyThreeColumnsAndRequoteMembers)
{
    EXPECT_EQ(teamRowText(team("WasteRed", "WR", "waste/RED", "Red1 Red2 Red3 Red4 ")),
              QStringLiteral("\"WasteRed\"             \"WR\"             \"waste/RED\"          "
                             "[\"Red1\" \"Red2\" \"Red3\" \"Red4\" ]"));
    // The abbreviation gets the name's blanks whatever its own width; an empty
    // model/skin is the empty pair.
    EXPECT_EQ(teamRowText(team("Team", "ABCD", "", "")),
              "\"Team\"" + blanks(17) + "\"ABCD\"" + blanks(17) + "\"\"" + blanks(19) + "[]");
    // Members are what precedes each blank.
    EXPECT_EQ(teamRowText(team("T", "T", "m/s", "a b"))->section(QLatin1Char('['), 1), QStringLiteral("\"a\" ]"));
    EXPECT_EQ(teamRowText(team("T", "T", "m/s", "a  b "))->section(QLatin1Char('['), 1),
              QStringLiteral("\"a\" \"\" \"b\" ]"));
    EXPECT_TRUE(teamRowText(team("ABCDEFGHIJKLMNOPQRSTU", "T", "", "")));
    EXPECT_FALSE(teamRowText(team("ABCDEFGHIJKLMNOPQRSTUV", "T", "", "")));
}

TEST(BotsWriter, WholeFilesCarryTheirSectionsAndAClosingEmptyLine)
{
    const std::vector<BotRecord> bots = {bot("Amber", "crakhor/amber", 5, 3, 3, 7, 1, 0, 100)};
    EXPECT_EQ(botsFileForBots(bots, QStringLiteral("# t\r\n")),
              QByteArray("[bots]\r\n\"Amber\"          \"crakhor/amber\"      5 3 3 7 1 0 100\r\n"
                         "[teams]\r\n# t\r\n\r\n"));
    EXPECT_EQ(botsFileForBots({}, QString()), QByteArray("[bots]\r\n[teams]\r\n\r\n"));
    EXPECT_EQ(botsFileForTeams({}, {team("T", "T", "", "x ")}),
              ("[bots]\r\n[teams]\r\n\"T\"" + blanks(20) + "\"T\"" + blanks(20) + "\"\"" + blanks(19)
               + "[\"x\" ]\r\n\r\n")
                  .toLatin1());
    EXPECT_FALSE(botsFileForBots({bot("ABCDEFGHIJKLMNOP", "m/s", 1, 1, 1, 1, 1, 1, 1)}, QString()));
    EXPECT_FALSE(botsFileForTeams(bots, {team("ABCDEFGHIJKLMNOPQRSTUVW", "T", "", "")}));
    // 8-bit text: Latin-1 names go out as single bytes.
    EXPECT_TRUE(botsFileForBots({bot("J\xe9r\xf4me", "m/s", 1, 1, 1, 1, 1, 1, 1)}, QString())
                    ->contains("\"J\xe9r\xf4me\""));
}

TEST(BotsWriter, RoundTripsGiveBackTheRows)
{
    const std::vector<BotRecord> bots = {
        bot("Amber", "crakhor/amber", 5, 3, 3, 7, 1, 0, 100),
        bot("ABCDEFGHIJKLMNO", "averylongmodel/averylongskin", 1, 2, 3, 0, 0, 1, 32767),
        bot("J\xe9r\xf4me", "male/", 2, 2, 2, 9, 1, 1, 5),
        bot("Amber", "female/athena", 1, 1, 1, 1, 0, 0, 999),
    };
    const std::vector<TeamRecord> teams = {
        team("WasteRed", "WR", "waste/RED", "Red1 Red2 Red3 Red4 "),
        team("ABCDEFGHIJKLMNOPQRSTU", "", "", ""),
        team("Longskins", "LS", "averylongmodel/averylongskin", "Amber "),
    };
    const std::optional<QByteArray> teamFile = botsFileForTeams(bots, teams);
    ASSERT_TRUE(teamFile);
    const BotsSection b = ReadBotsSection(*teamFile);
    EXPECT_FALSE(b.rowFailed);
    EXPECT_EQ(b.rows, bots);
    const TeamsSection t = ReadTeamsSection(*teamFile);
    EXPECT_EQ(t.rows, teams);

    // SaveBots' layout keeps the teams part as text; each rewrite adds the
    // print's closing empty line to it, as the editors always did.
    const std::optional<QByteArray> botFile = botsFileForBots(bots, b.teamsText);
    ASSERT_TRUE(botFile);
    const BotsSection again = ReadBotsSection(*botFile);
    EXPECT_EQ(again.rows, bots);
    EXPECT_EQ(again.teamsText, b.teamsText + QStringLiteral("\r\n"));
    EXPECT_EQ(ReadTeamsSection(*botFile).rows, teams);
}

// Rows as the editors let them be made: names of up to 14 characters, team
// names of up to 20 and abbreviations of up to 3, any 8-bit character but
// the quotation mark, line ends, and (in member names) blanks.
TEST(BotsWriter, RandomRowsWithinTheEditorsLimitsRoundTrip)
{
    std::mt19937 random(4242);
    auto text = [&](int minLength, int maxLength, const QString& banned) {
        const int length = minLength + int(random() % unsigned(maxLength - minLength + 1));
        QString out;
        while (out.size() < length) {
            const QChar c(ushort(1 + random() % 255));
            if (c != QLatin1Char('"') && c != QLatin1Char('\r') && c != QLatin1Char('\n') && !banned.contains(c))
                out += c;
        }
        return out;
    };
    for (int round = 0; round < 200; ++round) {
        std::vector<BotRecord> bots;
        const int botRows = int(random() % 30);
        for (int i = 0; i < botRows; ++i) {
            BotRecord b;
            b.Name = text(0, 14, QString());
            b.ModelSkin = text(0, 12, QStringLiteral("/")) + QLatin1Char('/') + text(0, 24, QString());
            b.Accuracy = qint16(1 + random() % 5);
            b.Aggressiveness = qint16(1 + random() % 5);
            b.CombatSkills = qint16(1 + random() % 5);
            b.FavoriteWeapon = qint16(random() % 10);
            b.QuadFreak = qint16(random() % 2);
            b.Camper = qint16(random() % 2);
            b.Ping = qint16(1 + random() % 999);
            bots.push_back(b);
        }
        std::vector<TeamRecord> teams;
        const int teamRows = int(random() % 10);
        for (int i = 0; i < teamRows; ++i) {
            TeamRecord t{text(0, 20, QString()), text(0, 3, QString()), QString(), QString()};
            if (random() % 3)
                t.ModelSkin = text(1, 30, QString());
            const int members = int(random() % 5);
            for (int m = 0; m < members; ++m)
                t.Members += text(0, 14, QStringLiteral(" ")) + QLatin1Char(' ');
            teams.push_back(t);
        }
        const std::optional<QByteArray> file = botsFileForTeams(bots, teams);
        ASSERT_TRUE(file);
        const BotsSection b = ReadBotsSection(*file);
        ASSERT_FALSE(b.rowFailed) << round;
        EXPECT_EQ(b.rows, bots) << round;
        EXPECT_EQ(ReadTeamsSection(*file).rows, teams) << round;

        const std::optional<QByteArray> again = botsFileForBots(b.rows, b.teamsText);
        ASSERT_TRUE(again);
        EXPECT_EQ(ReadBotsSection(*again).rows, bots) << round;
        EXPECT_EQ(ReadTeamsSection(*again).rows, teams) << round;
    }
}

} // namespace
