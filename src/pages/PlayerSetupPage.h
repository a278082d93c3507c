#pragma once
#include "ui_PlayerSetupPage.h"

#include <QWidget>

namespace pages {

class PlayerSetupPage : public QWidget {
    Q_OBJECT
public:
    explicit PlayerSetupPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::PlayerSetupPage ui;
};

} // namespace pages
