#pragma once
#include "ui_CommandLinePage.h"

#include <QWidget>

namespace pages {

class CommandLinePage : public QWidget {
    Q_OBJECT
public:
    explicit CommandLinePage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::CommandLinePage ui;
};

} // namespace pages
