// The two PAK directory readers against hand-made archives, well-formed and
// damaged.
#include "PakBuilder.h"
#include "maps/PakDirectory.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <climits>

using namespace torvik;
using namespace mapstest;

namespace {

QStringList namesOf(const PakMapScan& scan)
{
    QStringList names;
    for (const PakMap& m : scan.maps)
        names << m.MapName;
    return names;
}

class MapsPakReader : public ::testing::Test {
protected:
    QString pak(const QByteArray& bytes, const QString& name = QStringLiteral("test.pak"))
    {
        const QString path = dir.path() + QLatin1Char('/') + name;
        writeBytes(path, bytes);
        return path;
    }
    QTemporaryDir dir;
};

TEST_F(MapsPakReader, FindsMapsWithTheirPositionsInDirectoryOrder)
{
    PakBuilder b;
    b.add("pics/colormap.pcx", "PCXDATA")
        .add("maps/dm1.bsp", "IBSP-dm1-data")
        .add("sound/hum.wav", "RIFF")
        .add("maps/sub/x.bsp", "IBSP-sub")
        .add("maps/.bsp", "IBSP-empty")
        .add("maps/q2ctf1.bsp", "IBSP-ctf");
    const QString path = pak(b.build());

    const PakMapScan scan = readCatalogueMaps(path);
    ASSERT_TRUE(scan.result.ok()) << scan.result.detail.toStdString();
    // A map in a subfolder keeps its folder; "maps/.bsp" is a map with no name.
    EXPECT_EQ(namesOf(scan), (QStringList{"dm1", "sub/x", "", "q2ctf1"}));
    ASSERT_EQ(scan.maps.size(), 4);
    EXPECT_EQ(scan.maps[0].FilePosition, b.positions()[1]);
    EXPECT_EQ(scan.maps[1].FilePosition, b.positions()[3]);
    EXPECT_EQ(scan.maps[3].FilePosition, b.positions()[5]);

    const PakMapScan editor = readEditorMaps(path);
    ASSERT_TRUE(editor.result.ok()) << editor.result.detail.toStdString();
    EXPECT_EQ(namesOf(editor), namesOf(scan));
}

TEST_F(MapsPakReader, OnlyLowerCaseMapsFolderAndBspSuffixCount)
{
    PakBuilder b;
    b.add("MAPS/DM1.BSP").add("maps/dm1.BSP").add("Maps/dm2.bsp").add("maps/dm1.bsp.txt").add("maps/readme.txt")
        .add("maps/dm3.bs").add("maps").add("mapsdm4.bsp").add("xmaps/dm5.bsp").add("maps/dm1.bsp");
    const QString path = pak(b.build());
    for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
        ASSERT_TRUE(scan.result.ok()) << scan.result.detail.toStdString();
        EXPECT_EQ(namesOf(scan), QStringList{"dm1"});
    }
}

TEST_F(MapsPakReader, SignatureIsNeverChecked)
{
    for (const QByteArray& sig : {QByteArray("PACK"), QByteArray("ZIP!"), QByteArray("\0\0\0\0", 4)}) {
        PakBuilder b;
        b.signature(sig).add("maps/dm1.bsp");
        const QString path = pak(b.build());
        EXPECT_EQ(namesOf(readCatalogueMaps(path)), QStringList{"dm1"}) << sig.toHex().toStdString();
        EXPECT_EQ(namesOf(readEditorMaps(path)), QStringList{"dm1"}) << sig.toHex().toStdString();
    }
}

TEST_F(MapsPakReader, NamesAreEightBitText)
{
    PakBuilder b;
    b.add("maps/caf\xe9.bsp");
    const PakMapScan scan = readCatalogueMaps(pak(b.build()));
    EXPECT_EQ(namesOf(scan), QStringList{QString::fromLatin1("caf\xe9")});
}

// The catalogue walks entries starting before dirOffset + dirLength; the
// editor also reads the one at dirOffset + dirLength. Three entries lie on
// disk, the header claims various lengths.
TEST_F(MapsPakReader, DirectoryLengthBoundsDifferBetweenTheReaders)
{
    QByteArray dir = dirEntry("maps/a.bsp", 12, 4) + dirEntry("maps/b.bsp", 12, 4) + dirEntry("maps/c.bsp", 12, 4);
    // Something behind the directory, so the editor's extra read finds a
    // whole entry and not the end of the file.
    const QByteArray tail = dirEntry("maps/d.bsp", 12, 4);
    struct Case {
        qint32 length;
        QStringList catalogue;
        QStringList editor;
    };
    const QList<Case> cases = {
        {192, {"a", "b", "c"}, {"a", "b", "c", "d"}},
        {129, {"a", "b", "c"}, {"a", "b", "c"}},
        {128, {"a", "b"}, {"a", "b", "c"}},
        {127, {"a", "b"}, {"a", "b"}},
        {64, {"a"}, {"a", "b"}},
        {1, {"a"}, {"a"}},
        {0, {}, {"a"}},
        {-1, {}, {}},
        {-64, {}, {}},
        {INT_MIN, {}, {}},
    };
    for (const Case& c : cases) {
        const QString path = pak(pakHeader(16, c.length) + QByteArray("IBSP") + dir + tail);
        const PakMapScan catalogue = readCatalogueMaps(path);
        const PakMapScan editor = readEditorMaps(path);
        EXPECT_TRUE(catalogue.result.ok()) << c.length;
        EXPECT_TRUE(editor.result.ok()) << c.length;
        EXPECT_EQ(namesOf(catalogue), c.catalogue) << "dirLength " << c.length;
        EXPECT_EQ(namesOf(editor), c.editor) << "dirLength " << c.length;
    }
}

TEST_F(MapsPakReader, EditorsExtraReadAtTheEndOfTheFileFindsNothing)
{
    PakBuilder b;
    b.add("maps/q2dm1.bsp").add("maps/q2dm2.bsp");
    const QByteArray bytes = b.build();
    // Directory at the very end, as usual: the read behind it is past the end.
    const PakMapScan editor = readEditorMaps(pak(bytes));
    ASSERT_TRUE(editor.result.ok()) << editor.result.detail.toStdString();
    EXPECT_EQ(namesOf(editor), (QStringList{"q2dm1", "q2dm2"}));
    // Some bytes behind the directory, too few for an entry: still nothing.
    const PakMapScan shortTail = readEditorMaps(pak(bytes + QByteArray(63, 'z')));
    ASSERT_TRUE(shortTail.result.ok()) << shortTail.result.detail.toStdString();
    EXPECT_EQ(namesOf(shortTail), (QStringList{"q2dm1", "q2dm2"}));
}

TEST_F(MapsPakReader, NameFillingAllItsBytes)
{
    // 56 name bytes without a NUL, whose position bytes happen to read ".bsp"
    // and whose length ends the text: the editor reads on into them.
    const QByteArray longName = "maps/" + QByteArray(51, 'L');
    QByteArray full = longName;
    full += ".bsp";
    full += QByteArray(4, '\0');
    ASSERT_EQ(full.size(), 64);
    const QByteArray before = dirEntry("maps/first.bsp", 12, 4);
    const QByteArray after = dirEntry("maps/last.bsp", 12, 4);
    const QByteArray body = pakHeader(16, 3 * 64) + QByteArray("IBSP") + before + full + after;
    const QString path = pak(body);

    const PakMapScan catalogue = readCatalogueMaps(path);
    EXPECT_EQ(catalogue.result.failure, MapScanFailure::NameWithoutEnd);
    EXPECT_TRUE(catalogue.result.detail.contains(path)) << catalogue.result.detail.toStdString();
    EXPECT_TRUE(catalogue.result.detail.contains(QStringLiteral("entry 2"))) << catalogue.result.detail.toStdString();
    EXPECT_EQ(namesOf(catalogue), QStringList{"first"}); // what came before the damage

    const PakMapScan editor = readEditorMaps(path);
    ASSERT_TRUE(editor.result.ok()) << editor.result.detail.toStdString();
    EXPECT_EQ(namesOf(editor), (QStringList{"first", QString::fromLatin1(QByteArray(51, 'L')), "last"}));
}

TEST_F(MapsPakReader, NameWithoutNulOutsideTheMapsFolderIsNoDamage)
{
    // The catalogue only cuts names that begin with "maps/".
    const QByteArray texture = QByteArray("textures/") + QByteArray(47, 't');
    ASSERT_EQ(texture.size(), 56);
    const QByteArray body = pakHeader(16, 2 * 64) + QByteArray("IBSP") + dirEntry(texture, 0x01010101, 0x01010101)
                            + dirEntry("maps/ok.bsp", 12, 4);
    const QString path = pak(body);
    const PakMapScan catalogue = readCatalogueMaps(path);
    ASSERT_TRUE(catalogue.result.ok()) << catalogue.result.detail.toStdString();
    EXPECT_EQ(namesOf(catalogue), QStringList{"ok"});
    // The editor cuts every entry; 64 bytes without a NUL stop it.
    const PakMapScan editor = readEditorMaps(path);
    EXPECT_EQ(editor.result.failure, MapScanFailure::NameWithoutEnd);
    EXPECT_TRUE(editor.result.detail.contains(path));
    EXPECT_TRUE(namesOf(editor).isEmpty());
}

TEST_F(MapsPakReader, DirectoryPastTheEndOfTheFileGivesNoMaps)
{
    PakBuilder b;
    b.add("maps/dm1.bsp");
    const QByteArray good = b.build();
    const qint32 size = qint32(good.size());
    const QList<QPair<qint32, qint32>> headers = {
        {size, 64},            // right at the end
        {size + 1000, 64},     // behind the end
        {INT_MAX, INT_MAX},    // both huge: the sum doesn't fit 32 bits
        {INT_MAX - 10, 640},
    };
    for (const auto& [offset, length] : headers) {
        const QString path = pak(pakHeader(offset, length) + good.mid(12));
        for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
            EXPECT_TRUE(scan.result.ok()) << offset << " " << length;
            EXPECT_TRUE(scan.maps.isEmpty()) << offset << " " << length;
        }
    }
}

TEST_F(MapsPakReader, HugeLengthReadsOnlyWhatTheFileHolds)
{
    PakBuilder b;
    for (int i = 0; i < 3000; ++i)
        b.add(QByteArray("maps/m") + QByteArray::number(i) + ".bsp", "");
    QByteArray bytes = b.build();
    // Claim the largest directory there can be.
    bytes.replace(8, 4, pakHeader(0, INT_MAX).mid(8, 4));
    const QString path = pak(bytes);
    const PakMapScan catalogue = readCatalogueMaps(path);
    const PakMapScan editor = readEditorMaps(path);
    // Bounded by the 3000 entries on disk, not by the 33 million claimed.
    ASSERT_TRUE(catalogue.result.ok()) << catalogue.result.detail.toStdString();
    ASSERT_TRUE(editor.result.ok()) << editor.result.detail.toStdString();
    EXPECT_EQ(catalogue.maps.size(), 3000);
    EXPECT_EQ(editor.maps.size(), 3000);
    EXPECT_EQ(catalogue.maps.last().MapName, QStringLiteral("m2999"));
}

TEST_F(MapsPakReader, EntryCutOffByTheEndOfTheFileGivesNothing)
{
    PakBuilder b;
    b.add("maps/whole.bsp").add("maps/cut.bsp");
    const QByteArray bytes = b.build();
    // The second entry loses its last bytes: its name is intact, but the
    // entry isn't whole.
    const QString path = pak(bytes.left(bytes.size() - 10));
    for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
        EXPECT_TRUE(scan.result.ok()) << scan.result.detail.toStdString();
        EXPECT_EQ(namesOf(scan), QStringList{"whole"});
    }
}

TEST_F(MapsPakReader, DirectoryBeforeTheStartOfTheFileIsRefused)
{
    PakBuilder b;
    b.add("maps/dm1.bsp");
    const QByteArray rest = b.build().mid(12);
    for (const qint32 offset : {-1, -64, INT_MIN}) {
        const QString path = pak(pakHeader(offset, 128) + rest);
        for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
            EXPECT_EQ(scan.result.failure, MapScanFailure::BadDirectory) << offset;
            EXPECT_TRUE(scan.result.detail.contains(path)) << scan.result.detail.toStdString();
            EXPECT_TRUE(scan.maps.isEmpty());
        }
    }
    // Without a single entry to read, where the directory would be is moot;
    // the editor reads one entry even at length 0.
    const QString empty = pak(pakHeader(-64, 0) + rest);
    EXPECT_TRUE(readCatalogueMaps(empty).result.ok());
    EXPECT_EQ(readEditorMaps(empty).result.failure, MapScanFailure::BadDirectory);
    const QString negative = pak(pakHeader(-64, -1) + rest);
    EXPECT_TRUE(readCatalogueMaps(negative).result.ok());
    EXPECT_TRUE(readEditorMaps(negative).result.ok());
}

TEST_F(MapsPakReader, EmptyAndShortFilesHaveNoMaps)
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("PACK"), QByteArray("PACK\x0c\0\0\0", 8), pakHeader(12, 0)}) {
        const QString path = pak(bytes);
        for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
            EXPECT_TRUE(scan.result.ok()) << bytes.toHex().toStdString();
            EXPECT_TRUE(scan.maps.isEmpty()) << bytes.toHex().toStdString();
        }
    }
}

TEST_F(MapsPakReader, FolderOrMissingFileIsAClearFailure)
{
    const QString folder = dir.path() + QStringLiteral("/x.pak");
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString missing = dir.path() + QStringLiteral("/gone.pak");
    for (const QString& path : {folder, missing}) {
        for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
            EXPECT_EQ(scan.result.failure, MapScanFailure::CannotRead) << path.toStdString();
            EXPECT_TRUE(scan.result.detail.contains(path)) << scan.result.detail.toStdString();
        }
    }
}

} // namespace
