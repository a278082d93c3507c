#pragma once
#include "ui_AllDonePage.h"

#include <QWidget>

namespace pages {

class AllDonePage : public QWidget {
    Q_OBJECT
public:
    explicit AllDonePage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::AllDonePage ui;
};

} // namespace pages
