#include "platform/Timer.h"

#include <QObject>
#include <QStringList>
#include <gtest/gtest.h>

namespace {

struct ManualClock : ::testing::Test {
    void SetUp() override { platform::Timer::useManualClock(true); }
    void TearDown() override { platform::Timer::useManualClock(false); }
};

TEST_F(ManualClock, FiresDueTimersInOrderOfDueTime)
{
    QObject owner;
    QStringList fired;
    auto* slow = new platform::Timer(&owner, 1500, true);
    auto* fast = new platform::Timer(&owner, 20, true);
    QObject::connect(slow, &platform::Timer::timeout, [&] { fired << QStringLiteral("slow"); });
    QObject::connect(fast, &platform::Timer::timeout, [&] {
        fired << QStringLiteral("fast");
        fast->setEnabled(false);
    });
    platform::Timer::advance(19);
    EXPECT_TRUE(fired.isEmpty());
    platform::Timer::advance(1);
    EXPECT_EQ(fired, QStringList{QStringLiteral("fast")});
    platform::Timer::advance(3000);
    EXPECT_EQ(fired, (QStringList{QStringLiteral("fast"), QStringLiteral("slow"), QStringLiteral("slow")}));
}

TEST_F(ManualClock, EnablingRestartsTheCountdownAndDisabledTimersStayQuiet)
{
    QObject owner;
    int count = 0;
    auto* t = new platform::Timer(&owner, 100, false);
    QObject::connect(t, &platform::Timer::timeout, [&] { ++count; });
    platform::Timer::advance(500);
    EXPECT_EQ(count, 0);
    t->setEnabled(true);
    platform::Timer::advance(60);
    t->setEnabled(true); // counts 100 ms from here again
    platform::Timer::advance(60);
    EXPECT_EQ(count, 0);
    platform::Timer::advance(40);
    EXPECT_EQ(count, 1);
}

TEST_F(ManualClock, ATimerEnabledByAnotherFiresInTheSameAdvance)
{
    QObject owner;
    QStringList fired;
    auto* first = new platform::Timer(&owner, 20, true);
    auto* second = new platform::Timer(&owner, 1, false);
    QObject::connect(first, &platform::Timer::timeout, [&] {
        first->setEnabled(false);
        second->setEnabled(true);
        fired << QStringLiteral("first");
    });
    QObject::connect(second, &platform::Timer::timeout, [&] {
        second->setEnabled(false);
        fired << QStringLiteral("second");
    });
    platform::Timer::advance(25);
    EXPECT_EQ(fired, (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
}

} // namespace
