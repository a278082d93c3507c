#pragma once
#include "ui_PlayerSetupPage.h"

#include <QWidget>

namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

// The player's name, hand, crosshair, model and skin; each is sent only
// while its box is ticked.
class PlayerSetupPage : public QWidget {
    Q_OBJECT
public:
    explicit PlayerSetupPage(QWidget* parent = nullptr);

    Ui::PlayerSetupPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);

    void readAnswersInto(torvik::ComposerInput& in) const;
};

} // namespace pages
