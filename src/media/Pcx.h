#pragma once
// ZSoft PCX pictures, the format of the game's skins and faces: 8-bit
// paletted with the 256-colour palette behind the pixels, and 24-bit files
// kept as three 8-bit planes. Plain bytes in, a picture out; no file access.
#include <QByteArray>
#include <QImage>

namespace media {

// Neither side of a picture may pass this. Skins are 256 pixels at most and
// screenshots a few hundred; a header claiming more is damage, and taking it
// at its word would cost gigabytes.
inline constexpr int kMaxPcxSide = 4096;

// The picture, or a null image when the bytes are no PCX this reader knows,
// are cut short, or lack the palette an 8-bit picture needs.
QImage decodePcx(const QByteArray& bytes);

} // namespace media
