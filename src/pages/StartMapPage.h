#pragma once
#include "ui_StartMapPage.h"

#include <QWidget>

namespace pages {

class StartMapPage : public QWidget {
    Q_OBJECT
public:
    explicit StartMapPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::StartMapPage ui;
};

} // namespace pages
