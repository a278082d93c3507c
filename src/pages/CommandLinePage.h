#pragma once
#include "ui_CommandLinePage.h"

#include <QWidget>

namespace pages {

// The composed command, for an expert to edit before the launch.
class CommandLinePage : public QWidget {
    Q_OBJECT
public:
    explicit CommandLinePage(QWidget* parent = nullptr) : QWidget(parent) { ui.setupUi(this); }

    Ui::CommandLinePage ui;

    // The box shows lines; the command keeps CR LF, which its split counts.
    void showCommand(const QString& command);
    QString command() const;
};

} // namespace pages
