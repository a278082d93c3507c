#include "custom/CustomForm.h"

#include "command/Composer.h"

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

} // namespace custom
