// The rule of every number box: what a typed or pasted text turns into.
#include "pages/NumericBox.h"

#include <gtest/gtest.h>

using pages::NumericRule;

namespace {

TEST(NumericBox, Rule)
{
    QString maxPlayers;
    const QStringList zeros = {"000", "00"};
    const NumericRule frag{0, [] { return 500.0; }, "0", zeros};
    const NumericRule lag{1, [] { return 999.0; }, "1", {"0000", "000", "00"}};
    const NumericRule ctfTeam{0, [] { return 50.0; }, "1", zeros};
    // The bound of special teams is the max players box at the moment of typing.
    const NumericRule special{0, [&] { return pages::leadingValue(maxPlayers); }, "1", zeros};
    const struct {
        const NumericRule& rule;
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
        EXPECT_EQ(pages::validateNumeric(r.typed, r.rule), r.shown) << r.typed.toStdString();
    }
}

} // namespace
