#include "pages/AdvancedForm.h"

#include "command/Composer.h"
#include "platform/NumericBoxes.h"
#include "pages/SavedControls.h"

#include <QEvent>

namespace pages {

AdvancedForm::AdvancedForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.Combo8->addItems({QStringLiteral("Don't Use"), QStringLiteral("28.8 Modem"), QStringLiteral("33.6 Modem"),
                         QStringLiteral("Single ISDN"), QStringLiteral("56K Modem"), QStringLiteral("Duel ISDN"),
                         QStringLiteral("Cable Modem"), QStringLiteral("T1 Connection"),
                         QStringLiteral("Local-Area-Network")});
    ui.Combo8->setCurrentIndex(-1);

    connect(ui.Check1, &QCheckBox::toggled, this, [this](bool on) {
        for (QCheckBox* box : {ui.Check2, ui.Check3, ui.Check4, ui.Check5})
            box->setEnabled(on);
    });
    connect(ui.Check6, &QCheckBox::toggled, this, [this](bool on) {
        for (QLineEdit* box : {ui.Text1, ui.Text2, ui.Text3, ui.Text4, ui.Text5})
            box->setEnabled(on);
    });
    for (QLineEdit* box : {ui.Text1, ui.Text2, ui.Text3, ui.Text4})
        platform::AttachNumericBox(box, platform::FixedRule(0, 255, "0"));
    // The dots only stand behind the address parts: a click on them hands
    // the caret to the first part. Tab passes them by, or it would go round
    // the four parts for ever.
    ui.Text5->setFocusPolicy(Qt::ClickFocus);
    ui.Text5->installEventFilter(this);
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::accept);
}

bool AdvancedForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui.Text5 && event->type() == QEvent::FocusIn)
        ui.Text1->setFocus(Qt::OtherFocusReason);
    return QDialog::eventFilter(watched, event);
}

bool AdvancedForm::dedicated() const { return ui.Check16->isChecked(); }

void AdvancedForm::readAnswersInto(torvik::ComposerInput& in) const
{
    in.dedicated = ui.Check16->isChecked();
    in.rateText = ui.Combo8->currentText();
    in.rateIndex = ui.Combo8->currentIndex();
    in.downloads = ui.Check1->isChecked();
    in.downloadMaps = ui.Check2->isChecked();
    in.downloadModels = ui.Check3->isChecked();
    in.downloadSounds = ui.Check4->isChecked();
    in.downloadPlayers = ui.Check5->isChecked();
    in.connect = ui.Check6->isChecked();
    in.address[0] = ui.Text1->text();
    in.address[1] = ui.Text2->text();
    in.address[2] = ui.Text3->text();
    in.address[3] = ui.Text4->text();
}

void AdvancedForm::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    const QString prefix = QStringLiteral("Advanced.");
    saveChecks(saved, {ui.Check16, ui.Check1, ui.Check2, ui.Check3, ui.Check4, ui.Check5, ui.Check6}, prefix);
    saveTexts(saved, {ui.Text1, ui.Text2, ui.Text3, ui.Text4}, prefix);
    saved.rateIndex = ui.Combo8->currentIndex();
}

void AdvancedForm::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    const QString prefix = QStringLiteral("Advanced.");
    restoreChecks(saved, {ui.Check16, ui.Check1, ui.Check2, ui.Check3, ui.Check4, ui.Check5, ui.Check6}, prefix);
    restoreTexts(saved, {ui.Text1, ui.Text2, ui.Text3, ui.Text4}, prefix);
    chooseRow(ui.Combo8, saved.rateIndex);
}

} // namespace pages
