#pragma once
#include "ui_CommandLinePage.h"

#include <QWidget>

namespace pages {

// The composed command, for an expert to edit before the launch.
class CommandLinePage : public QWidget {
    Q_OBJECT
public:
    explicit CommandLinePage(QWidget* parent = nullptr);

    Ui::CommandLinePage ui;

    // The box shows lines; the command keeps CR LF, which its split counts.
    // `dedicated` is where the split falls.
    void showCommand(const QString& command, bool dedicated);
    QString command() const;

private:
    // Says beside the command how many bots the game would not get.
    void showBotLimitWarning();

    bool dedicated_ = false;
};

} // namespace pages
