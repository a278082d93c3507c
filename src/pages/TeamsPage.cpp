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
    teamRows_ = showStoreRows(ui.ListView2, ui.List3);
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
    connect(ui.ListView2, &QTreeView::clicked, this,
            [this](const QModelIndex& index) { ListCurrentTeam = index.row() + 1; });
    onViewMouse(ui.ListView2, [this] { toggleTeamMark(); });
    onViewSpace(ui.ListView2, [this](int row) {
        ListCurrentTeam = row + 1;
        toggleTeamMark();
    });
    connect(ui.List3->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TeamsPage::takeClickedTeam);
    connect(ui.List3, &QListView::doubleClicked, this, &TeamsPage::markDoubleClickedTeam);
    connect(ui.Combo1, &QComboBox::currentTextChanged, this, &TeamsPage::dropOwnTeam);
    connect(ui.Command4, &QPushButton::clicked, this, &TeamsPage::refreshTeams);
}

void TeamsPage::loadTeams()
{
    ui.ListView2->setSortingEnabled(false);
    teamRows_->clear();
    ui.Combo1->clear();
    if (!torvik::GetNewTeams())
        return;
    if (torvik::TeamsSectionLines == 0) {
        emit noTeamsFound();
        platform::msgBox(QStringLiteral("No teams found."));
        return;
    }
    fillTeamViews(ui.ListView2, teamRows_, torvik::Teams);
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

void TeamsPage::markChosenTeams() { markSelectedRows(teamRows_, ui.List3); }

bool TeamsPage::isOwnTeam(int row) const { return teamRows_->text(row, 0) == ui.Combo1->currentText(); }

void TeamsPage::toggleTeamMark()
{
    const int row = ListCurrentTeam - 1;
    if (row < 0 || row >= teamRows_->rowCount() || isOwnTeam(row))
        return;
    toggleMarkedRow(teamRows_, ui.List3, row);
}

void TeamsPage::takeClickedTeam()
{
    const int row = ui.List3->currentIndex().row();
    if (row >= 0 && isRowSelected(ui.List3, row) && isOwnTeam(row))
        setRowSelected(ui.List3, row, false);
    dropOwnTeam();
}

void TeamsPage::markDoubleClickedTeam()
{
    const int row = ui.List3->currentIndex().row();
    if (row < 0)
        return;
    if (isOwnTeam(row)) {
        setRowSelected(ui.List3, row, false);
        return;
    }
    teamRows_->setTicked(row, isRowSelected(ui.List3, row));
}

// The team the user joins leaves the opponents, tick and all.
void TeamsPage::dropOwnTeam()
{
    for (int i = 0; i < teamRows_->rowCount(); ++i) {
        if (!isOwnTeam(i))
            continue;
        setRowSelected(ui.List3, i, false);
        teamRows_->setTicked(i, false);
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
    for (int i = 0; i < teamRows_->rowCount(); ++i) {
        in.teamRows << teamRows_->text(i, 0);
        in.teamSelected << isRowSelected(ui.List3, i);
    }
}

void TeamsPage::saveAnswersInto(datafile::SavedAnswers& saved) const
{
    saveTexts(saved, {ui.Text2});
    saved.ownTeam = ui.Combo1->currentText();
    saved.teams = selectedRowTexts(ui.List3);
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
        const QSignalBlocker quiet(ui.List3->selectionModel());
        selectRowsNamed(ui.List3, saved.teams);
    }
    // The list's own repaint was held back with the rest.
    ui.List3->viewport()->update();
    markChosenTeams();
}

} // namespace pages
