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
    // The bar repaints by itself when its shown percentage moves; a read of
    // thousands of rows costs a hundred paints at most.
    if (ui.ProgressBar1->maximum() != maximum)
        ui.ProgressBar1->setRange(0, maximum);
    ui.ProgressBar1->setValue(value);
}

} // namespace torvik
