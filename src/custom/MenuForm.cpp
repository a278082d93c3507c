#include "custom/MenuForm.h"

#include <QAction>
#include <QMenu>

namespace custom {

MenuForm::MenuForm(QWidget* parent) : QWidget(parent, Qt::Window)
{
    setObjectName(QStringLiteral("MenuForm"));
    menudm = new QMenu(this);
    menudm->setObjectName(QStringLiteral("menudm"));
    auto item = [this](const char* name, const char* caption) {
        QAction* a = menudm->addAction(QString::fromLatin1(caption));
        a->setObjectName(QString::fromLatin1(name));
        return a;
    };
    AddCatergory = item("AddCatergory", "Add Catergory");
    AddSubCatergory = item("AddSubCatergory", "Add Sub-Catergory");
    AddFlag = item("AddFlag", "Add Flag");
    AddSubFlag = item("AddSubFlag", "Add Sub-Flag");
    Edit = item("Edit", "Edit");
    Remove = item("Remove", "Remove");
    ExpandAll = item("ExpandAll", "Expand All");
    CloseAll = item("CloseAll", "Close All");
    Refresh = item("Refresh", "Refresh");
    ClearAll = item("ClearAll", "Clear All");
    SaveScript = item("SaveScript", "Save Script.TK");
}

} // namespace custom
