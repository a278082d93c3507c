#include "bots/TeamEditorForm.h"

#include "bots/TeamEditForm.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Timer.h"

#include <QKeyEvent>

namespace torvik {

TeamEditorForm::TeamEditorForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    ui.ListView1->setSortingEnabled(false);
    ui.ListView1->setHeaderLabels({QStringLiteral("Team Name(s)"), QStringLiteral("Abb."),
                                   QStringLiteral("Model/Skin"), QStringLiteral("Team Members")});
    TeamEditor1 = new TeamEditForm(this);
    ui.ListView1->installEventFilter(this);

    connect(ui.Command2, &QPushButton::clicked, this, &TeamEditorForm::addTeam);
    connect(ui.Command3, &QPushButton::clicked, this, &TeamEditorForm::editTeam);
    connect(ui.ListView1, &QTreeWidget::itemDoubleClicked, this, &TeamEditorForm::editTeam);
    connect(ui.Command4, &QPushButton::clicked, this, &TeamEditorForm::deleteTeam);
    connect(ui.Command6, &QPushButton::clicked, this, &TeamEditorForm::clearTeams);
    connect(ui.Command1, &QPushButton::clicked, this, &TeamEditorForm::saveTeams);
    connect(ui.Command5, &QPushButton::clicked, this, &QDialog::reject);

    // The file is read once the form is on screen, so that a failed read's
    // messages and rescue come over the editor.
    Timer1 = new platform::Timer(this, 1, true);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    connect(Timer1, &platform::Timer::timeout, this, &TeamEditorForm::loadTeams);
}

bool TeamEditorForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui.ListView1 && event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
        deleteTeam();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void TeamEditorForm::showTeam(QTreeWidgetItem* item, const TeamRecord& team)
{
    item->setText(0, team.Name);
    item->setText(1, team.Abbreviation);
    item->setText(2, team.ModelSkin);
    item->setText(3, team.Members);
}

void TeamEditorForm::loadTeams()
{
    Timer1->setEnabled(false);
    ui.ListView1->clear();
    // A file already found bad is read again here, and its failure told again:
    // the user asked for this editor.
    if (BotFileErrorFlag == 1) {
        platform::beep();
        platform::msgBox(QStringLiteral("Error: Couldn't load teams!"));
        if (RestoreBotsCfgHook)
            RestoreBotsCfgHook();
        reject();
        return;
    }
    readFile_.clear();
    platform::readFile(botsFilePath(), readFile_);
    if (!GetNewTeams()) {
        reject();
        return;
    }
    if (TeamsSectionLines == 0)
        platform::msgBox(QStringLiteral("No teams found."));
    QList<QTreeWidgetItem*> items;
    items.reserve(qsizetype(Teams.size()));
    for (const TeamRecord& team : Teams)
        items << new QTreeWidgetItem(QStringList{team.Name, team.Abbreviation, team.ModelSkin, team.Members});
    ui.ListView1->addTopLevelItems(items);
    if (QTreeWidgetItem* first = ui.ListView1->topLevelItem(0))
        ui.ListView1->setCurrentItem(first);
    if (!TeamEditor1->listBots())
        reject();
}

QTreeWidgetItem* TeamEditorForm::chosenTeam() const
{
    const QList<QTreeWidgetItem*> rows = ui.ListView1->selectedItems();
    return rows.isEmpty() ? nullptr : rows.first();
}

void TeamEditorForm::addTeam()
{
    TeamsText.clear();
    if (!TeamEditor1->listBots())
        return;
    TeamEditor1->startNewTeam();
    TeamEditIndex = QStringLiteral("GREAT");
    if (TeamEditor1->exec() != QDialog::Accepted)
        return;
    auto* item = new QTreeWidgetItem(ui.ListView1);
    showTeam(item, TeamEditor1->editedTeam());
}

void TeamEditorForm::editTeam()
{
    QTreeWidgetItem* item = chosenTeam();
    if (ui.ListView1->topLevelItemCount() == 0 || !item)
        return;
    TeamsText.clear();
    if (!TeamEditor1->listBots())
        return;
    TeamEditor1->startEditing(TeamRecord{item->text(0), item->text(1), item->text(2), item->text(3)});
    TeamEditIndex = QString::number(ui.ListView1->indexOfTopLevelItem(item) + 1);
    if (TeamEditor1->exec() == QDialog::Accepted)
        showTeam(item, TeamEditor1->editedTeam());
}

void TeamEditorForm::deleteTeam()
{
    if (ui.ListView1->topLevelItemCount() == 0)
        return;
    QTreeWidgetItem* item = chosenTeam();
    if (!item || item->text(0).isEmpty()) {
        platform::msgBox(QStringLiteral("Can't delete team.  Not team selected!"));
        return;
    }
    delete item;
}

void TeamEditorForm::clearTeams()
{
    if (platform::msgBox(QStringLiteral("Are you sure you want to clear the entire team list?"),
                         platform::Buttons::YesNo, platform::Icon::Question,
                         QStringLiteral("Clear Entire Team List"))
        == platform::Answer::Yes)
        ui.ListView1->clear();
}

// A refused write leaves bots.cfg as it was and the list as it is, for
// another try or an Exit.
void TeamEditorForm::saveTeams()
{
    QByteArray onDisk;
    platform::readFile(botsFilePath(), onDisk);
    if (onDisk != readFile_
        && platform::msgBox(QStringLiteral("bots.cfg has been changed by another program since the Team Editor read it. "
                                           "Saving now replaces that change. Save anyway?"),
                            platform::Buttons::YesNo, platform::Icon::Exclamation, QStringLiteral("Team Editor"))
               != platform::Answer::Yes)
        return;
    std::vector<TeamRecord> teams;
    for (int row = 0; row < ui.ListView1->topLevelItemCount(); ++row) {
        const QTreeWidgetItem* item = ui.ListView1->topLevelItem(row);
        teams.push_back(TeamRecord{item->text(0), item->text(1), item->text(2), item->text(3)});
    }
    if (SaveFile(TeamEditor1->botsToSave(), teams))
        accept();
}

} // namespace torvik
