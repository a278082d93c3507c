#include "wizard/Q2EXEForm.h"

#include <QKeyEvent>

namespace torvik {

Q2EXEForm::Q2EXEForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    connect(ui.File1, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        emit picked(ui.File1->row(item));
        accept();
    });
    connect(ui.Command1, &QPushButton::clicked, this, &QDialog::reject);
    ui.Command1->setAutoDefault(false);
    ui.Command1->setDefault(false);
}

void Q2EXEForm::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && ui.File1->currentItem()) {
        emit picked(ui.File1->currentRow());
        accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace torvik
