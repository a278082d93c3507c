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

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command11_Click();
    void Command12_Click();
    void Command13_Click();
    void Command14_Click();

private:
    bool GetMaps();
    void EnterIdle();
    void EnterEditing(const QString& caption);
    void SetEditing(bool editing);
    void AddToCycle(const QString& map);
    void AddToCycle(const QStringList& maps);
    int SelectedCycleRow() const;
    void SelectCycleRow(int row);
};

} // namespace torvik
