// Map titles from BSP bytes and MapInfo.dat's records, from tables and from random bytes.
#include "demo/DemoInstall.h"
#include "maps/BspTitle.h"
#include "maps/MapInfoFile.h"

#include <gtest/gtest.h>

#include <random>

using namespace torvik;
using namespace std::literals;

namespace {

std::optional<std::string> titleOf(const QByteArray& bsp) { return bsp::mapTitle(std::string_view(bsp.constData(), bsp.size())); }

QByteArray mapWithEntities(std::string_view text, std::optional<qint32> length = {})
{
    const QByteArray entities(text.data(), qsizetype(text.size()));
    QByteArray header("IBSP\x26\0\0\0", 8);
    for (qint32 v : {qint32(16), length.value_or(qint32(entities.size()))})
        header.append(reinterpret_cast<const char*>(&v), 4);
    return header + entities;
}

QByteArray randomBytes(std::mt19937& rng, int most)
{
    QByteArray out(std::uniform_int_distribution<int>(0, most)(rng), '\0');
    for (char& c : out)
        c = char(rng());
    return out;
}

} // namespace

TEST(BspTitle, EntityTexts)
{
    const std::string none = "<none>";
    const struct {
        std::string_view entities;
        std::string title;
    } rows[] = {
        {"{\n\"classname\" \"worldspawn\"\n\"message\" \"The Edge\"\n}"sv, "The Edge"},
        {"{ \"message\" \"First\" \"MESSAGE\" \"Later wins\" \"ClassName\" \"WorldSpawn\" }"sv, "Later wins"},
        {"{ \"classname\" \"light\" \"message\" \"no\" } { \"classname\" \"worldspawn\" \"message\" \"yes\" }"sv, "yes"},
        {"// made by hand\n{ classname worldspawn message Bare }"sv, "Bare"},
        {"{ \"classname\" \"worldspawn\" \"message\" \"}{\" }"sv, "}{"},
        {"{ \"classname\" \"worldspawn\" \"message\" \"Cut\" }\0{ junk"sv, "Cut"},
        {"{ \"classname\" \"worldspawn\" }"sv, none},
        {"{ \"classname\" \"worldspawn\" \"message\" \"\" }"sv, none},
        {"{ \"classname\" \"worldspawn\" \"message\" \"open }"sv, none},
        {"{ \"classname\" \"worldspawn\" \"message\" \"Unclosed\""sv, none},
    };
    for (const auto& row : rows)
        EXPECT_EQ(titleOf(mapWithEntities(row.entities)).value_or(none), row.title) << row.entities;
}

TEST(BspTitle, Headers)
{
    const QByteArray good = mapWithEntities("{ \"classname\" \"worldspawn\" \"message\" \"Ok\" }");
    EXPECT_EQ(titleOf(demo::bspMap(QByteArray(10000, 'x'))), std::string(10000, 'x'));
    EXPECT_FALSE(titleOf("PACK" + good.mid(4)));                      // no BSP
    EXPECT_FALSE(titleOf(good.left(15)));                             // lump table cut
    EXPECT_FALSE(titleOf(good.left(good.size() - 1)));                // lump past the end
    EXPECT_FALSE(titleOf(mapWithEntities("{}", -1 - 0x7fffffff)));   // negative length
    EXPECT_FALSE(bsp::entityLump(std::string_view(mapWithEntities("", bsp::kMaxEntityBytes + 1).constData(), 16), 1ull << 40));
}

TEST(BspTitle, RandomAndDamagedBytesGiveAPlainAnswer)
{
    std::mt19937 rng(14);
    const QByteArray good = demo::bspMap("Random Title");
    for (int round = 0; round < 3000; ++round) {
        QByteArray bytes = round % 2 ? randomBytes(rng, 300) : good;
        if (round % 2 == 0) {
            for (int flips = 1 + int(rng() % 4); flips > 0; --flips)
                bytes[rng() % bytes.size()] = char(rng());
            bytes.truncate(rng() % (bytes.size() + 1));
        }
        const std::optional<std::string> title = titleOf(bytes);
        EXPECT_TRUE(!title || bytes.contains(QByteArray::fromStdString(*title)));
    }
}

TEST(MapInfoFile, Records)
{
    const QByteArray file = "\"base12?Twelve\"\r\n\"Base1?First\"\r\n\"base1\"\n\"base1?Last wins\"\r\"q2dm1?x\"";
    const struct {
        QByteArray name;
        std::optional<QByteArray> description;
    } rows[] = {
        {"base1", "Last wins"}, {"BASE12", "Twelve"}, {"base", "?Last wins"}, {"q2dm1", "x"}, {"q2dm", "?x"}, {"base2", std::nullopt},
    };
    for (const auto& row : rows)
        EXPECT_EQ(mapinfo::description(file, row.name), row.description) << row.name.constData();
    EXPECT_EQ(mapinfo::description("\"base1\"\r\n", "base1"), QByteArray());
    EXPECT_EQ(mapinfo::savedFile(std::nullopt, "dm1", "A\r\nB"), "\"dm1?AB\"\r\n");
    EXPECT_EQ(mapinfo::savedFile("\"x?1\"", "dm1", "D"), "\"x?1\"\r\n\"dm1?D\"\r\n");
    EXPECT_EQ(mapinfo::savedFile(file, "base1", "New"), "\"q2dm1?x\"\r\n\"base1?New\"\r\n");
    EXPECT_EQ(mapinfo::savedFile("\"DM1?a\"\n\n\"x?\"\r\n", "dm1", "b"), "\r\n\"x?\"\r\n\"dm1?b\"\r\n");
}

TEST(MapInfoFile, RandomFilesKeepEveryOtherLineAndGiveTheNewRecordBack)
{
    std::mt19937 rng(6);
    for (int round = 0; round < 2000; ++round) {
        QByteArray file = round % 50 ? randomBytes(rng, 400) : QByteArray(100000, 'y');
        if (round % 3 == 0)
            file += "\r\n\"dm1?old\"\r\n";
        const QByteArray saved = mapinfo::savedFile(file, "dm1", "Typed here");
        EXPECT_EQ(mapinfo::description(saved, "dm1"), QByteArray("Typed here"));
        QList<QByteArray> others = mapinfo::lines(file);
        others.removeIf([](const QByteArray& line) { return mapinfo::isRecordOf(line, "dm1"); });
        QList<QByteArray> kept = mapinfo::lines(saved);
        kept.removeLast();
        EXPECT_EQ(kept, others);
    }
}
