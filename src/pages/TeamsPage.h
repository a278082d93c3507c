#pragma once
#include "ui_TeamsPage.h"

#include <QWidget>

namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

class StoreRowsModel;

// The team game: the user's own team, the teams to fight in two views of one
// selection, and the largest team size. The own team can never be chosen as
// an opponent.
class TeamsPage : public QWidget {
    Q_OBJECT
public:
    explicit TeamsPage(QWidget* parent = nullptr);

    Ui::TeamsPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);
    // 1-based row last clicked in the report view; 0 before any click.
    int ListCurrentTeam = 0;

    // Reads the teams of bots.cfg into the views and the own-team box.
    void loadTeams();

    void readAnswersInto(torvik::ComposerInput& in) const;

signals:
    // bots.cfg has nothing behind "[teams]": there is no team game to play.
    void noTeamsFound();

private:
    void showTeamView(bool extended);
    void markChosenTeams();
    void toggleTeamMark();
    void takeClickedTeam();
    void markDoubleClickedTeam();
    void dropOwnTeam();
    void refreshTeams();
    // Whether a row of the name list is the user's own team.
    bool isOwnTeam(int row) const;

    // The teams of bots.cfg, which both views show.
    StoreRowsModel* teamRows_;
};

} // namespace pages
