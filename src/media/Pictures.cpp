#include "media/Pictures.h"

#include "media/Pcx.h"
#include "media/Tga.h"

#include <QBuffer>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QLabel>
#include <QPixmap>

namespace media {
namespace {

// Keeps the decoded picture beside its box and draws it again when the box
// changes size, so the stretch always fills the box.
class StretchedPicture : public QObject {
public:
    StretchedPicture(QLabel* box, QImage image)
        : QObject(box), box_(box), image_(std::move(image))
    {
        setObjectName(QStringLiteral("stretchedPicture"));
        box->installEventFilter(this);
        draw();
    }

    void draw()
    {
        const QSize size = box_->contentsRect().size();
        if (size.isEmpty())
            return;
        // Nearest-neighbour, like a blit: skins are pixel art, and blending
        // would smear one colour into the next.
        box_->setPixmap(QPixmap::fromImage(image_.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation)));
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == box_ && event->type() == QEvent::Resize)
            draw();
        return false;
    }

private:
    QLabel* box_;
    QImage image_;
};

StretchedPicture* pictureOf(QLabel* box)
{
    return box->findChild<StretchedPicture*>(QStringLiteral("stretchedPicture"), Qt::FindDirectChildrenOnly);
}

} // namespace

QImage readGamePicture(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > kMaxPictureFileBytes || !file.open(QIODevice::ReadOnly))
        return QImage();
    const QByteArray bytes = file.read(kMaxPictureFileBytes + 1);
    if (bytes.size() > kMaxPictureFileBytes)
        return QImage();
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == QLatin1String("pcx"))
        return decodePcx(bytes);

    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, suffix.toLatin1());
    reader.setAllocationLimit(64);
    const QSize size = reader.size();
    if (size.isValid() && (size.width() > kMaxPcxSide || size.height() > kMaxPcxSide))
        return QImage();
    QImage image = reader.read();
    // Qt reads only version 2 TGA files, with their footer; the game's own
    // screenshots have none.
    if (image.isNull() && suffix == QLatin1String("tga"))
        image = decodeTga(bytes);
    if (image.width() > kMaxPcxSide || image.height() > kMaxPcxSide)
        return QImage();
    return image;
}

bool showGamePicture(QLabel* box, const QString& path)
{
    clearGamePicture(box);
    const QImage image = readGamePicture(path);
    if (image.isNull())
        return false;
    box->setScaledContents(false);
    new StretchedPicture(box, image);
    box->setProperty(kPictureFileProperty, path);
    return true;
}

void clearGamePicture(QLabel* box)
{
    delete pictureOf(box);
    box->clear();
    box->setProperty(kPictureFileProperty, QString());
}

} // namespace media
