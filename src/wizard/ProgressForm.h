#pragma once
// The small window with one progress bar that long reads show while they run.
#include "ui_ProgressForm.h"

#include <QWidget>

namespace torvik {

class ProgressForm : public QWidget {
    Q_OBJECT
public:
    explicit ProgressForm(QWidget* parent = nullptr);

    // Shows the window with the bar back at 0.
    void begin();
    // One report of the read: value of maximum.
    void report(int value, int maximum);

    Ui::ProgressForm ui;
};

} // namespace torvik
