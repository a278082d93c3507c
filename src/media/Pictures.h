#pragma once
// Game pictures (faces, skins, map screenshots) shown in a picture box: one
// place that reads PCX and what Qt's image plug-ins read (TGA among them), and
// draws the picture stretched per axis over the box's inner area, the aspect
// ratio given up, as players have always seen their skins.
#include <QImage>
#include <QString>

class QLabel;

namespace media {

// Files above this are never read: no game picture comes near it.
inline constexpr qint64 kMaxPictureFileBytes = 16 * 1024 * 1024;

// The picture of a file; a null image when it can't be read or decoded.
// ".pcx" files go to the PCX reader, anything else to Qt's readers, with the
// file's extension as the first guess at its format; a TGA Qt can't read
// goes to our own reader.
QImage readGamePicture(const QString& path);

// Shows the file's picture in the box, stretched to its inner area, and
// keeps it so while the box changes size. A file that can't be shown leaves
// the box empty. True when a picture is shown.
bool showGamePicture(QLabel* box, const QString& path);
// Empties the box.
void clearGamePicture(QLabel* box);

// The dynamic property of a picture box naming the file it shows ("" for none).
inline constexpr char kPictureFileProperty[] = "pictureFile";

} // namespace media
