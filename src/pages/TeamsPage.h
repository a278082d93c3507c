#pragma once
#include "ui_TeamsPage.h"

#include <QWidget>

namespace pages {

class TeamsPage : public QWidget {
    Q_OBJECT
public:
    explicit TeamsPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::TeamsPage ui;
};

} // namespace pages
