#pragma once
#include <QWidget>

class QAction;
class QMenu;

namespace custom {

// The hidden form that holds the pop-up menu of the custom options tree.
class MenuForm : public QWidget {
    Q_OBJECT
public:
    explicit MenuForm(QWidget* parent = nullptr);

    QMenu* menudm;
    QAction* AddCatergory;
    QAction* AddSubCatergory;
    QAction* AddFlag;
    QAction* AddSubFlag;
    QAction* Edit;
    QAction* Remove;
    QAction* ExpandAll;
    QAction* CloseAll;
    QAction* Refresh;
    QAction* ClearAll;
    QAction* SaveScript;
};

} // namespace custom
