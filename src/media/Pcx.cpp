#include "media/Pcx.h"

namespace media {
namespace {

constexpr int kHeaderSize = 128;
constexpr int kPaletteSize = 768;

int le16(const QByteArray& b, int at)
{
    return int(quint8(b[at])) | int(quint8(b[at + 1])) << 8;
}

// Unpacks run-length data until out is full. Runs may cross from one line to
// the next: some painting programs write them so, and the game reads them.
bool unpack(const char* data, qsizetype size, bool encoded, QByteArray& out)
{
    char* to = out.data();
    const qsizetype wanted = out.size();
    qsizetype have = 0;
    qsizetype at = 0;
    while (have < wanted) {
        if (at >= size)
            return false;
        const quint8 b = quint8(data[at++]);
        if (!encoded || b < 0xc0) {
            to[have++] = char(b);
            continue;
        }
        if (at >= size)
            return false;
        const char value = data[at++];
        const qsizetype run = qMin<qsizetype>(b & 0x3f, wanted - have);
        std::fill(to + have, to + have + run, value);
        have += run;
    }
    return true;
}

} // namespace

QImage decodePcx(const QByteArray& bytes)
{
    if (bytes.size() < kHeaderSize || quint8(bytes[0]) != 0x0a)
        return QImage();
    const int encoding = quint8(bytes[2]);
    const int bits = quint8(bytes[3]);
    const int planes = quint8(bytes[65]);
    const int bytesPerLine = le16(bytes, 66);
    const int width = le16(bytes, 8) - le16(bytes, 4) + 1;
    const int height = le16(bytes, 10) - le16(bytes, 6) + 1;
    if (encoding > 1 || bits != 8 || (planes != 1 && planes != 3))
        return QImage();
    if (width < 1 || height < 1 || width > kMaxPcxSide || height > kMaxPcxSide || bytesPerLine < width)
        return QImage();

    // An 8-bit picture keeps its palette in the last 769 bytes, behind a
    // 0x0C mark; the pixel data ends where it starts.
    qsizetype dataEnd = bytes.size();
    if (planes == 1) {
        dataEnd -= kPaletteSize + 1;
        if (dataEnd < kHeaderSize || quint8(bytes[dataEnd]) != 0x0c)
            return QImage();
    }
    const qsizetype lineBytes = qsizetype(bytesPerLine) * planes;
    const qsizetype total = lineBytes * height;
    // Each two bytes of encoded data give 63 at most: a file too short for
    // its header's size is refused before anything big is allocated.
    const qsizetype available = dataEnd - kHeaderSize;
    if (encoding == 1 ? available * 32 < total : available < total)
        return QImage();

    QByteArray raw(total, Qt::Uninitialized);
    if (!unpack(bytes.constData() + kHeaderSize, available, encoding == 1, raw))
        return QImage();

    QImage image(width, height, planes == 1 ? QImage::Format_Indexed8 : QImage::Format_RGB32);
    if (image.isNull())
        return QImage();
    if (planes == 1) {
        QList<QRgb> colours(256);
        const char* pal = bytes.constData() + dataEnd + 1;
        for (int i = 0; i < 256; ++i)
            colours[i] = qRgb(quint8(pal[3 * i]), quint8(pal[3 * i + 1]), quint8(pal[3 * i + 2]));
        image.setColorTable(colours);
        for (int y = 0; y < height; ++y)
            std::copy_n(raw.constData() + y * lineBytes, width, image.scanLine(y));
        return image;
    }
    for (int y = 0; y < height; ++y) {
        const char* line = raw.constData() + y * lineBytes;
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < width; ++x)
            to[x] = qRgb(quint8(line[x]), quint8(line[bytesPerLine + x]), quint8(line[2 * bytesPerLine + x]));
    }
    return image;
}

} // namespace media
