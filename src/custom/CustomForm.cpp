#include "custom/CustomForm.h"

#include "command/Composer.h"
#include "datafile/DataFile.h"

namespace custom {
namespace {

QList<const QTreeWidgetItem*> nodesOf(const QTreeWidget* tree)
{
    QList<const QTreeWidgetItem*> nodes;
    for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(tree)); *it; ++it)
        nodes << *it;
    return nodes;
}

} // namespace

QList<torvik::CustomOption> CustomForm::commandOptions() const
{
    const QList<const QTreeWidgetItem*> shown = nodesOf(ui.TreeView2);
    const QList<const QTreeWidgetItem*> shadow = nodesOf(ui.TreeView1);
    QList<torvik::CustomOption> options;
    for (qsizetype i = 0; i < shown.size() && i < shadow.size(); ++i)
        options << torvik::CustomOption{shown[i]->data(0, Qt::UserRole).toInt() == 1, shadow[i]->text(0)};
    return options;
}

bool CustomForm::hasNodes() const { return ui.TreeView2->topLevelItemCount() > 0; }

QList<datafile::FlagState> CustomForm::flagStates() const
{
    QList<datafile::FlagState> states;
    for (const QTreeWidgetItem* node : nodesOf(ui.TreeView2)) {
        const int image = node->data(0, Qt::UserRole).toInt();
        if (image == 1 || image == 5)
            states << datafile::FlagState{node->text(0), image == 1};
    }
    return states;
}

void CustomForm::applyFlagStates(const QList<datafile::FlagState>& states)
{
    const QList<const QTreeWidgetItem*> nodes = nodesOf(ui.TreeView2);
    for (const datafile::FlagState& state : states) {
        for (const QTreeWidgetItem* node : nodes) {
            if (node->text(0) == state.name) {
                // A category keeps its image: only a flag has a state.
                const int image = node->data(0, Qt::UserRole).toInt();
                if (image == 1 || image == 5)
                    const_cast<QTreeWidgetItem*>(node)->setData(0, Qt::UserRole, state.on ? 1 : 5);
                break;
            }
        }
    }
}

} // namespace custom
