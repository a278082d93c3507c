#pragma once
#include "ui_CustomForm.h"

#include <QDialog>

namespace custom {

// The user's own game switches: TreeView2 shows them with their on/off
// state, TreeView1 shadows it node for node with the command and value.
class CustomForm : public QDialog {
    Q_OBJECT
public:
    explicit CustomForm(QWidget* parent = nullptr) : QDialog(parent) { ui.setupUi(this); }
    Ui::CustomForm ui;
};

} // namespace custom
