#include "wizard/ProgressForm.h"

namespace torvik {

ProgressForm::ProgressForm(QWidget* parent) : QWidget(parent, Qt::Tool)
{
    ui.setupUi(this);
    ui.ProgressBar1->setValue(0);
}

void ProgressForm::begin()
{
    ui.ProgressBar1->setRange(0, 100);
    ui.ProgressBar1->setValue(0);
    show();
    raise();
}

void ProgressForm::report(int value, int maximum)
{
    // Only a new whole percentage moves the bar: a read of thousands of rows
    // then costs a hundred updates, not one per row.
    const int percent = maximum > 0 ? int(qint64(value) * 100 / maximum) : 0;
    if (percent != ui.ProgressBar1->value())
        ui.ProgressBar1->setValue(percent);
}

} // namespace torvik
