#pragma once
#include "ui_GorvanFlagsPage.h"

#include <QWidget>

namespace pages {

class GorvanFlagsPage : public QWidget {
    Q_OBJECT
public:
    explicit GorvanFlagsPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::GorvanFlagsPage ui;
};

} // namespace pages
