#pragma once
#include "ui_DMFlagsPage.h"

#include <QWidget>

namespace pages {

class DMFlagsPage : public QWidget {
    Q_OBJECT
public:
    explicit DMFlagsPage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::DMFlagsPage ui;
};

} // namespace pages
