#include "pages/PlayerSetupPage.h"

#include "command/Composer.h"
#include "pages/TextBoxes.h"
#include "platform/Controls.h"

namespace pages {

PlayerSetupPage::PlayerSetupPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    ui.Combo3->addItems({QStringLiteral("Right"), QStringLiteral("Left"), QStringLiteral("Center")});
    ui.Combo3->setCurrentIndex(-1);
    ui.Combo4->addItems({QStringLiteral("None"), QStringLiteral("Cross"), QStringLiteral("Red Dot"), QStringLiteral("Angle")});
    ui.Combo4->setCurrentIndex(-1);

    platform::enableWhileChecked(ui.Check35, ui.Text13);
    // The game's configuration has no way to write a double quote inside a
    // quoted name: one there would split the name into words.
    keepLatin1(ui.Text13, QStringLiteral("\""));
    // Ticking a list's box shows its first row, whatever was chosen before.
    for (auto [box, list] : {std::pair{ui.Check41, ui.Combo3}, std::pair{ui.Check43, ui.Combo4}}) {
        QComboBox* combo = list;
        connect(box, &QCheckBox::toggled, this, [combo](bool on) {
            combo->setEnabled(on);
            if (on && combo->count() > 0)
                combo->setCurrentIndex(0);
        });
    }
}

void PlayerSetupPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.setName = ui.Check35->isChecked();
    in.playerName = ui.Text13->text();
    in.handOn = ui.Check41->isChecked();
    in.handIndex = ui.Combo3->currentIndex();
    in.crosshairOn = ui.Check43->isChecked();
    in.crosshairIndex = ui.Combo4->currentIndex();
    in.skinOn = ui.Check42->isChecked();
    in.model = ui.Combo5->currentText();
    in.skin = ui.Combo6->currentText();
}

} // namespace pages
