// The tree control of both map pages: what it shows is the tree it was given,
// and reading it back gives that tree, positions and keys included.
#include "Doubles.h"
#include "maps/MapInfo.h"
#include "maps/MapTree.h"
#include "maps/MapTreeView.h"

#include <QTreeWidget>
#include <gtest/gtest.h>

using namespace torvik;

namespace {

TEST(MapsTreeView, ShowsTheTreeAndReadsItBackWithKeysAndPositions)
{
    harness::ensureApplication();
    MapTree tree = mapTreeRoots();
    LoadDef(tree);
    tree.addMap(kGorvanPakMapsKey, QStringLiteral("gorvan_pit"));
    tree.addMap(kExternalMapsKey, QStringLiteral(""));
    tree.addMap(kExternalMapsKey, QStringLiteral("External Maps"));
    tree.removeNode(2);

    QTreeWidget view;
    showMapTree(&view, tree);
    ASSERT_EQ(view.topLevelItemCount(), 3);
    EXPECT_EQ(view.topLevelItem(1)->text(0), kGorvanPakMapsText);
    EXPECT_EQ(view.topLevelItem(0)->childCount(), 40);
    EXPECT_FALSE(view.topLevelItem(0)->isExpanded());

    const MapTree back = mapTreeOf(&view);
    EXPECT_EQ(back.nodeTexts(), tree.nodeTexts());
    ASSERT_NE(back.category(kExternalMapsKey), nullptr);
    EXPECT_EQ(back.category(kExternalMapsKey)->maps, (QStringList{"", "External Maps"}));
    EXPECT_EQ(back.category(kBaseq2PakMapsKey), nullptr);

    // A second showing replaces the first.
    showMapTree(&view, singlePlayerMapTree());
    EXPECT_EQ(mapTreeOf(&view).nodeTexts(), singlePlayerMapTree().nodeTexts());
}

TEST(MapsTreeView, ImagesTwoThreeFourAndTheExpandedImage)
{
    harness::ensureApplication();
    const QIcon category = mapTreeImage(CategoryImage);
    const QIcon map = mapTreeImage(MapImage);
    const QIcon expanded = mapTreeImage(ExpandedImage);
    for (const QIcon& icon : {category, map, expanded})
        ASSERT_FALSE(icon.isNull());
    const auto image = [](const QIcon& icon) { return icon.pixmap(16, 16).toImage(); };
    EXPECT_NE(image(category), image(map));
    EXPECT_NE(image(category), image(expanded));
    EXPECT_TRUE(mapTreeImage(1).isNull());

    QTreeWidget view;
    QString selected;
    connectMapTree(&view, &selected, [](const QString&) {});
    showMapTree(&view, singlePlayerMapTree());
    QTreeWidgetItem* root = view.topLevelItem(0);
    EXPECT_EQ(image(root->icon(0)), image(category));
    EXPECT_EQ(image(root->child(0)->icon(0)), image(map));
    view.expandItem(root);
    EXPECT_EQ(image(root->icon(0)), image(expanded));
    view.collapseItem(root);
    EXPECT_EQ(image(root->icon(0)), image(category));
}

TEST(MapsTreeView, MapInformationGoesToTheHookForMapsOnly)
{
    QStringList shown;
    setMapInfoOpener([&shown](QWidget*) { shown << InfoMapName; });
    InfoMapName.clear();
    showMapInfoFor(QString(), nullptr);
    showMapInfoFor(kExternalMapsText, nullptr);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_TRUE(InfoMapName.isEmpty());
    showMapInfoFor(QStringLiteral("q2dm1"), nullptr);
    EXPECT_EQ(shown, QStringList{"q2dm1"});
    setMapInfoOpener(nullptr);
    showMapInfoFor(QStringLiteral("q2dm2"), nullptr);
    EXPECT_EQ(InfoMapName, QStringLiteral("q2dm2"));
    EXPECT_EQ(shown.size(), 1);
}

TEST(MapsTreeNodes, CategoriesByNameAndTheNodesBelowAPosition)
{
    EXPECT_EQ(categoryPosition(kInternalMapsText), 1);
    EXPECT_EQ(categoryPosition(kBaseq2PakMapsText), 2);
    EXPECT_EQ(categoryPosition(kGorvanPakMapsText), 3);
    EXPECT_EQ(categoryPosition(kExternalMapsText), 4);
    EXPECT_EQ(categoryPosition(QStringLiteral("external maps")), 0);
    EXPECT_EQ(categoryPosition(QStringLiteral("q2dm1")), 0);
    EXPECT_EQ(categoryPosition(QString()), 0);

    MapTree tree = mapTreeRoots();
    LoadDef(tree);
    tree.addMap(kExternalMapsKey, QStringLiteral("loose"));
    tree.removeNode(2);
    // Place 3 now holds "External Maps", place 4 the first stock map.
    EXPECT_EQ(tree.childrenOf(categoryPosition(kGorvanPakMapsText)), QStringList{"loose"});
    EXPECT_TRUE(tree.childrenOf(categoryPosition(kExternalMapsText)).isEmpty());
    EXPECT_EQ(tree.nodeText(4), QStringLiteral("Base1"));
    EXPECT_EQ(tree.childrenOf(1).size(), 40);
    EXPECT_TRUE(tree.childrenOf(0).isEmpty());
    EXPECT_TRUE(tree.childrenOf(99).isEmpty());
}

} // namespace
