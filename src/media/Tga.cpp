#include "media/Tga.h"

#include "media/Pcx.h"

namespace media {

QImage decodeTga(const QByteArray& bytes)
{
    constexpr int kHeaderSize = 18;
    if (bytes.size() < kHeaderSize)
        return QImage();
    auto byte = [&bytes](qsizetype at) { return int(quint8(bytes[at])); };
    auto le16 = [&byte](qsizetype at) { return byte(at) | byte(at + 1) << 8; };
    const int type = byte(2);
    const int width = le16(12);
    const int height = le16(14);
    const int depth = byte(16);
    const bool grey = (type & 7) == 3;
    const bool encoded = type & 8;
    if ((type != 2 && type != 3 && type != 10 && type != 11) || byte(1) != 0)
        return QImage();
    if ((grey && depth != 8) || (!grey && depth != 24 && depth != 32))
        return QImage();
    if (width < 1 || height < 1 || width > kMaxPcxSide || height > kMaxPcxSide)
        return QImage();
    const int step = depth / 8;
    qsizetype at = kHeaderSize + byte(0);
    const qsizetype pixels = qsizetype(width) * height;
    // A run packet of 1 + step bytes gives 128 pixels at most.
    if ((bytes.size() - at) * (encoded ? 128 : 1) < pixels * (encoded ? 1 : step))
        return QImage();

    QImage image(width, height, depth == 32 ? QImage::Format_ARGB32 : QImage::Format_RGB32);
    if (image.isNull())
        return QImage();
    const bool topDown = byte(17) & 0x20;
    auto read = [&](QRgb* out) {
        if (at + step > bytes.size())
            return false;
        *out = grey ? qRgb(byte(at), byte(at), byte(at))
                    : qRgba(byte(at + 2), byte(at + 1), byte(at), step == 4 ? byte(at + 3) : 255);
        at += step;
        return true;
    };
    qsizetype done = 0;
    while (done < pixels) {
        int count = 1;
        bool run = false;
        if (encoded) {
            if (at >= bytes.size())
                return QImage();
            const int packet = byte(at++);
            count = (packet & 0x7f) + 1;
            run = packet & 0x80;
        }
        QRgb colour = 0;
        for (int i = 0; i < count && done < pixels; ++i, ++done) {
            if ((i == 0 || !run) && !read(&colour))
                return QImage();
            const int y = int(done / width);
            reinterpret_cast<QRgb*>(image.scanLine(topDown ? y : height - 1 - y))[done % width] = colour;
        }
    }
    return image;
}

} // namespace media
