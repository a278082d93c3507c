#pragma once
#include "ui_CustomForm.h"

#include <QDialog>
#include <QList>

namespace torvik {
struct CustomOption;
}

namespace custom {

// The user's own game switches: TreeView2 shows them with their on/off
// state, TreeView1 shadows it node for node with the command and value.
class CustomForm : public QDialog {
    Q_OBJECT
public:
    explicit CustomForm(QWidget* parent = nullptr) : QDialog(parent) { ui.setupUi(this); }
    Ui::CustomForm ui;

    // Node by node in the order of both trees: whether the node is on, and
    // the text of its shadow.
    QList<torvik::CustomOption> commandOptions() const;
};

} // namespace custom
