#include "command/Composer.h"

#include <gtest/gtest.h>

using namespace torvik;

namespace {

ComposerInput defaults()
{
    ComposerInput in;
    in.quake2Location = QStringLiteral("/games/q2/quake2");
    in.modShortName = QStringLiteral("gorvan");
    in.map = QStringLiteral("q2dm1");
    in.randomBotCount = QStringLiteral("0");
    in.selectedCount = QStringLiteral("0");
    in.dmflags = {{4, true}, {5, true}, {6, true}, {19, true}};
    return in;
}

TEST(Composer, DefaultDeathMatchCommand)
{
    EXPECT_EQ(composeCommandLine(defaults()),
              QStringLiteral("/games/q2/quake2 +set game gorvan  +set deathmatch 1\r\n"
                             "+set teamplay 0\r\n+set skill 0\r\n+set view_weapons 0\r\n+set cheats 0\r\n"
                             "+set bot_chat 1\r\n+set bot_auto_skill 0\r\n+set bot_allow_client_commands 1\r\n"
                             "+set bot_show_connect_info 1\r\n+set bot_calc_nodes 0\r\n+set dmflags 0\r\n"
                             "+set mapmod_random 0\r\n+set bot_tarzan 0\r\n+set allow_download 0\r\n+map q2dm1"));
}

TEST(Composer, DedicatedStandsBeforeTheGameAndCustomOptionsFollowDeathmatch)
{
    ComposerInput in = defaults();
    in.dedicated = true;
    in.customOptions = {{true, QStringLiteral("set gravity{}400{}1:Low Gravity")},
                        {false, QStringLiteral("set sv_x{}1{}0:Off")},
                        {true, QStringLiteral("alias go{}\"+attack\"{}0:Go")}};
    const QString c = composeCommandLine(in);
    EXPECT_TRUE(c.startsWith(QStringLiteral("/games/q2/quake2 +set dedicated 1 +set game gorvan  +set deathmatch 1\r\n"
                                            "+set gravity 400\r\n+alias go \"+attack\"\r\n+set teamplay 0")))
        << qPrintable(c);
}

TEST(Composer, CtfAutoTeamsDropMaxClientsRandomBotsAndTheSpecialTeams)
{
    ComposerInput in = defaults();
    in.gameTypeCode = QStringLiteral("CTF");
    in.maxPlayersOn = true;
    in.maxPlayers = QStringLiteral("16");
    in.randomBotCount = QStringLiteral("5");
    in.captureLimitOn = true;
    in.captureLimit = QStringLiteral("10");
    const QString without = composeCommandLine(in);
    EXPECT_TRUE(without.contains(QStringLiteral("+set maxclients 16")));
    EXPECT_TRUE(without.contains(QStringLiteral("+set bot_num 5")));
    EXPECT_TRUE(without.contains(QStringLiteral("+set capturelimit 10\r\n")));
    in.specialTeams = true;
    in.specialTeamsBots = QStringLiteral("2");
    in.humanOnlyTeams = true;
    EXPECT_TRUE(composeCommandLine(in).contains(
        QStringLiteral("+set ctf 1\r\n+set ctf_special_teams 2\r\n+set ctf_humanonly_teams 1\r\n")));
    in.ctfAutoTeams = true;
    in.ctfTeamSize = QStringLiteral("5");
    const QString with = composeCommandLine(in);
    EXPECT_FALSE(with.contains(QStringLiteral("maxclients")));
    EXPECT_FALSE(with.contains(QStringLiteral("bot_num")));
    EXPECT_TRUE(with.contains(QStringLiteral("+set ctf_auto_teams 5")));
    EXPECT_FALSE(with.contains(QStringLiteral("ctf_special_teams")));
    EXPECT_FALSE(with.contains(QStringLiteral("ctf_humanonly_teams")));
}

TEST(Composer, DmflagsSentReadFriendlyFireTheOtherWayFromTheTitle)
{
    DMFlagBoxes boxes{{4, true}, {5, true}, {6, true}, {19, true}};
    EXPECT_EQ(dmflagsForTitle(boxes, false), 256);
    EXPECT_EQ(dmflagsForGame(boxes, false), 0);
    boxes = {{4, false}, {5, false}, {6, false}, {19, false}, {13, true}};
    EXPECT_EQ(dmflagsForTitle(boxes, false), 2059);
    EXPECT_EQ(dmflagsForGame(boxes, false), 2315);
    DMFlagBoxes all;
    for (int b : {2, 3, 7, 8, 9, 10, 11, 12, 14, 16, 47, 27, 28, 29})
        all[b] = true;
    EXPECT_EQ(dmflagsForTitle(all, true), 983039);
    EXPECT_EQ(dmflagsForTitle(all, false), 983039 - 131072 - 262144 - 524288);
}

TEST(Composer, TeamGameJoinsOwnTeamBeforeTheEnemyTeams)
{
    ComposerInput in = defaults();
    in.gameTypeCode = QStringLiteral("DMT");
    in.playersPerTeam = QStringLiteral("4");
    in.ownTeam = QStringLiteral("Red");
    in.teamRows = {QStringLiteral("Blue"), QStringLiteral("Red"), QStringLiteral("Green")};
    in.teamSelected = {true, true, true};
    EXPECT_TRUE(composeCommandLine(in).endsWith(QStringLiteral("+map q2dm1\r\n+cmd join Red\r\n+sv teams Blue Green")));
    EXPECT_TRUE(composeCommandLine(in).contains(QStringLiteral("+set teamplay 1")));
    EXPECT_TRUE(composeCommandLine(in).contains(QStringLiteral("+set players_per_team 4")));
    in.teamSelected = {false, true, false};
    EXPECT_TRUE(composeCommandLine(in).endsWith(QStringLiteral("+map q2dm1")));
    in.teamSelected = {false, false, false};
    EXPECT_TRUE(composeCommandLine(in).endsWith(QStringLiteral("+map q2dm1")));
}

TEST(Composer, SpecificBotsAndCtfTeamChoice)
{
    ComposerInput in = defaults();
    in.specificBots = true;
    in.selectedCount = QStringLiteral("2");
    in.selectedBots = {QStringLiteral("Alpha"), QStringLiteral("Bravo")};
    EXPECT_TRUE(composeCommandLine(in).endsWith(QStringLiteral("+map q2dm1\r\n+sv bots Alpha Bravo")));

    in.gameTypeCode = QStringLiteral("CTF");
    in.specificTeams = true;
    in.redBots = {QStringLiteral("Alpha")};
    in.blueBots = {QStringLiteral("Bravo")};
    in.teamChoice = 2;
    EXPECT_TRUE(composeCommandLine(in).endsWith(
        QStringLiteral("\r\n+sv redbots Alpha \r\n+sv bluebots Bravo\r\n+cmd team blue")));

    in.selectedCount = QStringLiteral("0");
    EXPECT_TRUE(composeCommandLine(in).endsWith(QStringLiteral("+map q2dm1")));
    in.specificBots = false;
    in.teamChoice = 1;
    EXPECT_TRUE(composeCommandLine(in).endsWith(QStringLiteral("+map q2dm1\r\n+cmd team red")));
}

TEST(Composer, RateDownloadsAndConnect)
{
    ComposerInput in = defaults();
    in.rateText = QStringLiteral("Duel ISDN");
    in.rateIndex = 5;
    in.downloads = true;
    in.downloadSounds = false;
    in.connect = true;
    in.address[0] = QStringLiteral("192");
    in.address[1] = QStringLiteral("168");
    in.address[2] = QStringLiteral("0");
    in.address[3] = QStringLiteral("7");
    const QString c = composeCommandLine(in);
    EXPECT_TRUE(c.contains(QStringLiteral("+set rate 10000\r\n")));
    EXPECT_TRUE(c.contains(QStringLiteral("+set allow_download 1\r\n+set allow_download_maps 1\r\n"
                                          "+set allow_download_models 1\r\n+set allow_download_sounds 0\r\n"
                                          "+set allow_download_players 1\r\n+set connect \"192.168.0.7\"\r\n+map")));
    in.rateIndex = 0;
    EXPECT_FALSE(composeCommandLine(in).contains(QStringLiteral("+set rate")));
}

TEST(Split, HeadEndsAtDeathmatchAndTheRestLosesLeadingPlusSigns)
{
    const SplitCommand s = splitCommandLine(composeCommandLine(defaults()), false);
    ASSERT_TRUE(s.ok);
    EXPECT_EQ(s.launchHead, QStringLiteral("/games/q2/quake2 +set game gorvan  +set deathmatch 1"));
    EXPECT_TRUE(s.config.startsWith(QStringLiteral("\nset teamplay 0\r\nset skill 0\r\n")));
    EXPECT_TRUE(s.config.endsWith(QStringLiteral("\r\nmap q2dm1")));
    EXPECT_FALSE(s.config.contains(QLatin1Char('+')));
}

TEST(Split, DedicatedShiftsTheCutByOne)
{
    ComposerInput in = defaults();
    in.dedicated = true;
    const SplitCommand s = splitCommandLine(composeCommandLine(in), true);
    EXPECT_EQ(s.launchHead, QStringLiteral("/games/q2/quake2 +set dedicated 1 +set game gorvan  +set deathmatch 1"));
    EXPECT_TRUE(s.config.startsWith(QStringLiteral("set teamplay 0\r\n")));
}

TEST(Split, QuotedPlusAndAliasPlusStay)
{
    const QString text = QStringLiteral("q2 +set deathmatch 1\r\n+set name \"A+B\"\r\n+alias go +attack\r\n+set x 1");
    const SplitCommand s = splitCommandLine(text, false);
    EXPECT_EQ(s.config, QStringLiteral("\nset name \"A+B\"\r\nalias go +attack\r\nset x 1"));
    // The letters of "alias" need not stand together, only the last two.
    const SplitCommand loose = splitCommandLine(QStringLiteral("q2 +set deathmatch 1\r\n+a_l_i_as +x +y"), false);
    EXPECT_EQ(loose.config, QStringLiteral("\na_l_i_as +x y"));
}

TEST(Split, AnEditedHeadWithoutDeathmatchStillPassesAndAPlusInThePathShiftsTheCut)
{
    const SplitCommand none = splitCommandLine(QStringLiteral("/q2/quake2 +set game gorvan\r\n+map q2dm1"), false);
    ASSERT_TRUE(none.ok);
    EXPECT_EQ(none.launchHead, QStringLiteral("/q2/quake2 +s"));
    const SplitCommand plus = splitCommandLine(QStringLiteral("/q+2/quake2 +set game gorvan  +set deathmatch 1\r\n+map x"), false);
    EXPECT_EQ(plus.launchHead, QStringLiteral("/q+2/quake2 +set game gorvan  +set deathmatch "));
}

} // namespace
