#pragma once
#include "ui_PlayerSetupPage.h"

#include <QWidget>

namespace torvik {
struct ComposerInput;
}

namespace pages {

// The player's name, hand, crosshair, model and skin; each is sent only
// while its box is ticked.
class PlayerSetupPage : public QWidget {
    Q_OBJECT
public:
    explicit PlayerSetupPage(QWidget* parent = nullptr);

    Ui::PlayerSetupPage ui;

    void readAnswersInto(torvik::ComposerInput& in) const;
};

} // namespace pages
