#pragma once
#include "ui_StartMapPage.h"

#include <QWidget>

namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

// The starting map: the tree of the maps the game type can start on, the
// chosen map, the random pick, and the map cycle to put in force at Start.
class StartMapPage : public QWidget {
    Q_OBJECT
public:
    explicit StartMapPage(QWidget* parent = nullptr);

    Ui::StartMapPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);
    // 1 asks the next addMaps to leave the chosen map as it is.
    int KeepMapLabel = 0;
    // The text of the node last clicked in the tree.
    QString SelectedNodeText;

    // Builds the tree of the game type, works out the map and refills the
    // list of map cycles. A game install without "baseq2/maps" gets that
    // folder and a second run; one without "baseq2" keeps the tree as far as
    // it got, silently. Anything else that stops the scan can't be cured by a
    // folder and ends the program.
    void addMaps();
    // The map a game type starts on unless the user picks another.
    void showDefaultMap(const QString& gameTypeCode);

    QString chosenMap() const;
    // The map cycle chosen, and the list's first row, which keeps maps.txt.
    QString chosenCycle() const;
    QString firstCycleRow() const;

    void readAnswersInto(torvik::ComposerInput& in) const;

private:
    bool addMapsOnce(QString* failure);
    void loadMapCycles();
    void refreshMaps();
    void pickRandomMap();
};

} // namespace pages
