#include "pages/GorvanFlagsPage.h"

#include "command/Composer.h"
#include "platform/NumericBoxes.h"
#include "pages/SavedControls.h"
#include "platform/Controls.h"

namespace pages {

GorvanFlagsPage::GorvanFlagsPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    connect(ui.HScroll2, &QScrollBar::valueChanged, this, &GorvanFlagsPage::showSkillName);
    platform::enableWhileChecked(ui.Check21, ui.Text5);
    platform::enableWhileChecked(ui.Check32, ui.Text11);
    platform::AttachNumericBox(ui.Text5, platform::FixedRule(1, 999, "1", {QStringLiteral("0000"), QStringLiteral("000"), QStringLiteral("00")}));
    platform::AttachNumericBox(ui.Text11, platform::FixedRule(0, 40, "0"));
}

void GorvanFlagsPage::showSkillName(int skill)
{
    static const char* const names[] = {"Easy", "Medium", "Hard", "Very Hard"};
    if (skill >= 0 && skill <= 3)
        ui.Label31->setText(QString::fromLatin1(names[skill]));
}

void GorvanFlagsPage::allowTarzan(bool ctf) { ui.Check40->setEnabled(ctf); }

void GorvanFlagsPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.skill = ui.HScroll2->value();
    in.botChat = ui.Check25->isChecked();
    in.autoSkill = ui.Check1->isChecked();
    in.clientCommands = ui.Check24->isChecked();
    in.connectInfo = ui.Check23->isChecked();
    in.calcNodes = ui.Check22->isChecked();
    in.freeSlotsOn = ui.Check32->isChecked();
    in.freeSlots = ui.Text11->text();
    in.tarzanEnabled = ui.Check40->isEnabled();
    in.tarzan = ui.Check40->isChecked();
    in.lagOn = ui.Check21->isChecked();
    in.lag = ui.Text5->text();
}

void GorvanFlagsPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveChecks(saved, {ui.Check1, ui.Check21, ui.Check22, ui.Check23, ui.Check24, ui.Check25, ui.Check32, ui.Check40});
    saved.skill = ui.HScroll2->value();
    saved.skillName = ui.Label31->text();
    saveTexts(saved, {ui.Text5, ui.Text11}, {}, true);
}

void GorvanFlagsPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    restoreChecks(saved, {ui.Check1, ui.Check21, ui.Check22, ui.Check23, ui.Check24, ui.Check25, ui.Check32,
                          ui.Check40});
    ui.Label31->setText(saved.skillName);
    ui.HScroll2->setValue(saved.skill);
    restoreTexts(saved, {ui.Text5, ui.Text11}, {}, true);
}

} // namespace pages
