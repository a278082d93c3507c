#pragma once
// Opens or deletes a map cycle for the cycle editor: "Current Map Cycle"
// (the mod's maps.txt) or one of the saved cycles.
#include "ui_MapLoadForm.h"

#include <QDialog>
#include <QStringList>

namespace torvik {

class MapLoadForm : public QDialog {
    Q_OBJECT
public:
    explicit MapLoadForm(QWidget* parent = nullptr);

    Ui::MapLoadForm ui;

    // After an accepted OK: the cycle's title ("Maps.txt" for the mod's own
    // file) and its maps.
    QString loadedTitle;
    QStringList loadedMaps;

private:
    void openChosenCycle();
    void deleteChosenCycle();
    void listCycles();
};

} // namespace torvik
