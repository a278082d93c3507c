#include "wizard/Q2EXEForm.h"

namespace torvik {

Q2EXEForm::Q2EXEForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.File1, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        emit picked(ui.File1->row(item));
        accept();
    });
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::reject);
}

} // namespace torvik
