#pragma once
#include "ui_PreferencesPage.h"

#include <QWidget>

namespace torvik {

// Where the game and the mod lie: read from the location files at start-up,
// and set by choosing their folders. The page is a layer over the wizard's
// pages; the main form opens and leaves it.
class PreferencesPage : public QWidget {
    Q_OBJECT
public:
    explicit PreferencesPage(QWidget* parent = nullptr);

    Ui::PreferencesPage ui;
    // 1 once the game folder was chosen; a later choice means another game.
    int DirPrimed = 0;
    // 1 when the user picked the game's executable from the list of a folder.
    int ExePicked = 0;

    // The locations stored by an earlier run, the game's first. True when
    // both can be used; otherwise the user has been told which is missing.
    bool readStoredLocations();
    // On opening: the choosers show the folders of locations that are set.
    void showStoredFolders();

signals:
    // A location was just checked: found and stored, or not found.
    void locationChecked(bool found);

private:
    void chooseGameFolder();
    void checkGameFolder();
    void checkModFolder();
};

} // namespace torvik
