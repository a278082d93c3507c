#pragma once
#include "ui_GameTypePage.h"

#include <QWidget>

namespace datafile {
struct SavedAnswers;
}
namespace pages {

// The four game types. What a choice does to the rest of the wizard (the map
// tree, the chosen map, the sequence of pages) is wired by the main form.
class GameTypePage : public QWidget {
    Q_OBJECT
public:
    explicit GameTypePage(QWidget* parent = nullptr);

    Ui::GameTypePage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);

    // "DM", "DMT" or "CTF" for the multiplayer radio that is on; empty while
    // single player is.
    QString multiplayerChoice() const;
    // A bots file without teams leaves no team game to choose.
    void disableTeamGame();

signals:
    // A game type was chosen: by a click, also on the type already chosen,
    // or set from code. One choice raises it once.
    void chosen(const QString& code);

private:
    // Set by a toggle, cleared by the press that starts a click.
    bool toggledInClick_ = false;
};

} // namespace pages
