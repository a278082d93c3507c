// The catalogue and the two map trees, built from hand-made game folders.
#include "PakBuilder.h"
#include "maps/MapCatalogue.h"
#include "maps/MapTree.h"

#include <QDir>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace torvik;
using namespace mapstest;

namespace {

QStringList categoryTexts(const MapTree& tree)
{
    QStringList texts;
    for (const MapTreeCategory& c : tree.categories)
        texts << c.text;
    return texts;
}

QStringList mapsBelow(const MapTree& tree, const QString& key)
{
    const MapTreeCategory* c = tree.category(key);
    return c ? c->maps : QStringList();
}

QList<MapCatalogueEntry> catalogueRows()
{
    QList<MapCatalogueEntry> rows;
    for (int i = 1; i <= MapCatalogueCount; ++i)
        rows << MapCatalogue[i];
    return rows;
}

QStringList catalogueNames()
{
    QStringList names;
    for (const MapCatalogueEntry& e : catalogueRows())
        names << e.MapName;
    return names;
}

QList<QByteArray> numberedMaps(int count, const char* prefix)
{
    QList<QByteArray> names;
    for (int i = 0; i < count; ++i)
        names << QByteArray(prefix) + QByteArray::number(i).rightJustified(4, '0');
    return names;
}

class MapsTreeFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        game = dir.path() + QStringLiteral("/quake2");
        base = game + QStringLiteral("/baseq2");
        maps = base + QStringLiteral("/maps");
        mod = game + QStringLiteral("/gorvan");
        ASSERT_TRUE(QDir().mkpath(maps));
        ASSERT_TRUE(QDir().mkpath(mod));
        resetMapCatalogue();
        NoInternalPakMaps = 0;
        NoGorvanPakMaps = 0;
    }
    void loose(const QString& fileName) { writeBytes(maps + QLatin1Char('/') + fileName, "IBSP"); }

    QTemporaryDir dir;
    QString game, base, maps, mod;
};

// --- the stock maps and the catalogue's rows ---

TEST(MapsBuiltIn, FortyDistinctStockMapsComparedUpperCased)
{
    ASSERT_EQ(BuiltInMaps.size(), 40u);
    QSet<QString> seen;
    for (const BuiltInMap& m : BuiltInMaps) {
        const QString shown = QString::fromLatin1(m.displayed);
        EXPECT_EQ(QString::fromLatin1(m.compared), shown.toUpper());
        EXPECT_FALSE(seen.contains(shown.toUpper())) << m.displayed;
        seen.insert(shown.toUpper());
        EXPECT_TRUE(isBuiltInMap(shown));
        EXPECT_TRUE(isBuiltInMap(shown.toLower()));
    }
    EXPECT_EQ(builtInMapNames().size(), 40);
    EXPECT_EQ(builtInMapNames().indexOf(QStringLiteral("Fact1")) + 1, builtInMapNames().indexOf(QStringLiteral("Fact2")));
    EXPECT_TRUE(isBuiltInMap(QStringLiteral("bAsE1")));
    EXPECT_FALSE(isBuiltInMap(QStringLiteral("base10")));
    EXPECT_FALSE(isBuiltInMap(QStringLiteral(" base1")));
    EXPECT_FALSE(isBuiltInMap(QString()));
}

TEST(MapsCatalogue, StopsAtItsLastRowAndKeepsTheRowsItHas)
{
    resetMapCatalogue();
    for (int i = 1; i <= MapCatalogueLastRow; ++i)
        ASSERT_TRUE(storeMapCatalogueRow(QStringLiteral("m%1").arg(i), i, QStringLiteral("/p.pak")));
    EXPECT_EQ(MapCatalogueCount, MapCatalogueLastRow);
    EXPECT_FALSE(storeMapCatalogueRow(QStringLiteral("one too many"), 1, QStringLiteral("/p.pak")));
    EXPECT_EQ(MapCatalogueCount, MapCatalogueLastRow);
    EXPECT_EQ(MapCatalogue[MapCatalogueLastRow].MapName, QStringLiteral("m1000"));
    EXPECT_TRUE(MapCatalogue[0].MapName.isEmpty());
    resetMapCatalogue();
    EXPECT_EQ(MapCatalogueCount, 0);
    EXPECT_TRUE(MapCatalogue[1].MapName.isEmpty());
    EXPECT_TRUE(storeMapCatalogueRow(QStringLiteral("again"), 0, QString()));
}

// --- the starting map page's tree ---

TEST_F(MapsTreeFixture, StockPakOnlyIsCataloguedButItsCategoryGoes)
{
    QList<QByteArray> stock;
    for (const BuiltInMap& m : BuiltInMaps)
        stock << QByteArray(m.displayed).toLower();
    PakBuilder b;
    for (const QByteArray& n : stock)
        b.add("maps/" + n + ".bsp", "IBSP" + n);
    writeBytes(base + "/pak0.pak", b.build());
    writeBytes(mod + "/pak0.pak", mapsPak({"gorvan_pit"}));
    loose(QStringLiteral("mine.bsp"));

    MapTree tree;
    const MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    ASSERT_TRUE(r.ok()) << r.detail.toStdString();
    EXPECT_EQ(NoInternalPakMaps, 1);
    EXPECT_EQ(NoGorvanPakMaps, 0);
    EXPECT_EQ(categoryTexts(tree), (QStringList{kInternalMapsText, kGorvanPakMapsText, kExternalMapsText}));
    EXPECT_EQ(mapsBelow(tree, kInternalMapsKey), builtInMapNames());
    EXPECT_EQ(mapsBelow(tree, kGorvanPakMapsKey), QStringList{"gorvan_pit"});
    EXPECT_EQ(mapsBelow(tree, kExternalMapsKey), QStringList{"mine"});

    // 40 stock rows, then the mod's map, then the loose one.
    ASSERT_EQ(MapCatalogueCount, 42);
    const MapCatalogueEntry& base1 = MapCatalogue[1];
    EXPECT_EQ(base1.MapName, QStringLiteral("base1"));
    EXPECT_EQ(base1.SourceFile, base + "/pak0.pak");
    // The position leads to the member's data inside the archive.
    EXPECT_EQ(readBytes(base + "/pak0.pak").mid(base1.FilePosition, 9), QByteArray("IBSPbase1"));
    EXPECT_EQ(MapCatalogue[41].SourceFile, mod + "/pak0.pak");
    EXPECT_EQ(MapCatalogue[42].MapName, QStringLiteral("mine"));
    EXPECT_EQ(MapCatalogue[42].FilePosition, 0);
    EXPECT_EQ(MapCatalogue[42].SourceFile, maps + "/mine.bsp");
}

TEST_F(MapsTreeFixture, SameMapInTwoPaksShowsTwiceAndStockNamesInAnyCaseAreHidden)
{
    writeBytes(base + "/pak0.pak", mapsPak({"q2dm1", "bAsE1", "BASE2"}));
    writeBytes(base + "/pak1.pak", mapsPak({"q2dm1", "q2dm9"}));
    writeBytes(mod + "/pak0.pak", mapsPak({"q2dm1"}));
    loose(QStringLiteral("q2dm1.bsp"));
    loose(QStringLiteral("base1.bsp"));

    MapTree tree;
    ASSERT_TRUE(buildMultiplayerMapTree(game, mod, tree).ok());
    EXPECT_EQ(mapsBelow(tree, kBaseq2PakMapsKey), (QStringList{"q2dm1", "q2dm1", "q2dm9"}));
    EXPECT_EQ(mapsBelow(tree, kGorvanPakMapsKey), QStringList{"q2dm1"});
    // Loose maps aren't compared with anything, a stock name included.
    EXPECT_EQ(mapsBelow(tree, kExternalMapsKey), (QStringList{"base1", "q2dm1"}));
    EXPECT_EQ(catalogueNames(),
              (QStringList{"q2dm1", "bAsE1", "BASE2", "q2dm1", "q2dm9", "q2dm1", "base1", "q2dm1"}));
    const QList<MapCatalogueEntry> rows = catalogueRows();
    EXPECT_EQ(rows[0].SourceFile, base + "/pak0.pak");
    EXPECT_EQ(rows[3].SourceFile, base + "/pak1.pak");
    EXPECT_EQ(NoInternalPakMaps, 0);
    EXPECT_EQ(NoGorvanPakMaps, 0);
}

TEST_F(MapsTreeFixture, EmptyCategoriesGoByPosition)
{
    struct Case {
        bool basePak, baseShown, modPak, modShown, looseMap;
        QStringList categories;
    };
    const QList<Case> cases = {
        {false, false, false, false, false, {kInternalMapsText}},
        {false, false, true, false, false, {kInternalMapsText}},
        {true, false, true, false, true, {kInternalMapsText, kExternalMapsText}},
        {false, false, true, true, false, {kInternalMapsText, kGorvanPakMapsText}},
        {true, true, false, false, false, {kInternalMapsText, kBaseq2PakMapsText}},
        {true, true, true, false, true, {kInternalMapsText, kBaseq2PakMapsText, kExternalMapsText}},
        {true, false, true, true, true, {kInternalMapsText, kGorvanPakMapsText, kExternalMapsText}},
        {true, true, true, true, false, {kInternalMapsText, kBaseq2PakMapsText, kGorvanPakMapsText}},
    };
    int n = 0;
    for (const Case& c : cases) {
        SCOPED_TRACE(n++);
        QDir(base).removeRecursively();
        QDir(mod).removeRecursively();
        ASSERT_TRUE(QDir().mkpath(maps));
        ASSERT_TRUE(QDir().mkpath(mod));
        if (c.basePak)
            writeBytes(base + "/pak0.pak", mapsPak({c.baseShown ? "q2dm1" : "base1"}));
        if (c.modPak)
            writeBytes(mod + "/pak0.pak", mapsPak({c.modShown ? "gorvan_pit" : "city1"}));
        if (c.looseMap)
            loose(QStringLiteral("loose.bsp"));
        MapTree tree;
        ASSERT_TRUE(buildMultiplayerMapTree(game, mod, tree).ok());
        EXPECT_EQ(categoryTexts(tree), c.categories);
        EXPECT_EQ(NoInternalPakMaps, c.baseShown ? 0 : 1);
        EXPECT_EQ(NoGorvanPakMaps, c.modShown ? 0 : 1);
        EXPECT_EQ(mapsBelow(tree, kInternalMapsKey).size(), 40);
    }
}

TEST_F(MapsTreeFixture, FoldersAreFoundWithoutRegardToCase)
{
    QDir(base).removeRecursively();
    const QString windowsBase = game + QStringLiteral("/BaseQ2");
    writeBytes(windowsBase + "/PAK0.PAK", mapsPak({"q2dm1"}));
    writeBytes(windowsBase + "/Maps/Loft.BSP", "IBSP");
    writeBytes(mod + "/Pak1.Pak", mapsPak({"gorvan_pit"}));
    MapTree tree;
    const MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    ASSERT_TRUE(r.ok()) << r.detail.toStdString();
    EXPECT_EQ(mapsBelow(tree, kBaseq2PakMapsKey), QStringList{"q2dm1"});
    EXPECT_EQ(mapsBelow(tree, kGorvanPakMapsKey), QStringList{"gorvan_pit"});
    EXPECT_EQ(mapsBelow(tree, kExternalMapsKey), QStringList{"Loft"});
    EXPECT_EQ(MapCatalogue[1].SourceFile, windowsBase + "/PAK0.PAK");
    EXPECT_EQ(MapCatalogue[3].SourceFile, windowsBase + "/Maps/Loft.BSP");
}

TEST_F(MapsTreeFixture, NoPakInBaseq2LeavesTheCatalogueAsItWas)
{
    // Rows from an earlier run stay; the mod's and the loose maps go behind them.
    storeMapCatalogueRow(QStringLiteral("earlier"), 7, QStringLiteral("/old.pak"));
    writeBytes(mod + "/pak0.pak", mapsPak({"gorvan_pit"}));
    loose(QStringLiteral("yard.bsp"));
    MapTree tree;
    ASSERT_TRUE(buildMultiplayerMapTree(game, mod, tree).ok());
    EXPECT_EQ(catalogueNames(), (QStringList{"earlier", "gorvan_pit", "yard"}));

    // With a PAK in baseq2 the catalogue starts afresh.
    writeBytes(base + "/pak0.pak", mapsPak({"q2dm1"}));
    ASSERT_TRUE(buildMultiplayerMapTree(game, mod, tree).ok());
    EXPECT_EQ(catalogueNames(), (QStringList{"q2dm1", "gorvan_pit", "yard"}));
}

TEST_F(MapsTreeFixture, FolderNamedLikeAPakIsNoPak)
{
    ASSERT_TRUE(QDir().mkpath(base + "/x.pak"));
    ASSERT_TRUE(QDir().mkpath(mod + "/y.PAK"));
    MapTree tree;
    const MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    ASSERT_TRUE(r.ok()) << r.detail.toStdString();
    EXPECT_EQ(categoryTexts(tree), QStringList{kInternalMapsText});
    EXPECT_EQ(NoInternalPakMaps, 1);
    EXPECT_EQ(NoGorvanPakMaps, 1);

    // A folder isn't listed, so the catalogue of an earlier run stays; an
    // empty file is a PAK without maps, and with a PAK listed the catalogue
    // starts afresh.
    storeMapCatalogueRow(QStringLiteral("earlier"), 7, QStringLiteral("/old.pak"));
    ASSERT_TRUE(buildMultiplayerMapTree(game, mod, tree).ok());
    EXPECT_EQ(catalogueNames(), QStringList{"earlier"});
    writeBytes(base + "/empty.pak", QByteArray());
    writeBytes(mod + "/empty.pak", QByteArray());
    const MapScanResult again = buildMultiplayerMapTree(game, mod, tree);
    ASSERT_TRUE(again.ok()) << again.detail.toStdString();
    EXPECT_EQ(categoryTexts(tree), QStringList{kInternalMapsText});
    EXPECT_EQ(MapCatalogueCount, 0);
}

TEST_F(MapsTreeFixture, MissingFoldersStopTheBuildWhereTheyAreMet)
{
    // No maps folder: the PAK categories are filled, "External Maps" waits
    // for the folder to be made.
    QDir(maps).removeRecursively();
    writeBytes(base + "/pak0.pak", mapsPak({"q2dm1"}));
    MapTree tree;
    MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    EXPECT_EQ(r.failure, MapScanFailure::FolderMissing);
    EXPECT_TRUE(r.detail.contains(maps)) << r.detail.toStdString();
    EXPECT_EQ(mapsBelow(tree, kBaseq2PakMapsKey), QStringList{"q2dm1"});
    EXPECT_EQ(categoryTexts(tree).size(), 3); // the mod's category went, "External Maps" stands
    EXPECT_EQ(catalogueNames(), QStringList{"q2dm1"});

    // No baseq2 at all: the four categories stand, only the stock maps below.
    QDir(base).removeRecursively();
    r = buildMultiplayerMapTree(game, mod, tree);
    EXPECT_EQ(r.failure, MapScanFailure::FolderMissing);
    EXPECT_EQ(categoryTexts(tree).size(), 4);
    EXPECT_EQ(tree.nodeCount(), 44);
}

TEST_F(MapsTreeFixture, ThousandMapsFitTheThousandAndFirstDoesNot)
{
    writeBytes(base + "/pak0.pak", mapsPak(numberedMaps(1000, "m")));
    MapTree tree;
    ASSERT_TRUE(buildMultiplayerMapTree(game, mod, tree).ok());
    EXPECT_EQ(MapCatalogueCount, 1000);

    // One more in a second PAK: the scan stops at that map.
    writeBytes(base + "/pak1.pak", mapsPak({"extra", "after"}));
    const MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    EXPECT_EQ(r.failure, MapScanFailure::CatalogueFull);
    EXPECT_TRUE(r.detail.contains(QStringLiteral("extra"))) << r.detail.toStdString();
    EXPECT_TRUE(r.detail.contains(base + "/pak1.pak")) << r.detail.toStdString();
    EXPECT_EQ(MapCatalogueCount, 1000);
    EXPECT_EQ(mapsBelow(tree, kBaseq2PakMapsKey).size(), 1000);
    EXPECT_FALSE(mapsBelow(tree, kBaseq2PakMapsKey).contains(QStringLiteral("extra")));
    // The scan ended there: the mod's category was never looked at.
    EXPECT_EQ(categoryTexts(tree).size(), 4);
}

TEST_F(MapsTreeFixture, LooseMapBeyondTheLimitIsShownButNotCatalogued)
{
    writeBytes(base + "/pak0.pak", mapsPak(numberedMaps(999, "m")));
    loose(QStringLiteral("a_fits.bsp"));
    loose(QStringLiteral("b_over.bsp"));
    loose(QStringLiteral("c_never.bsp"));
    MapTree tree;
    const MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    EXPECT_EQ(r.failure, MapScanFailure::CatalogueFull);
    EXPECT_EQ(MapCatalogueCount, 1000);
    EXPECT_EQ(MapCatalogue[1000].MapName, QStringLiteral("a_fits"));
    // The node comes before the row, so the map that didn't fit is in the tree.
    EXPECT_EQ(mapsBelow(tree, kExternalMapsKey), (QStringList{"a_fits", "b_over"}));
}

// --- node positions, as the random pick and "add all" see them ---

TEST(MapsTreeNodes, PositionsCountCategoriesFirstThenMapsInCategoryOrder)
{
    MapTree tree = mapTreeRoots();
    tree.addMap(kExternalMapsKey, QStringLiteral("e1"));
    tree.addMap(kBaseq2PakMapsKey, QStringLiteral("b1"));
    tree.addMap(kBaseq2PakMapsKey, QStringLiteral("b2"));
    EXPECT_FALSE(tree.addMap(QStringLiteral("nope"), QStringLiteral("x")));
    const QStringList expected{kInternalMapsText, kBaseq2PakMapsText, kGorvanPakMapsText, kExternalMapsText,
                               "b1", "b2", "e1"};
    EXPECT_EQ(tree.nodeTexts(), expected);
    ASSERT_EQ(tree.nodeCount(), expected.size());
    for (int i = 1; i <= tree.nodeCount(); ++i)
        EXPECT_EQ(tree.nodeText(i), expected[i - 1]);
    EXPECT_TRUE(tree.nodeText(0).isEmpty());
    EXPECT_TRUE(tree.nodeText(tree.nodeCount() + 1).isEmpty());

    tree.removeNode(6); // a map
    EXPECT_EQ(tree.nodeTexts().mid(4), (QStringList{"b1", "e1"}));
    tree.removeNode(2); // a category takes its maps along
    EXPECT_EQ(tree.nodeTexts(), (QStringList{kInternalMapsText, kGorvanPakMapsText, kExternalMapsText, "e1"}));
    tree.removeNode(99);
    tree.removeNode(0);
    EXPECT_EQ(tree.nodeCount(), 4);

    EXPECT_TRUE(isCategoryName(QStringLiteral("External Maps")));
    EXPECT_FALSE(isCategoryName(QStringLiteral("external maps")));
    EXPECT_EQ(categoryTexts(singlePlayerMapTree()), QStringList{kInternalMapsText});
    EXPECT_EQ(singlePlayerMapTree().nodeCount(), 41);
}

TEST(MapsRandomPick, DrawsAgainOnZeroAndCategoriesAndNeverReachesTheLastNode)
{
    const MapTree sp = singlePlayerMapTree(); // 41 nodes: the category, Base1 .. Boss2
    QList<double> draws{0.0, 0.02, 0.025, 0.9999};
    auto next = [&draws] { return draws.takeFirst(); };
    // 0 and 0.02 give node 0, 0.025 the category at node 1, 0.9999 node 40.
    EXPECT_EQ(sp.nodeText(pickRandomNode(sp, next)), QStringLiteral("Boss1"));
    EXPECT_TRUE(draws.isEmpty());

    // Whatever the source gives, node 41 ("Boss2") can't come out.
    QSet<QString> picked;
    for (int k = 0; k < 4100; ++k) {
        double f = k / 4100.0;
        const int r = pickRandomNode(sp, [&f] {
            const double v = f;
            f = 0.5; // a later draw, when the first one is refused
            return v;
        });
        ASSERT_GE(r, 2);
        ASSERT_LE(r, 40);
        picked.insert(sp.nodeText(r));
    }
    EXPECT_EQ(picked.size(), 39);
    EXPECT_FALSE(picked.contains(QStringLiteral("Boss2")));

    // A tree whose only map is its last node has nothing to pick.
    MapTree lone = mapTreeRoots();
    lone.addMap(kExternalMapsKey, QStringLiteral("only"));
    EXPECT_EQ(pickRandomNode(lone, [] { return 0.5; }), 0);
    EXPECT_EQ(pickRandomNode(MapTree{}, [] { return 0.5; }), 0);
    lone.addMap(kExternalMapsKey, QStringLiteral("last"));
    EXPECT_EQ(lone.nodeText(pickRandomNode(lone, [] { return 0.9; })), QStringLiteral("only"));
}

// --- the cycle editor's lists ---

TEST(MapsCheckMaps, StockMapsLeaveTheBaseq2ListAndTheScanStartsOver)
{
    QStringList one{"q2dm1", "base1", "BASE2", "q2dm2", "Jail5"};
    QStringList two{"base1", "zz", "zz"};
    QStringList three{"CITY1", "g", "g"};
    ASSERT_TRUE(mapeditor::CheckMaps(one, two, three));
    EXPECT_EQ(one, (QStringList{"q2dm1", "q2dm2"}));
    // Neither other list loses a stock name, nor its own duplicates.
    EXPECT_EQ(two, (QStringList{"base1", "zz", "zz"}));
    EXPECT_EQ(three, (QStringList{"CITY1", "g", "g"}));

    // Starting over revisits "a" after "b" took the loose list's row 0, so the
    // loose "a" has moved off the skipped index and goes.
    QStringList one2{"p", "a", "b", "base1"};
    QStringList two2{"b", "a"};
    QStringList three2;
    ASSERT_TRUE(mapeditor::CheckMaps(one2, two2, three2));
    EXPECT_EQ(one2, (QStringList{"p", "a", "b"}));
    EXPECT_TRUE(two2.isEmpty()) << two2.join(',').toStdString();
}

TEST(MapsCheckMaps, DuplicatesGoWithTheBaseq2ListFirstThenTheLooseMaps)
{
    QStringList one{"dm1", "DM1", "dm2"};
    QStringList two{"Dm2", "x", "loose"};
    QStringList three{"y", "z", "DM2", "LOOSE", "own"};
    ASSERT_TRUE(mapeditor::CheckMaps(one, two, three));
    EXPECT_EQ(one, (QStringList{"dm1", "dm2"}));
    EXPECT_EQ(two, (QStringList{"x", "loose"}));
    EXPECT_EQ(three, (QStringList{"y", "z", "own"}));
}

TEST(MapsCheckMaps, RowAtTheSameIndexInAnotherListIsSkipped)
{
    // The index of the baseq2 row is also skipped in the other lists.
    QStringList one{"p", "a"};
    QStringList two{"q", "a"};
    QStringList three{"r", "a", "a"};
    ASSERT_TRUE(mapeditor::CheckMaps(one, two, three));
    EXPECT_EQ(one, (QStringList{"p", "a"}));
    EXPECT_EQ(two, (QStringList{"q", "a"}));
    // Row 2 went; row 1 stays, and so does the loose "a" at index 1.
    EXPECT_EQ(three, (QStringList{"r", "a"}));

    QStringList one2;
    QStringList two2{"b", "c"};
    QStringList three2{"c", "b"};
    ASSERT_TRUE(mapeditor::CheckMaps(one2, two2, three2));
    EXPECT_TRUE(three2.isEmpty());
}

TEST(MapsCheckMaps, RemovingARowThatIsGoneFails)
{
    // A nameless map ("maps/.bsp") meets nameless loose ones: after one
    // removal the loop reads past the end, where rows are empty text too.
    QStringList one{""};
    QStringList two{"", "", "k"};
    QStringList three;
    EXPECT_FALSE(mapeditor::CheckMaps(one, two, three));
}

TEST(MapsEditorTree, EmptyListsDropTheirCategoriesByPosition)
{
    struct Case {
        QStringList one, two, three;
        QStringList categories;
    };
    const QList<Case> cases = {
        {{}, {}, {}, {kInternalMapsText}},
        {{"b"}, {}, {}, {kInternalMapsText, kBaseq2PakMapsText}},
        {{}, {}, {"g"}, {kInternalMapsText, kGorvanPakMapsText}},
        {{}, {"e"}, {}, {kInternalMapsText, kExternalMapsText}},
        {{"b"}, {"e"}, {}, {kInternalMapsText, kBaseq2PakMapsText, kExternalMapsText}},
        {{}, {"e"}, {"g"}, {kInternalMapsText, kGorvanPakMapsText, kExternalMapsText}},
        {{"b"}, {}, {"g"}, {kInternalMapsText, kBaseq2PakMapsText, kGorvanPakMapsText}},
    };
    for (const Case& c : cases) {
        MapTree tree = mapTreeRoots();
        LoadDef(tree);
        mapeditor::AddRestofNodes(tree, c.one, c.two, c.three);
        EXPECT_EQ(categoryTexts(tree), c.categories);
        EXPECT_EQ(mapsBelow(tree, kBaseq2PakMapsKey), c.one);
        EXPECT_EQ(mapsBelow(tree, kExternalMapsKey), c.two);
        EXPECT_EQ(mapsBelow(tree, kGorvanPakMapsKey), c.three);
    }
}

TEST_F(MapsTreeFixture, EditorShowsAMapOnceWhereTheStartPageShowsItTwice)
{
    writeBytes(base + "/pak0.pak", mapsPak({"q2dm1", "base1", "arena"}));
    writeBytes(base + "/pak1.pak", mapsPak({"Q2DM1", "x"}));
    writeBytes(mod + "/pak0.pak", mapsPak({"yard", "gorvan_pit", "arena"}));
    loose(QStringLiteral("yard.bsp"));
    loose(QStringLiteral("base2.bsp"));

    mapeditor::EditorMaps editor;
    const MapScanResult r = mapeditor::GetMaps(game, mod, editor);
    ASSERT_TRUE(r.ok()) << r.detail.toStdString();
    EXPECT_EQ(editor.List1, (QStringList{"q2dm1", "arena", "x"}));
    EXPECT_EQ(editor.List2, (QStringList{"base2", "yard"}));
    EXPECT_EQ(editor.List3, QStringList{"gorvan_pit"});
    EXPECT_EQ(mapsBelow(editor.tree, kBaseq2PakMapsKey), editor.List1);
    EXPECT_EQ(mapsBelow(editor.tree, kGorvanPakMapsKey), editor.List3);
    EXPECT_EQ(mapsBelow(editor.tree, kExternalMapsKey), editor.List2);
    EXPECT_EQ(mapsBelow(editor.tree, kInternalMapsKey), builtInMapNames());

    MapTree start;
    ASSERT_TRUE(buildMultiplayerMapTree(game, mod, start).ok());
    EXPECT_EQ(mapsBelow(start, kBaseq2PakMapsKey), (QStringList{"q2dm1", "arena", "Q2DM1", "x"}));
}

TEST_F(MapsTreeFixture, EditorFailuresCarryTheirTexts)
{
    // A nameless map and two nameless loose ones trip the duplicate check.
    writeBytes(base + "/pak0.pak", mapsPak({""}));
    loose(QStringLiteral(".bsp"));
    loose(QStringLiteral(".BSP"));
    loose(QStringLiteral("k.bsp"));
    mapeditor::EditorMaps editor;
    MapScanResult r = mapeditor::GetMaps(game, mod, editor);
    EXPECT_EQ(r.failure, MapScanFailure::DuplicateCheck);
    EXPECT_EQ(mapeditor::failureText(r), QStringLiteral("Couldn't check for duplicate map names."));

    // An entry of 64 bytes without a NUL.
    QByteArray bad = pakHeader(12, 64) + QByteArray(64, 'q');
    writeBytes(base + "/pak0.pak", bad);
    r = mapeditor::GetMaps(game, mod, editor);
    EXPECT_EQ(r.failure, MapScanFailure::NameWithoutEnd);
    EXPECT_EQ(mapeditor::failureText(r), QStringLiteral("Error getting maps! Ending Torvik"));

    QDir(maps).removeRecursively();
    writeBytes(base + "/pak0.pak", mapsPak({"fine"}));
    r = mapeditor::GetMaps(game, mod, editor);
    EXPECT_EQ(r.failure, MapScanFailure::FolderMissing);
    EXPECT_EQ(mapeditor::failureText(r), QStringLiteral("Error getting maps! Ending Torvik"));
    EXPECT_TRUE(mapeditor::failureText(MapScanResult{}).isEmpty());
}

} // namespace
