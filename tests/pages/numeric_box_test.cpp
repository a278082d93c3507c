// The rule of every number box: what a typed or pasted text turns into.
#include "platform/NumericBox.h"

#include <gtest/gtest.h>

using platform::NumericRule;

namespace {

TEST(NumericBox, Rule)
{
    QString maxPlayers;
    const QStringList zeros = {"000", "00"};
    const platform::NumericRule frag{0, [] { return 500.0; }, "0", zeros};
    const platform::NumericRule lag{1, [] { return 999.0; }, "1", {"0000", "000", "00"}};
    const platform::NumericRule ctfTeam{0, [] { return 50.0; }, "1", zeros};
    // The bound of special teams is the max players box at the moment of typing.
    const platform::NumericRule special{0, [&] { return platform::leadingValue(maxPlayers); }, "1", zeros};
    const struct {
        const platform::NumericRule& rule;
        QString players, typed, shown;
    } rows[] = {
        {frag, "", "500", "500"},   {frag, "", "501", "0"},     {frag, "", "0", "0"},     {frag, "", "00", "0"},
        {frag, "", "", ""},         {frag, "", "x", "0"},       {frag, "", "1.5", "1.5"}, {frag, "", "1e2", "1e2"},
        {frag, "", "1e3", "0"},     {frag, "", "&H1F", "&H1F"}, {frag, "", "1e", "0"},
        // Signs and points at the ends are thrown away.
        {frag, "", "-5", "0"},      {frag, "", "+5", "0"},      {frag, "", "5.", "0"},    {frag, "", ".5", "0"},
        {frag, "", "-", "0"},       {lag, "", "0", "1"},        {lag, "", "1000", "1"},   {lag, "", "999", "999"},
        {ctfTeam, "", "0", "0"},    {ctfTeam, "", "00", "1"},   {special, "", "3", "1"},  {special, "", "0", "0"},
        // The reset text passes its second round, though above the bound.
        {special, "", "1", "1"},    {special, "8", "3", "3"},   {special, "8", "9", "1"},
    };
    for (const auto& r : rows) {
        maxPlayers = r.players;
        EXPECT_EQ(platform::validateNumeric(r.typed, r.rule), r.shown) << r.typed.toStdString();
    }
}

} // namespace
