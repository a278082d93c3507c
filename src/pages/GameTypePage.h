#pragma once
#include "ui_GameTypePage.h"

#include <QWidget>

namespace pages {

class GameTypePage : public QWidget {
    Q_OBJECT
public:
    explicit GameTypePage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::GameTypePage ui;
};

} // namespace pages
