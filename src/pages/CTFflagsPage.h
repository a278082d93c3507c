#pragma once
#include "command/DMFlagsRules.h"
#include "ui_CTFflagsPage.h"

#include <QWidget>

#include <functional>

namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

// Capture the Flag: its flags and limits on the first tab, and on the second
// the chosen bots put into the red and the blue team.
class CTFflagsPage : public QWidget {
    Q_OBJECT
public:
    explicit CTFflagsPage(QWidget* parent = nullptr);

    Ui::CTFflagsPage ui;

    // The answers a data file keeps, and putting them back from one; the
    // team lists are made of the bots chosen.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved, const QStringList& chosenBots);

    // The bots per human may not pass the number of players, read off the
    // players box at the moment of typing.
    void limitBotsPerHuman(std::function<double()> players);
    // Entering the page: team assignment exists only for hand-picked bots.
    void enter(bool specificBots);
    // The team lists start again: every chosen bot unassigned, no team.
    void startTeamLists(const QStringList& chosenBots);

    // The three CTF boxes of the dmflags number.
    torvik::DMFlagBoxes flagBoxes() const;
    void readAnswersInto(torvik::ComposerInput& in) const;

signals:
    void flagsChanged();
    // Refresh: the team lists are to start again from the chosen bots.
    void teamListsWanted();
    // The help picture of the tab in front.
    void pictureWanted(const QString& key);

private:
    void showAutoTeams(bool on);
    void moveSelectedBots(QListWidget* from, QListWidget* to);
    void moveAllBots(QListWidget* from, QListWidget* to);
};

} // namespace pages
