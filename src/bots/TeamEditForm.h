#pragma once
// One team of the team editor: its name, abbreviation, the team's own model
// and skin or none, and its members ticked in the list of installed bots.
#include "bots/BotStore.h"
#include "ui_TeamEditForm.h"

#include <QDialog>

#include <vector>

namespace torvik {

// "GREAT" while the team form adds a team; otherwise the row it edits.
inline QString TeamEditIndex;

class TeamEditForm : public QDialog {
    Q_OBJECT
public:
    explicit TeamEditForm(QWidget* parent = nullptr);

    Ui::TeamEditForm ui;

    // Reads bots.cfg's bots and lists those installed, in name order; false
    // after a failed read, which the store has told the user about.
    bool listBots();
    // The defaults of a new team, and the fields of one to change.
    void startNewTeam();
    void startEditing(const TeamRecord& team);
    // The team as Done took it.
    const TeamRecord& editedTeam() const { return edited_; }
    // The listed bots, the rows a save of the team editor writes.
    const std::vector<BotRecord>& listedBots() const { return listed_; }
    // Every bot row of the file: the listed ones in list order, then those
    // whose model or skin isn't installed, in the file's order.
    std::vector<BotRecord> botsToSave() const
    {
        std::vector<BotRecord> all = listed_;
        all.insert(all.end(), unlisted_.begin(), unlisted_.end());
        return all;
    }

private:
    void listModels();
    void listSkins();
    void takeTeam();
    void dropBlanksFromName();
    void useNoModel(bool none);
    void toggleMember(QTreeWidgetItem* item);
    void examineMember();
    bool isMember(const QTreeWidgetItem* item) const;
    void setMember(QTreeWidgetItem* item, bool member);
    static void selectRowByText(QListWidget* list, const QString& text);

    std::vector<BotRecord> listed_;
    std::vector<BotRecord> unlisted_;
    TeamRecord edited_;
    int lastMember_ = -1; // row last clicked in the member list, for the examination
};

} // namespace torvik
