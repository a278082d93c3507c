#include "pages/NumericBox.h"

#include <gtest/gtest.h>

using pages::NumericRule;
using pages::validateNumeric;

namespace {

NumericRule rule(double lower, double upper, const char* reset, QStringList zeros)
{
    return {lower, [upper] { return upper; }, QString::fromLatin1(reset), zeros};
}

const QStringList z2 = {QStringLiteral("000"), QStringLiteral("00")};

TEST(NumericBox, BoundsAndResetTexts)
{
    const NumericRule frag = rule(0, 500, "0", z2);
    EXPECT_EQ(validateNumeric(QStringLiteral("500"), frag), QStringLiteral("500"));
    EXPECT_EQ(validateNumeric(QStringLiteral("501"), frag), QStringLiteral("0"));
    EXPECT_EQ(validateNumeric(QStringLiteral("0"), frag), QStringLiteral("0"));
    EXPECT_EQ(validateNumeric(QStringLiteral("00"), frag), QStringLiteral("0"));
    EXPECT_EQ(validateNumeric(QString(), frag), QString());
    EXPECT_EQ(validateNumeric(QStringLiteral("x"), frag), QStringLiteral("0"));

    const NumericRule lag = rule(1, 999, "1", {QStringLiteral("0000"), QStringLiteral("000"), QStringLiteral("00")});
    EXPECT_EQ(validateNumeric(QStringLiteral("0"), lag), QStringLiteral("1"));
    EXPECT_EQ(validateNumeric(QStringLiteral("1000"), lag), QStringLiteral("1"));
    EXPECT_EQ(validateNumeric(QStringLiteral("999"), lag), QStringLiteral("999"));

    const NumericRule ctfTeam = rule(0, 50, "1", z2);
    EXPECT_EQ(validateNumeric(QStringLiteral("0"), ctfTeam), QStringLiteral("0"));
    EXPECT_EQ(validateNumeric(QStringLiteral("00"), ctfTeam), QStringLiteral("1"));
}

TEST(NumericBox, SignsAndDecimalPointsAtTheEndsAreThrownAway)
{
    const NumericRule frag = rule(0, 500, "0", z2);
    for (const char* t : {"-5", "+5", "5.", ".5", "-", "+", "."})
        EXPECT_EQ(validateNumeric(QString::fromLatin1(t), frag), QStringLiteral("0")) << t;
    EXPECT_EQ(validateNumeric(QStringLiteral("1.5"), frag), QStringLiteral("1.5"));
}

TEST(NumericBox, ExponentFormsAreNumbersComparedByValue)
{
    const NumericRule frag = rule(0, 500, "0", z2);
    EXPECT_EQ(validateNumeric(QStringLiteral("1e2"), frag), QStringLiteral("1e2"));
    EXPECT_EQ(validateNumeric(QStringLiteral("1e3"), frag), QStringLiteral("0"));
    EXPECT_TRUE(pages::isNumericText(QStringLiteral("&H1F")));
    EXPECT_FALSE(pages::isNumericText(QStringLiteral("1e")));
}

TEST(NumericBox, SpecialTeamsBoundFollowsMaxPlayersEvenWhenEmpty)
{
    QString maxPlayers;
    const NumericRule special{0, [&] { return pages::leadingValue(maxPlayers); }, QStringLiteral("1"), z2};
    EXPECT_EQ(validateNumeric(QStringLiteral("3"), special), QStringLiteral("1"));
    EXPECT_EQ(validateNumeric(QStringLiteral("0"), special), QStringLiteral("0"));
    // The reset text passes on its second round, though it is above the bound.
    EXPECT_EQ(validateNumeric(QStringLiteral("1"), special), QStringLiteral("1"));
    maxPlayers = QStringLiteral("8");
    EXPECT_EQ(validateNumeric(QStringLiteral("3"), special), QStringLiteral("3"));
}

} // namespace
