#pragma once
// Truevision TGA pictures as the game writes its screenshots: true colour or
// grey, plain or run-length encoded, without the version 2 footer that Qt's
// own TGA reader insists on. Plain bytes in, a picture out.
#include <QByteArray>
#include <QImage>

namespace media {

// The picture, or a null image for other kinds of TGA, damaged data, or
// sides above kMaxPcxSide.
QImage decodeTga(const QByteArray& bytes);

} // namespace media
