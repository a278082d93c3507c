#pragma once
#include "ui_CTFflagsPage.h"

#include <QWidget>

namespace pages {

class CTFflagsPage : public QWidget {
    Q_OBJECT
public:
    explicit CTFflagsPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::CTFflagsPage ui;
};

} // namespace pages
