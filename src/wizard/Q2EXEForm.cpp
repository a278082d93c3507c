#include "wizard/Q2EXEForm.h"

#include "wizard/Globals.h"

namespace torvik {

Q2EXEForm::Q2EXEForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.File1, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        ExePicked = 1;
        emit picked(ui.File1->row(item));
        accept();
    });
    connect(ui.Command1, &QPushButton::clicked, this, [this] {
        ExePicked = 0;
        reject();
    });
}

} // namespace torvik
