// The picture readers over plain bytes: for PCX and for footerless TGA, a
// table of small pictures and damaged files, then damage at random.
#include "media/Pcx.h"
#include "media/Tga.h"

#include <gtest/gtest.h>

#include <random>

using media::decodePcx;

namespace {

// A header, the pixel data, and for one plane a palette of greys (index i is
// grey i) but for index 1 red, 5 green and 200 blue.
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

// A skin sheet with changed, inserted and removed bytes, cut ends and huge
// sizes in its header: the reader ends with a picture of sane size or none.
TEST(Pcx, DamagedFilesAtRandom)
{
    QByteArray data;
    for (int i = 0; i < 64 * 12; ++i)
        data += QByteArray::fromHex("c8") + char(i % 0xc0);
    const QByteArray sample = pcx(96, 64, 1, 96, data);
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
        file.truncate(round % 7 == 0 ? int(random() % file.size()) : file.size());
        const QImage image = decodePcx(file);
        EXPECT_TRUE(image.width() <= media::kMaxPcxSide && image.height() <= media::kMaxPcxSide) << round;
        pictures += image.isNull() ? 0 : 1;
    }
    EXPECT_GT(pictures, 0);
    EXPECT_LT(pictures, 2000);
}

// An 18-byte header (type, 2x1, depth, descriptor) with the data behind it.
QByteArray tga(int type, int depth, int descriptor, const char* hex)
{
    const char header[18] = {0, 0, char(type), 0, 0, 0, 0, 0, 0, 0, 0, 0, 2, 0, 1, 0, char(depth), char(descriptor)};
    return QByteArray(header, 18) + QByteArray::fromHex(hex);
}

TEST(Tga, Pictures)
{
    const std::pair<QByteArray, const char*> rows[] = {
        {tga(2, 24, 0, "0000ff00ff00"), "#ff0000 #00ff00"},
        {tga(2, 32, 0x20, "ff000080000000ff"), "#0000ff #000000"},
        {tga(10, 24, 0, "81102030"), "#302010 #302010"},   // one run of two
        {tga(11, 8, 0, "0140c0"), "#404040 #c0c0c0"},      // two raw pixels
        {tga(2, 24, 0, "0000ff00"), nullptr},               // cut short
        {tga(10, 24, 0, "81"), nullptr},                    // a run without its pixel
        {tga(1, 8, 0, "0001"), nullptr},                    // colour-mapped
    };
    for (const auto& [file, pixels] : rows) {
        const QImage image = media::decodeTga(file);
        ASSERT_EQ(image.isNull(), pixels == nullptr) << file.toHex().constData();
        if (pixels) {
            EXPECT_EQ(colours(image), pixels);
        }
    }
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        QByteArray file = tga(2 + 8 * (round & 1), 24, 0, "8100ff00810000ff") + QByteArray(40, '\x81');
        for (int e = int(1 + random() % 4); e > 0; --e)
            file[int(random() % file.size())] = char(random());
        EXPECT_LE(media::decodeTga(file.left(int(random() % file.size()) + 1)).width(), 4096);
    }
}

} // namespace
