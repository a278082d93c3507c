#pragma once
// Shows a backup's text, or a factory copy's, read-only.
#include "ui_ViewFileForm.h"

#include <QDialog>

namespace backup {

class ViewFileForm : public QDialog {
    Q_OBJECT
public:
    ViewFileForm(const QByteArray& text, QWidget* parent);
    Ui::ViewFileForm ui;
};

} // namespace backup
