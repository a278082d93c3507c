#include "pages/CTFflagsPage.h"

#include "command/Composer.h"
#include "platform/NumericBoxes.h"
#include "pages/SavedControls.h"
#include "platform/Controls.h"

namespace pages {

CTFflagsPage::CTFflagsPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    ui.Combo7->addItems({QStringLiteral("Choose on Launch"), QStringLiteral("Red"), QStringLiteral("Blue")});
    ui.Combo7->setCurrentIndex(-1);

    for (QCheckBox* box : {ui.Check27, ui.Check28, ui.Check29})
        connect(box, &QCheckBox::toggled, this, &CTFflagsPage::flagsChanged);
    platform::enableWhileChecked(ui.Check37, ui.Text16);
    platform::enableWhileChecked(ui.Check46, ui.Text15);
    connect(ui.Check36, &QCheckBox::toggled, this, &CTFflagsPage::showAutoTeams);
    connect(ui.Check38, &QCheckBox::toggled, this, [this](bool on) { ui.SSTab2->setTabEnabled(1, on); });
    connect(ui.SSTab2, &QTabWidget::currentChanged, this, [this](int tab) {
        emit pictureWanted(tab == 1 ? QStringLiteral("showteameditor") : QStringLiteral("showctfflags"));
    });
    platform::AttachNumericBox(ui.Text14, platform::FixedRule(0, 50, "1"));
    platform::AttachNumericBox(ui.Text16, platform::FixedRule(0, 50, "1"));

    connect(ui.Command8, &QPushButton::clicked, this, [this] { moveSelectedBots(ui.List4, ui.List5); });
    connect(ui.Command9, &QPushButton::clicked, this, [this] { moveSelectedBots(ui.List4, ui.List6); });
    connect(ui.Command6, &QPushButton::clicked, this, [this] { moveSelectedBots(ui.List5, ui.List4); });
    connect(ui.Command7, &QPushButton::clicked, this, [this] { moveSelectedBots(ui.List6, ui.List4); });
    connect(ui.Command14, &QPushButton::clicked, this, [this] { moveAllBots(ui.List4, ui.List5); });
    connect(ui.Command12, &QPushButton::clicked, this, [this] { moveAllBots(ui.List4, ui.List6); });
    connect(ui.Command11, &QPushButton::clicked, this, [this] { moveAllBots(ui.List5, ui.List4); });
    connect(ui.Command13, &QPushButton::clicked, this, [this] { moveAllBots(ui.List6, ui.List4); });
    connect(ui.Command10, &QPushButton::clicked, this, &CTFflagsPage::teamListsWanted);
}

void CTFflagsPage::limitBotsPerHuman(std::function<double()> players)
{
    platform::AttachNumericBox(ui.Text15, {0, std::move(players), QStringLiteral("1"), {QStringLiteral("000"), QStringLiteral("00")}});
}

// Automatic teams leave no room for the special teams; the values stay, so
// that they count again once the box is cleared.
void CTFflagsPage::showAutoTeams(bool on)
{
    ui.Text14->setEnabled(on);
    ui.Check45->setEnabled(!on);
    ui.Check46->setEnabled(!on);
    ui.Text15->setEnabled(!on && ui.Check46->isChecked());
}

void CTFflagsPage::enter(bool specificBots)
{
    if (specificBots) {
        ui.Check38->setEnabled(true);
        ui.SSTab2->setTabEnabled(1, ui.Check38->isChecked());
    } else {
        ui.Check38->setEnabled(false);
        ui.Check38->setChecked(false);
        ui.SSTab2->setTabEnabled(1, false);
    }
    ui.SSTab2->setTabEnabled(0, true);
    ui.SSTab2->setCurrentIndex(0);
}

void CTFflagsPage::startTeamLists(const QStringList& chosenBots)
{
    ui.List4->clear();
    ui.List5->clear();
    ui.List6->clear();
    ui.List4->addItems(chosenBots);
}

// No duplicate test anywhere: the lists hold what the moves put there.
void CTFflagsPage::moveSelectedBots(QListWidget* from, QListWidget* to)
{
    if (from->currentRow() == -1)
        return;
    QStringList moving;
    for (int i = 0; i < from->count(); ++i)
        if (from->item(i)->isSelected())
            moving << from->item(i)->text();
    to->addItems(moving);
    for (int i = from->count() - 1; i >= 0; --i)
        if (from->item(i)->isSelected())
            delete from->takeItem(i);
}

void CTFflagsPage::moveAllBots(QListWidget* from, QListWidget* to)
{
    if (from->count() == 0)
        return;
    QStringList all;
    for (int i = 0; i < from->count(); ++i)
        all << from->item(i)->text();
    to->addItems(all);
    from->clear();
}

torvik::DMFlagBoxes CTFflagsPage::flagBoxes() const
{
    return {{27, ui.Check27->isChecked()}, {28, ui.Check28->isChecked()}, {29, ui.Check29->isChecked()}};
}

void CTFflagsPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.captureLimitOn = ui.Check37->isChecked();
    in.captureLimit = ui.Text16->text();
    in.ctfAutoTeams = ui.Check36->isChecked();
    in.ctfTeamSize = ui.Text14->text();
    in.specialTeams = ui.Check46->isChecked();
    in.specialTeamsBots = ui.Text15->text();
    in.humanOnlyTeams = ui.Check45->isChecked();
    in.specificTeams = ui.Check38->isChecked();
    for (int i = 0; i < ui.List5->count(); ++i)
        in.redBots << ui.List5->item(i)->text();
    for (int i = 0; i < ui.List6->count(); ++i)
        in.blueBots << ui.List6->item(i)->text();
    in.teamChoice = ui.Combo7->currentIndex();
    in.dmflags.merge(flagBoxes());
}

void CTFflagsPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveChecks(saved, {ui.Check27, ui.Check28, ui.Check29, ui.Check36, ui.Check37, ui.Check38, ui.Check45, ui.Check46});
    saveTexts(saved, {ui.Text16}, {}, true);
    saveTexts(saved, {ui.Text14, ui.Text15});
    saved.teamChoice = ui.Combo7->currentIndex();
    saved.redBots.clear();
    saved.blueBots.clear();
    for (int i = 0; i < ui.List5->count(); ++i)
        saved.redBots << ui.List5->item(i)->text();
    for (int i = 0; i < ui.List6->count(); ++i)
        saved.blueBots << ui.List6->item(i)->text();
}

// Only bots that are chosen go into the team lists: a file read where no bot
// was chosen brings fragments of other fields, which no bot is called.
void CTFflagsPage::restoreAnswersFrom(const datafile::SavedAnswers& saved, const QStringList& chosenBots)
{
    restoreChecks(saved, {ui.Check27, ui.Check28, ui.Check29, ui.Check36, ui.Check37, ui.Check38, ui.Check45,
                          ui.Check46});
    restoreTexts(saved, {ui.Text16}, {}, true);
    restoreTexts(saved, {ui.Text14, ui.Text15});
    chooseRow(ui.Combo7, saved.teamChoice);
    ui.List4->clear();
    ui.List5->clear();
    ui.List6->clear();
    for (const QString& name : saved.redBots)
        if (chosenBots.contains(name))
            ui.List5->addItem(name);
    for (const QString& name : saved.blueBots)
        if (chosenBots.contains(name))
            ui.List6->addItem(name);
    for (const QString& name : chosenBots)
        if (!saved.redBots.contains(name) && !saved.blueBots.contains(name))
            ui.List4->addItem(name);
}

} // namespace pages
