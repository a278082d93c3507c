// The maps' file grammars: the two PAK directory readers against archives
// made byte by byte, well formed, damaged and damaged at random; which
// categories of the starting map tree stand, found by their place; cycle
// files and titles.
#include "maps/MapCatalogue.h"
#include "maps/MapCycles.h"
#include "maps/MapTree.h"
#include "maps/PakDirectory.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <climits>
#include <random>

using namespace torvik;

namespace {

QByteArray le32(qint32 v)
{
    const auto u = quint32(v);
    const char bytes[] = {char(u), char(u >> 8), char(u >> 16), char(u >> 24)};
    return QByteArray(bytes, 4);
}

QByteArray header(qint32 dirOffset, qint32 dirLength, const QByteArray& signature = "PACK")
{
    return signature + le32(dirOffset) + le32(dirLength);
}

// A 64-byte entry: the name NUL-padded to 56 bytes (none at 56), position, length.
QByteArray entry(const QByteArray& name, qint32 position = 12, qint32 length = 4)
{
    return name.left(56) + QByteArray(56 - qMin<qsizetype>(56, name.size()), '\0') + le32(position) + le32(length);
}

// Laid out as the game's tools do: header, one "IBSP" of data, directory.
QByteArray pak(const QList<QByteArray>& names, const QByteArray& signature = "PACK")
{
    QByteArray dir;
    for (const QByteArray& n : names)
        dir += entry(n);
    return header(16, qint32(dir.size()), signature) + "IBSP" + dir;
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf(QLatin1Char('/'))));
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

QString write(const QTemporaryDir& dir, const QByteArray& bytes)
{
    static int n = 0;
    const QString path = dir.filePath(QStringLiteral("p%1.pak").arg(++n));
    EXPECT_TRUE(writeBytes(path, bytes));
    return path;
}

QStringList names(const PakMapScan& scan)
{
    QStringList out;
    for (const PakMap& m : scan.maps)
        out << m.MapName;
    return out;
}

using F = MapScanFailure;

TEST(MapsPak, Directories)
{
    struct Row {
        QString what;
        QByteArray bytes;
        QStringList catalogue;
        F catalogueFailure;
        QStringList editor;
        F editorFailure;
    };
    const QByteArray four = entry("maps/a.bsp") + entry("maps/b.bsp") + entry("maps/c.bsp") + entry("maps/d.bsp");
    const QByteArray full = pak({"maps/dm1.bsp"});
    const qint32 size = qint32(full.size());
    QList<QByteArray> many;
    QStringList manyNames;
    for (int i = 0; i < 3000; ++i) {
        many << "maps/m" + QByteArray::number(i) + ".bsp";
        manyNames << "m" + QString::number(i);
    }
    const QByteArray longName = "maps/" + QByteArray(51, 'L'); // with ".bsp" in its position bytes
    QList<Row> rows = {
        {"maps and other members", pak({"pics/colormap.pcx", "maps/dm1.bsp", "sound/hum.wav", "maps/sub/x.bsp", "maps/.bsp"}),
         {"dm1", "sub/x", ""}, F::None, {"dm1", "sub/x", ""}, F::None},
        {"only lower-case maps/ and .bsp",
         pak({"MAPS/DM1.BSP", "maps/dm1.BSP", "Maps/dm2.bsp", "maps/dm1.bsp.txt", "maps/dm3.bs", "maps", "mapsdm4.bsp",
              "xmaps/dm5.bsp", "maps/dm1.bsp"}),
         {"dm1"}, F::None, {"dm1"}, F::None},
        {"no signature check", pak({"maps/dm1.bsp"}, QByteArray(4, '\0')), {"dm1"}, F::None, {"dm1"}, F::None},
        {"8-bit names", pak({"maps/caf\xe9.bsp"}), {QString::fromLatin1("caf\xe9")}, F::None, {QString::fromLatin1("caf\xe9")}, F::None},
        {"a name filling its field", header(16, 192) + "IBSP" + entry("maps/first.bsp") + longName + ".bsp" + le32(0) + entry("maps/last.bsp"),
         {"first"}, F::NameWithoutEnd, {"first", QString(51, 'L'), "last"}, F::None},
        {"a long name outside maps/", header(16, 128) + "IBSP" + entry("textures/" + QByteArray(47, 't'), 0x01010101, 0x01010101) + entry("maps/ok.bsp"),
         {"ok"}, F::None, {}, F::NameWithoutEnd},
        {"the last entry cut off", pak({"maps/whole.bsp", "maps/cut.bsp"}).chopped(10), {"whole"}, F::None, {"whole"}, F::None},
        {"3000 entries, the largest length claimed", header(16, INT_MAX) + pak(many).mid(12), manyNames, F::None, manyNames, F::None},
        {"empty file", "", {}, F::None, {}, F::None},
        {"header only", header(12, 0), {}, F::None, {}, F::None},
        {"half a header", QByteArray("PACK\x0c\0\0\0", 8), {}, F::None, {}, F::None},
        // With no entry to read the directory's place is moot, but the
        // editor reads one even at length 0.
        {"directory before the start, length 0", header(-64, 0) + full.mid(12), {}, F::None, {}, F::BadDirectory},
        {"directory before the start, negative length", header(-64, -1) + full.mid(12), {}, F::None, {}, F::None},
    };
    // The catalogue takes entries starting before offset + length; the
    // editor also reads the one at offset + length.
    const QList<std::tuple<qint32, QStringList, QStringList>> lengths = {
        {192, {"a", "b", "c"}, {"a", "b", "c", "d"}}, {129, {"a", "b", "c"}, {"a", "b", "c"}},
        {128, {"a", "b"}, {"a", "b", "c"}},           {64, {"a"}, {"a", "b"}},
        {1, {"a"}, {"a"}},                            {0, {}, {"a"}},
        {-1, {}, {}},                                 {INT_MIN, {}, {}},
    };
    for (const auto& [length, catalogue, editor] : lengths)
        rows.append({QStringLiteral("directory length %1").arg(length), header(16, length) + "IBSP" + four, catalogue,
                     F::None, editor, F::None});
    for (const auto& [offset, length] : {std::pair{size, 64}, {size + 1000, 64}, {INT_MAX, INT_MAX}, {INT_MAX - 10, 640}})
        rows.append({QStringLiteral("directory at %1 past the end").arg(offset), header(offset, length) + full.mid(12), {},
                     F::None, {}, F::None});
    for (const qint32 offset : {-1, -64, INT_MIN})
        rows.append({QStringLiteral("directory at %1").arg(offset), header(offset, 128) + full.mid(12), {},
                     F::BadDirectory, {}, F::BadDirectory});

    QTemporaryDir dir;
    for (const Row& r : rows) {
        SCOPED_TRACE(r.what.toStdString());
        const QString path = write(dir, r.bytes);
        const PakMapScan catalogue = readCatalogueMaps(path);
        const PakMapScan editor = readEditorMaps(path);
        EXPECT_EQ(names(catalogue), r.catalogue);
        EXPECT_EQ(catalogue.result.failure, r.catalogueFailure);
        EXPECT_EQ(names(editor), r.editor);
        EXPECT_EQ(editor.result.failure, r.editorFailure);
        // A failure names the archive, for the one who has to fix it.
        if (!catalogue.result.ok()) {
            EXPECT_TRUE(catalogue.result.detail.contains(path)) << catalogue.result.detail.toStdString();
        }
    }
    // The catalogue keeps where each map's data lies.
    const PakMapScan positions = readCatalogueMaps(write(dir, pak({"maps/a.bsp"})));
    ASSERT_EQ(positions.maps.size(), 1);
    EXPECT_EQ(positions.maps[0].FilePosition, 12);
    // A folder under a PAK's name, or no file at all.
    ASSERT_TRUE(QDir(dir.path()).mkdir("x.pak"));
    for (const QString& path : {dir.filePath("x.pak"), dir.filePath("gone.pak")}) {
        EXPECT_EQ(readCatalogueMaps(path).result.failure, F::CannotRead);
        EXPECT_EQ(readEditorMaps(path).result.failure, F::CannotRead);
    }
}

// Archives damaged at random: both readers finish, find no more maps than
// the file has entries, and name the archive when they refuse it.
TEST(MapsPak, DamagedArchivesAtRandom)
{
    QList<QByteArray> members;
    for (int i = 0; i < 20; ++i)
        members << "maps/m" + QByteArray::number(i) + ".bsp";
    const QByteArray good = pak(members);
    std::mt19937 random(99);
    QTemporaryDir dir;
    for (int round = 0; round < 500; ++round) {
        QByteArray bytes = good;
        for (int e = int(1 + random() % 8); e > 0; --e) {
            const int at = random() % 2 ? int(random() % 12) : int(random() % bytes.size());
            bytes[at] = char(random() % 3 ? random() : 0);
        }
        if (round % 5 == 0)
            bytes.truncate(int(random() % bytes.size()));
        const QString path = write(dir, bytes);
        for (const PakMapScan& scan : {readCatalogueMaps(path), readEditorMaps(path)}) {
            EXPECT_LE(scan.maps.size(), bytes.size() / 64 + 1) << round;
            if (!scan.result.ok()) {
                EXPECT_TRUE(scan.result.detail.contains(path)) << round;
            }
        }
        QFile::remove(path);
    }
}

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
        // Names keep the file system's bytes; a file written on Windows reads as Latin-1.
        {"na\xc3\xafve\r\n", {QStringLiteral("na\u00efve")}},
        {"caf\xe9\r\n", {QString::fromLatin1("caf\xe9")}},
    };
    for (const auto& [bytes, maps] : files) {
        EXPECT_EQ(parseMapCycle(bytes), maps) << bytes.toStdString();
        if (!maps.isEmpty()) {
            EXPECT_EQ(parseMapCycle(mapCycleText(maps)), maps);
        }
    }
    EXPECT_EQ(mapCycleText({"q2dm1", QStringLiteral("na\u00efve")}), QByteArray("q2dm1\r\nna\xc3\xafve\r\n\r\n"));

    using C = CycleTitleCheck;
    const std::pair<QString, C> titles[] = {
        {QString(15, 'x'), C::Ok},     {QString(16, 'x'), C::TooLong}, {"", C::Empty},
        {"CTF 1 (night)", C::Ok},      {"Maps.txt", C::Ok},            {"1v1: DM?", C::Ok},
        {"a\\b <x>|*\"", C::Ok},       {"a/b", C::BadCharacter},       {"../up", C::BadCharacter},
        {QString("nul") + QChar(0), C::BadCharacter},
        // Too long is what the user hears first.
        {QString(16, '/'), C::TooLong},
    };
    for (const auto& [title, check] : titles)
        EXPECT_EQ(checkCycleTitle(title), check) << title.toStdString();
}

} // namespace
