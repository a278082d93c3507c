#pragma once
#include "ui_StartDialogPage.h"

#include <QWidget>

namespace pages {

// The welcome page and its links.
class StartDialogPage : public QWidget {
    Q_OBJECT
public:
    explicit StartDialogPage(QWidget* parent = nullptr);

    Ui::StartDialogPage ui;

private:
    void startUpdateWizard();
};

} // namespace pages
