#include "media/EnlargedSkinForm.h"

#include "media/Pictures.h"

namespace media {

EnlargedSkinForm::EnlargedSkinForm(const QString& skinFile, QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    // The largest whole multiple of the skin that fits 640 by 480, so every
    // texel of the sheet stays the same size.
    const QImage skin = readGamePicture(skinFile);
    if (!skin.isNull()) {
        const int factor = qMax(1, qMin(640 / skin.width(), 480 / skin.height()));
        const int frame = 2 * ui.Pic_Large->frameWidth();
        ui.Pic_Large->setFixedSize(skin.width() * factor + frame, skin.height() * factor + frame);
    }
    showGamePicture(ui.Pic_Large, skinFile);
}

} // namespace media
