// The wizard core's grammars, a table each: the game's command from the
// answers, its split into head and "asdf.cfg", and the location records.
#include "command/Composer.h"
#include "wizard/Locations.h"

#include <gtest/gtest.h>

#include <functional>

using namespace torvik;

namespace {

const QString kDefault = QStringLiteral(
    "/games/q2/quake2 +set game gorvan  +set deathmatch 1\r\n+set teamplay 0\r\n+set skill 0\r\n+set view_weapons 0\r\n"
    "+set cheats 0\r\n+set bot_chat 1\r\n+set bot_auto_skill 0\r\n+set bot_allow_client_commands 1\r\n"
    "+set bot_show_connect_info 1\r\n+set bot_calc_nodes 0\r\n+set dmflags 0\r\n+set mapmod_random 0\r\n"
    "+set bot_tarzan 0\r\n+set allow_download 0\r\n+map q2dm1");

// Each row changes the default answers and names a block of lines the
// command must hold and words it mustn't. The scenarios walk the common
// commands through the pages; these are the corners.
TEST(Composer, Commands)
{
    struct Row {
        const char* what;
        std::function<void(ComposerInput&)> change;
        QString block;
        QStringList absent;
    };
    const Row rows[] = {
        {"defaults", [](ComposerInput&) {}, kDefault, {"rate", "bot_num", "+sv"}},
        {"dedicated, then the ticked custom options",
         [](ComposerInput& in) {
             in.dedicated = true;
             in.customOptions = {{true, "set gravity{}400{}1:Low Gravity"}, {false, "set sv_x{}1{}0:Off"},
                                 {true, "alias go{}\"+attack\"{}0:Go"}};
         },
         "/games/q2/quake2 +set dedicated 1 +set game gorvan  +set deathmatch 1\r\n+set gravity 400\r\n"
         "+alias go \"+attack\"\r\n+set teamplay 0",
         {"sv_x"}},
        {"team game with only the own team",
         [](ComposerInput& in) {
             in.gameTypeCode = "DMT"; in.ownTeam = "Red"; in.teamRows = {"Blue", "Red"}; in.teamSelected = {false, true};
         },
         "+set teamplay 1\r\n", {"+cmd join", "+sv teams"}},
        {"bots by hand, none chosen",
         [](ComposerInput& in) { in.specificBots = true; in.selectedBots = {"Alpha"}; }, "+map q2dm1", {"+sv"}},
        {"CTF teams by hand, only a blue list",
         [](ComposerInput& in) {
             in.gameTypeCode = "CTF"; in.specificBots = true; in.selectedCount = "2"; in.specificTeams = true;
             in.blueBots = {"Alpha", "Bravo"}; in.teamChoice = 2;
         },
         "+map q2dm1 \r\n+sv bluebots Alpha Bravo\r\n+cmd team blue", {"redbots"}},
    };
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what);
        ComposerInput in;
        in.quake2Location = "/games/q2/quake2";
        in.modShortName = "gorvan";
        in.map = "q2dm1";
        in.randomBotCount = "0";
        in.selectedCount = "0";
        in.dmflags = {{4, true}, {5, true}, {6, true}, {19, true}};
        r.change(in);
        const QString command = composeCommandLine(in);
        EXPECT_TRUE(command.contains(r.block)) << command.toStdString();
        for (const QString& word : r.absent)
            EXPECT_FALSE(command.contains(word)) << word.toStdString();
    }
}

// The cut falls behind "deathmatch 1" (one further for a dedicated server);
// the rest loses the "+" that lead its tokens, but not those inside quotes
// or behind an alias.
TEST(Composer, Split)
{
    const struct {
        QString command;
        bool dedicated;
        QString head, config;
    } rows[] = {
        {"/q2/quake2 +set dedicated 1 +set game gorvan  +set deathmatch 1\r\n+set teamplay 0", true,
         "/q2/quake2 +set dedicated 1 +set game gorvan  +set deathmatch 1", "set teamplay 0"},
        {"q2 +set game g +set deathmatch 1\r\n+set name \"A+B\"\r\n+alias go +attack\r\n+set x 1", false,
         "q2 +set game g +set deathmatch 1",
         "\nset name \"A+B\"\r\nalias go +attack\r\nset x 1"},
        // Only the last two letters of "alias" need to stand together.
        {"q2 +set game g +set deathmatch 1\r\n+a_l_i_as +x +y", false, "q2 +set game g +set deathmatch 1",
         "\na_l_i_as +x y"},
        // An edited head without "deathmatch 1" still passes, cut twelve
        // characters in; a plus in the path shifts the head's end.
        {"/q2/quake2 +set game gorvan\r\n+map q2dm1", false, "/q2/quake2 +s", "et game gorvan\r\nmap q2dm1"},
        {"/q+2/quake2 +set game gorvan  +set deathmatch 1\r\n+map x", false, "/q+2/quake2 +set game gorvan  +set deathmatch ",
         "\nmap x"},
    };
    for (const auto& r : rows) {
        const SplitCommand s = splitCommandLine(r.command, r.dedicated);
        EXPECT_TRUE(s.ok) << r.command.toStdString();
        EXPECT_EQ(s.launchHead.toStdString(), r.head.toStdString());
        EXPECT_EQ(s.config.toStdString(), r.config.toStdString());
    }
}

// Anything but one quoted value counts as a missing file.
TEST(Locations, Records)
{
    const std::pair<QByteArray, QString> rows[] = {
        {"\"/games/quake 2/quake2\"\r\n", "/games/quake 2/quake2"},
        {"\"/q2/quake2\"", "/q2/quake2"},
        {"\"/q2/quake2\"\n", "/q2/quake2"},
        {"", ""},
        {"\"\"\r\n", ""},
        {"/q2/quake2\r\n", ""},
        {"\"/q2/qua", ""},
        {QByteArray("\"/q2\0x\"", 7), ""},
        {"\"/q2\r\nquake2\"\r\n", ""},
    };
    for (const auto& [bytes, value] : rows)
        EXPECT_EQ(parseLocationRecord(bytes), value) << bytes.toStdString();
    EXPECT_EQ(locationRecord("/a b/GAMEX86.DLL"), QByteArray("\"/a b/GAMEX86.DLL\"\r\n"));
}

} // namespace
