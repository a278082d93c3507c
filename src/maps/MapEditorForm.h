#pragma once
// The map cycle editor: a tree of all maps on the left, the cycle being
// edited on the right, and the buttons that move maps between them. Idle it
// only offers New, Load/Delete and Exit; a cycle is open while editing.
#include "ui_MapEditorForm.h"

#include <QDialog>

namespace torvik {

class MapEditorForm : public QDialog {
    Q_OBJECT
public:
    // Reads the maps at once. When that fails the user is told and the
    // program ends (platform::programEnded() is true after the constructor).
    explicit MapEditorForm(QWidget* parent = nullptr);

    Ui::MapEditorForm ui;
    // 1 while a cycle is open.
    int CycleEditing = 0;
    QString SelectedNodeText;

private:
    void exitOrCancel();
    void loadCycle();
    void newCycle();
    void saveCycle();
    void addSelectedMap();
    void addCategoryMaps();
    void addAllMaps();
    void addRandomMap();
    void removeCycleRow();
    void clearCycle();
    void moveRowDown();
    void moveRowUp();
    bool readMaps();
    void enterIdle();
    void enterEditing(const QString& caption);
    void setEditing(bool editing);
    void addToCycle(const QString& map);
    void addToCycle(const QStringList& maps);
    int selectedCycleRow() const;
    void selectCycleRow(int row);
};

} // namespace torvik
