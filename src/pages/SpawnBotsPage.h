#pragma once
#include "ui_SpawnBotsPage.h"

#include <QWidget>

namespace pages {

class SpawnBotsPage : public QWidget {
    Q_OBJECT
public:
    explicit SpawnBotsPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::SpawnBotsPage ui;
};

} // namespace pages
