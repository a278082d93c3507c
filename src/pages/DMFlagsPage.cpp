#include "pages/DMFlagsPage.h"

#include "command/Composer.h"
#include "custom/CustomForm.h"
#include "pages/AdvancedForm.h"
#include "platform/NumericBoxes.h"
#include "pages/SavedControls.h"
#include "platform/Controls.h"

namespace pages {

DMFlagsPage::DMFlagsPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    for (QCheckBox* box : {ui.Check2, ui.Check3, ui.Check4, ui.Check5, ui.Check6, ui.Check7, ui.Check8, ui.Check9,
                           ui.Check10, ui.Check11, ui.Check12, ui.Check13, ui.Check14, ui.Check16, ui.Check19,
                           ui.Check47})
        connect(box, &QCheckBox::toggled, this, &DMFlagsPage::flagsChanged);
    platform::enableWhileChecked(ui.Check17, ui.Text4);
    platform::enableWhileChecked(ui.Check18, ui.Text3);
    platform::enableWhileChecked(ui.Check31, ui.Text10);
    platform::AttachNumericBox(ui.Text3, platform::FixedRule(0, 500, "0"));
    platform::AttachNumericBox(ui.Text4, platform::FixedRule(0, 500, "0"));
    platform::AttachNumericBox(ui.Text10, platform::FixedRule(0, 100, "0"));
    connect(ui.Command25, &QPushButton::clicked, this, [this] {
        if (advanced_)
            advanced_->exec();
    });
    connect(ui.Command27, &QPushButton::clicked, this, [this] {
        if (custom_)
            custom_->exec();
    });
}

void DMFlagsPage::setOptionForms(AdvancedForm* advanced, custom::CustomForm* customOptions)
{
    advanced_ = advanced;
    custom_ = customOptions;
}

void DMFlagsPage::showFlagsNumber(const torvik::DMFlagBoxes& ctfBoxes, bool ctf)
{
    torvik::DMFlagBoxes boxes = flagBoxes();
    boxes.insert(ctfBoxes.begin(), ctfBoxes.end());
    const int value = torvik::dmflagsForTitle(boxes, ctf);
    ui.Frame10->setTitle(QStringLiteral("Death Match Flags (") + QString::number(value) + QLatin1Char(')'));
}

double DMFlagsPage::maxPlayers() const { return platform::leadingValue(ui.Text10->text()); }

torvik::DMFlagBoxes DMFlagsPage::flagBoxes() const
{
    return {{2, ui.Check2->isChecked()},   {3, ui.Check3->isChecked()},   {4, ui.Check4->isChecked()},
            {5, ui.Check5->isChecked()},   {6, ui.Check6->isChecked()},   {7, ui.Check7->isChecked()},
            {8, ui.Check8->isChecked()},   {9, ui.Check9->isChecked()},   {10, ui.Check10->isChecked()},
            {11, ui.Check11->isChecked()}, {12, ui.Check12->isChecked()}, {13, ui.Check13->isChecked()},
            {14, ui.Check14->isChecked()}, {16, ui.Check16->isChecked()}, {19, ui.Check19->isChecked()},
            {47, ui.Check47->isChecked()}};
}

void DMFlagsPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.viewWeapons = ui.Check15->isChecked();
    in.cheats = ui.Check20->isChecked();
    in.timeLimitOn = ui.Check17->isChecked();
    in.timeLimit = ui.Text4->text();
    in.fragLimitOn = ui.Check18->isChecked();
    in.fragLimit = ui.Text3->text();
    in.maxPlayersOn = ui.Check31->isChecked();
    in.maxPlayers = ui.Text10->text();
    in.dmflags.merge(flagBoxes());
}

void DMFlagsPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveChecks(saved, {ui.Check2,  ui.Check3,  ui.Check4,  ui.Check5,  ui.Check6,  ui.Check7,  ui.Check8,
                       ui.Check9,  ui.Check10, ui.Check11, ui.Check12, ui.Check13, ui.Check14, ui.Check15,
                       ui.Check16, ui.Check17, ui.Check18, ui.Check19, ui.Check20, ui.Check31, ui.Check47});
    saveTexts(saved, {ui.Text4, ui.Text3, ui.Text10}, {}, true);
}

void DMFlagsPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    restoreChecks(saved, {ui.Check2,  ui.Check3,  ui.Check4,  ui.Check5,  ui.Check6,  ui.Check7,  ui.Check8,
                          ui.Check9,  ui.Check10, ui.Check11, ui.Check12, ui.Check13, ui.Check14, ui.Check15,
                          ui.Check16, ui.Check17, ui.Check18, ui.Check19, ui.Check20, ui.Check31, ui.Check47});
    restoreTexts(saved, {ui.Text4, ui.Text3, ui.Text10}, {}, true);
}

} // namespace pages
