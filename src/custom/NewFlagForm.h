#pragma once
#include "ui_NewFlagForm.h"

#include <QDialog>

namespace custom {

// Name, command, value and default state of one custom flag. OK stays on
// the form until the three texts are there.
class NewFlagForm : public QDialog {
    Q_OBJECT
public:
    explicit NewFlagForm(QWidget* parent = nullptr);
    Ui::NewFlagForm ui;

    void accept() override;
};

} // namespace custom
