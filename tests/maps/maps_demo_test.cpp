// The map scans and cycles over a generated demo install, in both spellings.
#include "PakBuilder.h"
#include "demo/DemoInstall.h"
#include "maps/MapCatalogue.h"
#include "maps/MapCycles.h"
#include "maps/MapTree.h"
#include "wizard/Globals.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace torvik;

namespace {

QStringList mapsBelow(const MapTree& tree, const QString& key)
{
    const MapTreeCategory* c = tree.category(key);
    return c ? c->maps : QStringList();
}

class MapsDemoInstall : public ::testing::TestWithParam<bool> {};

TEST_P(MapsDemoInstall, TreesCatalogueAndCycle)
{
    const bool mixed = GetParam();
    QTemporaryDir tmp;
    const QString root = tmp.path() + QStringLiteral("/demo");
    QString error;
    ASSERT_TRUE(demo::createDemoInstall(root, &error, demo::DemoOptions{mixed})) << error.toStdString();
    const QString game = root;
    const QString mod = demo::modFolder(root);
    const QString base = demo::baseFolder(root, demo::DemoOptions{mixed});
    ProgramFolder = tmp.path() + QStringLiteral("/torvik");
    ASSERT_TRUE(QDir().mkpath(ProgramFolder + QStringLiteral("/Saved")));
    Quake2Location = demo::gameExecutable(root);
    GorvanLocation = mod + QStringLiteral("/gamex86.dll");
    resetMapCatalogue();

    // The starting map page: stock maps in pak0 are hidden, "MAPS/LOUD.BSP"
    // and "maps/readme.txt" are no maps.
    MapTree tree;
    const MapScanResult r = buildMultiplayerMapTree(game, mod, tree);
    ASSERT_TRUE(r.ok()) << r.detail.toStdString();
    EXPECT_EQ(tree.categories.size(), 4);
    EXPECT_EQ(mapsBelow(tree, kBaseq2PakMapsKey), (QStringList{"q2dm1", "q2dm2", "q2ctf1", "demo_arena", "demo_canyon"}));
    EXPECT_EQ(mapsBelow(tree, kGorvanPakMapsKey), (QStringList{"gorvan_pit", "gorvan_spire"}));
    EXPECT_EQ(mapsBelow(tree, kExternalMapsKey),
              (QStringList{mixed ? "Demo_Loft" : "demo_loft", "demo_yard"}));

    // 8 maps in baseq2's pak0, 2 in pak1, 2 in the mod's PAK, 2 loose.
    ASSERT_EQ(MapCatalogueCount, 14);
    const QString pak0 = QDir(base).filePath(mixed ? QStringLiteral("PAK0.PAK") : QStringLiteral("pak0.pak"));
    bool sawBase1 = false;
    for (int i = 1; i <= MapCatalogueCount; ++i) {
        const MapCatalogueEntry& e = MapCatalogue[i];
        ASSERT_TRUE(QFileInfo(e.SourceFile).isFile()) << e.SourceFile.toStdString();
        // Every position leads to a BSP header, inside a PAK or at the start
        // of a loose file.
        QFile f(e.SourceFile);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        ASSERT_TRUE(f.seek(e.FilePosition));
        EXPECT_EQ(f.read(4), QByteArray("IBSP")) << e.MapName.toStdString();
        if (e.MapName == QLatin1String("base1")) {
            sawBase1 = true;
            EXPECT_EQ(e.SourceFile, pak0);
        }
    }
    EXPECT_TRUE(sawBase1);

    // The cycle editor finds the same maps: nothing occurs twice here.
    mapeditor::EditorMaps editor;
    const MapScanResult er = mapeditor::GetMaps(game, mod, editor);
    ASSERT_TRUE(er.ok()) << er.detail.toStdString();
    EXPECT_EQ(editor.List1, mapsBelow(tree, kBaseq2PakMapsKey));
    EXPECT_EQ(editor.List2, mapsBelow(tree, kExternalMapsKey));
    EXPECT_EQ(editor.List3, mapsBelow(tree, kGorvanPakMapsKey));
    EXPECT_EQ(editor.tree.nodeTexts(), tree.nodeTexts());

    // The mod's cycle, then a saved one put in force.
    const std::optional<QStringList> current = readCurrentMapCycle();
    ASSERT_TRUE(current.has_value());
    EXPECT_EQ(*current, (QStringList{"q2dm1", "demo_arena", "gorvan_pit", "demo_yard", "base1"}));
    const QString txt = currentCyclePath();
    EXPECT_EQ(QFileInfo(txt).fileName(), mixed ? QStringLiteral("Maps.TXT") : QStringLiteral("maps.txt"));
    const QByteArray before = mapstest::readBytes(txt);
    EXPECT_TRUE(FixMapCycle(kCurrentMapCycle));
    EXPECT_EQ(mapstest::readBytes(txt), before);
    ASSERT_TRUE(writeMapCycle(savedCyclePath(QStringLiteral("Duel")), {"demo_yard", "q2dm2"}));
    EXPECT_EQ(LoadMapCycles(), (QStringList{kCurrentMapCycle, "Duel"}));
    EXPECT_TRUE(FixMapCycle(QStringLiteral("Duel")));
    EXPECT_EQ(readCurrentMapCycle(), (QStringList{"demo_yard", "q2dm2"}));
    EXPECT_EQ(currentCyclePath(), txt);
}

INSTANTIATE_TEST_SUITE_P(MapsDemo, MapsDemoInstall, ::testing::Values(false, true),
                         [](const ::testing::TestParamInfo<bool>& info) {
                             return info.param ? std::string("MixedCase") : std::string("Plain");
                         });

} // namespace
