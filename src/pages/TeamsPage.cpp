#include "pages/TeamsPage.h"

#include "bots/BotStore.h"
#include "command/Composer.h"
#include "pages/BotViews.h"
#include "platform/NumericBoxes.h"
#include "pages/SavedControls.h"
#include "platform/Dialogs.h"

#include <QSignalBlocker>

namespace pages {

TeamsPage::TeamsPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    // The two views stand at one place, one of them shown.
    clearReportColumns(ui.ListView2);
    ui.ListView2->setSortingEnabled(false);
    ui.ListView2->setSelectionMode(QAbstractItemView::SingleSelection);
    ui.ListView2->setIconSize(QSize(16, 16));

    platform::AttachNumericBox(ui.Text2, platform::FixedRule(0, 10, "0", {QStringLiteral("00")}));
    connect(ui.Option6, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            showTeamView(true);
    });
    connect(ui.Option7, &QRadioButton::toggled, this, [this](bool on) {
        if (on)
            showTeamView(false);
    });
    connect(ui.ListView2, &QTreeWidget::itemClicked, this,
            [this](QTreeWidgetItem* item) { ListCurrentTeam = ui.ListView2->indexOfTopLevelItem(item) + 1; });
    onViewMouse(ui.ListView2, [this] { toggleTeamMark(); });
    connect(ui.List3, &QListWidget::itemSelectionChanged, this, &TeamsPage::takeClickedTeam);
    connect(ui.List3, &QListWidget::itemDoubleClicked, this, &TeamsPage::markDoubleClickedTeam);
    connect(ui.Combo1, &QComboBox::currentTextChanged, this, &TeamsPage::dropOwnTeam);
    connect(ui.Command4, &QPushButton::clicked, this, &TeamsPage::refreshTeams);
}

void TeamsPage::loadTeams()
{
    ui.ListView2->setSortingEnabled(false);
    clearReportColumns(ui.ListView2);
    ui.List3->clear();
    ui.Combo1->clear();
    if (!torvik::GetNewTeams())
        return;
    if (torvik::TeamsSectionLines == 0) {
        emit noTeamsFound();
        platform::msgBox(QStringLiteral("No teams found."));
        return;
    }
    fillTeamViews(ui.ListView2, ui.List3, torvik::Teams);
    for (const torvik::TeamRecord& t : torvik::Teams)
        ui.Combo1->addItem(t.Name);
    if (ui.Combo1->count() > 0)
        ui.Combo1->setCurrentIndex(0);
}

void TeamsPage::showTeamView(bool extended)
{
    ui.ListView2->setVisible(extended);
    ui.List3->setVisible(!extended);
    markChosenTeams();
}

void TeamsPage::markChosenTeams() { markSelectedRows(ui.ListView2, ui.List3); }

void TeamsPage::toggleTeamMark()
{
    if (ListCurrentTeam < 1)
        return;
    QTreeWidgetItem* item = ui.ListView2->topLevelItem(ListCurrentTeam - 1);
    QListWidgetItem* row = ui.List3->item(ListCurrentTeam - 1);
    if (!item || !row || item->text(0) == ui.Combo1->currentText())
        return;
    toggleMarkedRow(item, row);
}

void TeamsPage::takeClickedTeam()
{
    QListWidgetItem* row = ui.List3->currentItem();
    if (row && row->isSelected()) {
        QTreeWidgetItem* item = ui.ListView2->topLevelItem(ui.List3->row(row));
        if ((item && item->text(0) == ui.Combo1->currentText()) || row->text() == ui.Combo1->currentText())
            row->setSelected(false);
    }
    dropOwnTeam();
}

void TeamsPage::markDoubleClickedTeam()
{
    QListWidgetItem* row = ui.List3->currentItem();
    if (!row)
        return;
    if (row->text() == ui.Combo1->currentText()) {
        row->setSelected(false);
        return;
    }
    if (QTreeWidgetItem* item = ui.ListView2->topLevelItem(ui.List3->row(row)))
        setIconKey(item, row->isSelected() ? kCheckKey : QString());
}

// The team the user joins leaves the opponents, tick and all.
void TeamsPage::dropOwnTeam()
{
    const QString own = ui.Combo1->currentText();
    for (int i = 0; i < ui.List3->count(); ++i) {
        QListWidgetItem* row = ui.List3->item(i);
        if (row->text() != own)
            continue;
        row->setSelected(false);
        if (QTreeWidgetItem* item = ui.ListView2->topLevelItem(i))
            setIconKey(item, QString());
    }
}

// Reading bots.cfg again loses the selection.
void TeamsPage::refreshTeams()
{
    torvik::Teams.clear();
    torvik::TeamCount = 0;
    loadTeams();
}

void TeamsPage::readAnswersInto(torvik::ComposerInput& in) const
{
    in.playersPerTeam = ui.Text2->text();
    in.ownTeam = ui.Combo1->currentText();
    for (int i = 0; i < ui.List3->count(); ++i) {
        in.teamRows << ui.List3->item(i)->text();
        in.teamSelected << ui.List3->item(i)->isSelected();
    }
}

void TeamsPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveTexts(saved, {ui.Text2});
    saved.ownTeam = ui.Combo1->currentText();
    saved.teams.clear();
    for (int i = 0; i < ui.List3->count(); ++i)
        if (ui.List3->item(i)->isSelected())
            saved.teams << ui.List3->item(i)->text();
}

// Teams that left bots.cfg since the file was saved are left out. The
// file's selection stands as saved, the own team too if it is there: a click
// would take that one out, but the file's word is the last.
void TeamsPage::restoreAnswersFrom(const datafile::SavedAnswers& saved)
{
    restoreTexts(saved, {ui.Text2});
    const int own = ui.Combo1->findText(saved.ownTeam);
    if (own >= 0)
        ui.Combo1->setCurrentIndex(own);
    {
        const QSignalBlocker quiet(ui.List3);
        selectRowsNamed(ui.List3, saved.teams);
    }
    markChosenTeams();
}

} // namespace pages
