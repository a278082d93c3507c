// The PCX reader over plain bytes: a table of small pictures and damaged
// files, then real-looking skins damaged at random.
#include "media/Pcx.h"

#include <gtest/gtest.h>

#include <random>

using media::decodePcx;

namespace {

// A header for width x height with these planes and line length, the pixel
// data as given, and for one plane a palette where index i is grey i, but
// index 1 red, 5 green and 200 blue.
QByteArray pcx(int width, int height, int planes, int bytesPerLine, const QByteArray& data, int encoding = 1,
               bool palette = true)
{
    QByteArray out(128, '\0');
    for (auto [at, value] : {std::pair{0, 0x0a}, {1, 5}, {2, encoding}, {3, 8}, {65, planes}})
        out[at] = char(value);
    for (auto [at, value] : {std::pair{8, width - 1}, {10, height - 1}, {66, bytesPerLine}})
        out[at] = char(value & 0xff), out[at + 1] = char(value >> 8);
    out += data;
    if (planes == 1 && palette) {
        QByteArray pal(768, '\0');
        for (int i = 0; i < 256; ++i)
            pal[3 * i] = pal[3 * i + 1] = pal[3 * i + 2] = char(i);
        pal.replace(3, 3, "\xff\0\0", 3).replace(15, 3, "\0\xff\0", 3).replace(600, 3, "\0\0\xff", 3);
        out += char(0x0c) + pal;
    }
    return out;
}

QString colours(const QImage& image)
{
    QStringList out;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            out << QColor(image.pixel(x, y)).name();
    return out.join(QLatin1Char(' '));
}

TEST(Pcx, Pictures)
{
    struct Row {
        const char* what;
        QByteArray file;
        const char* pixels; // row by row; nullptr: no picture
    };
    const Row rows[] = {
        {"runs and literals", pcx(2, 2, 1, 2, QByteArray::fromHex("c2010507c1c8")), "#ff0000 #ff0000 #00ff00 #070707"},
        {"a run across lines", pcx(2, 2, 1, 2, QByteArray::fromHex("c405")), "#00ff00 #00ff00 #00ff00 #00ff00"},
        {"padding byte skipped", pcx(1, 2, 1, 2, QByteArray::fromHex("0109c1c805")), "#ff0000 #0000ff"},
        {"24-bit planes", pcx(1, 1, 3, 2, QByteArray::fromHex("c1ff0080001000")), "#ff8010"},
        {"not encoded", pcx(2, 1, 1, 2, QByteArray::fromHex("c805"), 0), "#0000ff #00ff00"},
        {"run longer than the picture", pcx(1, 1, 1, 1, QByteArray::fromHex("ff01")), "#ff0000"},
        {"data cut short", pcx(2, 2, 1, 2, QByteArray::fromHex("c201")), nullptr},
        {"run without its value", pcx(2, 1, 3, 2, QByteArray::fromHex("c10000000000c2")), nullptr},
        {"width 65535", pcx(65535, 1, 1, 65535, QByteArray(1100, char(0xff))), nullptr},
        {"height 65535", pcx(1, 65535, 1, 2, QByteArray(1100, char(0xff))), nullptr},
        {"palette missing", pcx(2, 1, 1, 2, QByteArray::fromHex("c201"), 1, false), nullptr},
        {"lines shorter than the width", pcx(4, 1, 1, 2, QByteArray::fromHex("c401")), nullptr},
        {"four planes", pcx(1, 1, 4, 2, QByteArray(8, '\0')), nullptr},
        {"unknown encoding", pcx(1, 1, 1, 2, QByteArray::fromHex("c201"), 2), nullptr},
        {"a text file", QByteArray("This is not a picture.\r\n").repeated(60), nullptr},
    };
    for (const Row& r : rows) {
        const QImage image = decodePcx(r.file);
        EXPECT_EQ(image.isNull(), r.pixels == nullptr) << r.what;
        if (r.pixels) {
            EXPECT_EQ(colours(image), QString::fromLatin1(r.pixels)) << r.what;
        }
    }
}

// A skin sheet damaged at random: changed, inserted and removed bytes, cut
// ends, and headers that claim huge sizes. The reader ends every time with a
// picture of sane size or none.
TEST(Pcx, DamagedFilesAtRandom)
{
    QByteArray data;
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 96; x += 8)
            data += QByteArray::fromHex("c8") + char((x + y) % 0xc0);
    const QByteArray sample = pcx(96, 64, 1, 96, data);
    ASSERT_FALSE(decodePcx(sample).isNull());
    std::mt19937 random(11);
    int pictures = 0;
    for (int round = 0; round < 2000; ++round) {
        QByteArray file = sample;
        for (int e = int(1 + random() % 4); e > 0; --e) {
            const int at = int(random() % file.size());
            switch (random() % 4) {
            case 0: file[at] = char(random()); break;
            case 1: file.insert(at, char(random())); break;
            case 2: file.remove(at, 1 + int(random() % 64)); break;
            default: file[4 + random() % 8] = char(random()); break; // the size fields
            }
        }
        if (round % 7 == 0)
            file.truncate(int(random() % file.size()));
        const QImage image = decodePcx(file);
        EXPECT_LE(image.width(), media::kMaxPcxSide) << round;
        EXPECT_LE(image.height(), media::kMaxPcxSide) << round;
        pictures += image.isNull() ? 0 : 1;
    }
    EXPECT_GT(pictures, 0);
    EXPECT_LT(pictures, 2000);
}

} // namespace
