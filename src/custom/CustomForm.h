#pragma once
#include "ui_CustomForm.h"

#include <QDialog>
#include <QList>

namespace torvik {
struct CustomOption;
}
namespace datafile {
struct FlagState;
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

    bool hasNodes() const;
    // The flags' names and states in tree order, categories left out.
    QList<datafile::FlagState> flagStates() const;
    // Each state goes to the first flag of its name; names no flag has are
    // passed over.
    void applyFlagStates(const QList<datafile::FlagState>& states);
};

} // namespace custom
