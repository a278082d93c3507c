#pragma once
#include "ui_Q2EXEForm.h"

#include <QDialog>

namespace torvik {

// Asks which executable of the chosen folder is the game; accepted when one
// was double-clicked, rejected by "None" and by the close box.
class Q2EXEForm : public QDialog {
    Q_OBJECT
public:
    explicit Q2EXEForm(QWidget* parent = nullptr);
    Ui::Q2EXEForm ui;

protected:
    // Enter picks the highlighted file, as a double click does; "None" is
    // never the default button.
    void keyPressEvent(QKeyEvent* event) override;

signals:
    // The row that was double-clicked.
    void picked(int row);
};

} // namespace torvik
