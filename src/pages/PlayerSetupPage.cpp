#include "pages/PlayerSetupPage.h"

#include "command/Composer.h"
#include "pages/SavedControls.h"
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

void PlayerSetupPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveChecks(saved, {ui.Check35, ui.Check41, ui.Check42, ui.Check43});
    saveTexts(saved, {ui.Text13});
    saved.handIndex = ui.Combo3->currentIndex();
    saved.crosshairIndex = ui.Combo4->currentIndex();
    saved.model = ui.Combo5->currentText();
    saved.skin = ui.Combo6->currentText();
}

// A list is set only when its box is on, as the box puts its first row up.
void PlayerSetupPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    restoreChecks(saved, {ui.Check35, ui.Check41, ui.Check42, ui.Check43});
    restoreTexts(saved, {ui.Text13});
    if (ui.Check43->isChecked())
        chooseRow(ui.Combo4, saved.crosshairIndex);
    if (ui.Check42->isChecked()) {
        chooseRowNamed(ui.Combo5, saved.model);
        chooseRowNamed(ui.Combo6, saved.skin);
    }
    if (ui.Check41->isChecked())
        chooseRow(ui.Combo3, saved.handIndex);
}

} // namespace pages
