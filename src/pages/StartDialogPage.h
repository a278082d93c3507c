#pragma once
#include "ui_StartDialogPage.h"

#include <QWidget>

namespace pages {

class StartDialogPage : public QWidget {
    Q_OBJECT
public:
    explicit StartDialogPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::StartDialogPage ui;
};

} // namespace pages
