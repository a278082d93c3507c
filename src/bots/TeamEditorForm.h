#pragma once
// The team editor: the teams of bots.cfg in a list to add to, change, delete
// from or clear, and a save that rewrites the file with them.
#include "bots/BotStore.h"
#include "ui_TeamEditorForm.h"

#include <QByteArray>
#include <QDialog>

namespace platform {
class Timer;
}

namespace torvik {

class TeamEditForm;

class TeamEditorForm : public QDialog {
    Q_OBJECT
public:
    explicit TeamEditorForm(QWidget* parent = nullptr);

    Ui::TeamEditorForm ui;
    platform::Timer* Timer1 = nullptr;
    // The one-team form, kept hidden while this one is open: a save takes
    // the bots' rows from its list.
    TeamEditForm* TeamEditor1 = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void loadTeams();
    void addTeam();
    void editTeam();
    void deleteTeam();
    void clearTeams();
    void saveTeams();
    QTreeWidgetItem* chosenTeam() const;
    static void showTeam(QTreeWidgetItem* item, const TeamRecord& team);

    // bots.cfg as this editor read it, to tell a change made meanwhile by
    // another program before a save would replace it.
    QByteArray readFile_;
};

} // namespace torvik
