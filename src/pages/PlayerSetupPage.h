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
// while its box is ticked. Models and skins are found on disk each time the
// model box is ticked, never stored.
class PlayerSetupPage : public QWidget {
    Q_OBJECT
public:
    explicit PlayerSetupPage(QWidget* parent = nullptr);

    Ui::PlayerSetupPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);

    void readAnswersInto(torvik::ComposerInput& in) const;

private:
    void useModelAndSkin(bool on);
    // False when the program ended over a folder it couldn't read.
    bool getModels();
    bool getSkins();
    void showSkinPictures();
    void showEnlargedSkin();
    void viewModel();

    QString playersFolder() const;
    QString modelFolder() const;
    QString skinFile(const QString& suffix) const;
};

} // namespace pages
