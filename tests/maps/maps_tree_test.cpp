// Which categories of the starting map tree stand, found by their place; the
// cycle editor's duplicate check; the rules of cycle files and titles.
#include "PakBuilder.h"
#include "maps/MapCatalogue.h"
#include "maps/MapCycles.h"
#include "maps/MapTree.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace torvik;
using namespace mapstest;

namespace {

const QString I = kInternalMapsText, B = kBaseq2PakMapsText, G = kGorvanPakMapsText, E = kExternalMapsText;

QStringList categories(const MapTree& tree)
{
    QStringList texts;
    for (const MapTreeCategory& c : tree.categories)
        texts << c.text;
    return texts;
}

// A category with nothing shown goes by its place, which depends on the
// categories dropped before it.
TEST(MapsTree, StartingMapPageCategories)
{
    const struct {
        bool basePak, baseShown, modPak, modShown, loose;
        QStringList categories;
    } rows[] = {
        {false, false, false, false, false, {I}},
        {false, false, true, false, false, {I}},
        {true, false, true, false, true, {I, E}},
        {false, false, true, true, false, {I, G}},
        {true, true, false, false, false, {I, B}},
        {true, true, true, false, true, {I, B, E}},
        {true, false, true, true, true, {I, G, E}},
        {true, true, true, true, false, {I, B, G}},
    };
    for (const auto& r : rows) {
        QTemporaryDir dir;
        const QString base = dir.path() + "/baseq2", mod = dir.path() + "/gorvan";
        QDir().mkpath(base + "/maps");
        QDir().mkpath(mod);
        // A stock map is catalogued but not shown.
        if (r.basePak)
            writeBytes(base + "/pak0.pak", pak({r.baseShown ? "maps/q2dm1.bsp" : "maps/base1.bsp"}));
        if (r.modPak)
            writeBytes(mod + "/pak0.pak", pak({r.modShown ? "maps/gorvan_pit.bsp" : "maps/city1.bsp"}));
        if (r.loose)
            writeBytes(base + "/maps/loose.bsp", "IBSP");
        resetMapCatalogue();
        MapTree tree;
        ASSERT_TRUE(buildMultiplayerMapTree(dir.path(), mod, tree).ok());
        EXPECT_EQ(categories(tree), r.categories);
        EXPECT_EQ(NoInternalPakMaps, r.baseShown ? 0 : 1);
        EXPECT_EQ(NoGorvanPakMaps, r.modShown ? 0 : 1);
        EXPECT_EQ(MapCatalogueCount, int(r.basePak) + int(r.modPak) + int(r.loose));
    }
}

// The editor's duplicate check: stock maps and duplicates leave the baseq2
// list, starting the scan over; duplicates of the loose list go too; a row
// at the same index in another list is skipped; a removal of a row that is
// gone fails.
TEST(MapsTree, DuplicateCheck)
{
    const struct {
        QStringList one, two, three;
        bool ok;
        QStringList oneAfter, twoAfter, threeAfter;
    } rows[] = {
        {{"q2dm1", "base1", "BASE2", "q2dm2", "Jail5"}, {"base1", "zz", "zz"}, {"CITY1", "g", "g"}, true,
         {"q2dm1", "q2dm2"}, {"base1", "zz", "zz"}, {"CITY1", "g", "g"}},
        {{"p", "a", "b", "base1"}, {"b", "a"}, {}, true, {"p", "a", "b"}, {}, {}},
        {{"dm1", "DM1", "dm2"}, {"Dm2", "x", "loose"}, {"y", "z", "DM2", "LOOSE", "own"}, true, {"dm1", "dm2"},
         {"x", "loose"}, {"y", "z", "own"}},
        {{"p", "a"}, {"q", "a"}, {"r", "a", "a"}, true, {"p", "a"}, {"q", "a"}, {"r", "a"}},
        {{}, {"b", "c"}, {"c", "b"}, true, {}, {"b", "c"}, {}},
        {{""}, {"", "", "k"}, {}, false, {}, {}, {}},
    };
    for (auto r : rows) {
        const bool ok = mapeditor::CheckMaps(r.one, r.two, r.three);
        EXPECT_EQ(ok, r.ok);
        if (ok) {
            EXPECT_EQ(r.one, r.oneAfter);
            EXPECT_EQ(r.two, r.twoAfter);
            EXPECT_EQ(r.three, r.threeAfter);
        }
    }
}

TEST(MapsCycles, FilesAndTitles)
{
    const std::pair<QByteArray, QStringList> files[] = {
        {"q2dm1\r\nbase1\r\n\r\n", {"q2dm1", "base1"}},
        {"\r\n\r\na\r\n\r\n\r\nb", {"a", "b"}},
        {"  \r\n\tx \r\n", {"  ", "\tx "}},
        {"a\nb\n", {"a", "b"}},
        {"a\rb\r", {"a", "b"}},
        {"dup\r\ndup\r\n", {"dup", "dup"}},
        {"", {}},
        {"caf\xe9\r\n", {QString::fromLatin1("caf\xe9")}},
    };
    for (const auto& [bytes, maps] : files) {
        EXPECT_EQ(parseMapCycle(bytes), maps) << bytes.toStdString();
        if (!maps.isEmpty()) {
            EXPECT_EQ(parseMapCycle(mapCycleText(maps)), maps);
        }
    }
    EXPECT_EQ(mapCycleText({"q2dm1", QString::fromLatin1("caf\xe9")}), QByteArray("q2dm1\r\ncaf\xe9\r\n\r\n"));

    using C = CycleTitleCheck;
    const std::pair<QString, C> titles[] = {
        {QString(15, 'x'), C::Ok},     {QString(16, 'x'), C::TooLong}, {"", C::Empty},
        {"CTF 1 (night)", C::Ok},      {"Maps.txt", C::Ok},            {"a/b", C::BadCharacter},
        {"a\\b", C::BadCharacter},     {"c:x", C::BadCharacter},       {"what?", C::BadCharacter},
        {"*", C::BadCharacter},        {"\"q\"", C::BadCharacter},     {"<x>", C::BadCharacter},
        {"a|b", C::BadCharacter},      {"tab\there", C::BadCharacter}, {QString("nul") + QChar(0), C::BadCharacter},
        // Too long is what the user hears first.
        {QString(16, '/'), C::TooLong},
    };
    for (const auto& [title, check] : titles)
        EXPECT_EQ(checkCycleTitle(title), check) << title.toStdString();
}

} // namespace
