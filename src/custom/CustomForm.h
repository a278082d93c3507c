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
namespace platform {
class Timer;
}

namespace custom {

class MenuForm;

// The user's own game switches, read from Script.TK: TreeView2 shows them
// with their on/off state, TreeView1 shadows it node for node with the
// command and value. Nodes count in the order they were added, which keeps
// a parent before its children.
class CustomForm : public QDialog {
    Q_OBJECT
public:
    explicit CustomForm(QWidget* parent = nullptr);
    Ui::CustomForm ui;
    MenuForm* Menu;
    // Rename the last node, or the older of two flags, while names collide.
    platform::Timer* Timer1;
    platform::Timer* Timer2;

    // Node by node: whether the node is on, and the text of its shadow.
    QList<torvik::CustomOption> commandOptions() const;

    bool hasNodes() const;
    // The flags' names and states in node order, categories left out.
    QList<datafile::FlagState> flagStates() const;
    // Each state goes to the first flag of its name; names no flag has are
    // passed over.
    void applyFlagStates(const QList<datafile::FlagState>& states);

    // Both trees anew from Script.TK; a missing or damaged file gives what
    // could be read, without a word.
    void readScript();
    // Both trees back to Script.TK; false after telling the user it failed.
    bool saveScript();

    // Closing the form, by its button or its close box, saves the script.
    void done(int result) override;

private:
    QTreeWidgetItem* addNode(QTreeWidgetItem* parent, const QString& name, int image, const QString& shadowText);
    qsizetype indexOf(const QTreeWidgetItem* shown) const;
    void clearTrees();
    void updateMenu();
    void collapseEmptyCategories();
    void checkLastCategoryName();
    void checkLastFlagName();
    void renameLastCategory();
    void renameOlderFlag();
    void toggleFlag(QTreeWidgetItem* item);
    void showImage(QTreeWidgetItem* item);
    void popUpMenu(const QPoint& at);
    void addCategory(bool below);
    void openFlagForm(int mode);
    void editSelected();
    void removeSelected();
    void setAllExpanded(bool expanded);
    void eraseAll();
    void takeEditedName(QTreeWidgetItem* item);

    QList<QTreeWidgetItem*> shown_;
    QList<QTreeWidgetItem*> shadow_;
    // The next label edit names a node just added: the last one.
    bool newNode_ = false;
    // Changes made here are no label edits of the user.
    bool quiet_ = false;
    // Script.TK had lines past the last one read: the next save keeps them.
    bool partlyRead_ = false;
};

} // namespace custom
