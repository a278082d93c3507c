#include "command/Composer.h"

#include <gtest/gtest.h>

using torvik::splitHead;

namespace {

TEST(LaunchHead, GamePathWithBlanksStaysOneWord)
{
    EXPECT_EQ(splitHead(QStringLiteral("/games/quake 2/quake2 +set game gorvan  +set deathmatch 1 +exec asdf.cfg "),
                        QStringLiteral("/games/quake 2/quake2")),
              (QStringList{QStringLiteral("/games/quake 2/quake2"), QStringLiteral("+set"), QStringLiteral("game"),
                           QStringLiteral("gorvan"), QStringLiteral("+set"), QStringLiteral("deathmatch"),
                           QStringLiteral("1"), QStringLiteral("+exec"), QStringLiteral("asdf.cfg")}));
}

TEST(LaunchHead, QuotesGroupWordsAndAreTakenOff)
{
    EXPECT_EQ(splitHead(QStringLiteral("\"/my games/q2\" +set name \"Big Bob\" +x \"\""), QStringLiteral("/other")),
              (QStringList{QStringLiteral("/my games/q2"), QStringLiteral("+set"), QStringLiteral("name"),
                           QStringLiteral("Big Bob"), QStringLiteral("+x"), QString()}));
}

TEST(LaunchHead, AnEditedHeadThatNoLongerStartsWithTheGameIsSplitPlainly)
{
    EXPECT_EQ(splitHead(QStringLiteral("/q2/quake2x +set a"), QStringLiteral("/q2/quake2")),
              (QStringList{QStringLiteral("/q2/quake2x"), QStringLiteral("+set"), QStringLiteral("a")}));
    EXPECT_TRUE(splitHead(QStringLiteral("   "), QStringLiteral("/q2/quake2")).isEmpty());
}

} // namespace
