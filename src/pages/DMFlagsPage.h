#pragma once
#include "command/DMFlagsRules.h"
#include "ui_DMFlagsPage.h"

#include <QWidget>

namespace custom {
class CustomForm;
}
namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

class AdvancedForm;

// The flags of the game, its limits, and the ways to the multiplayer and
// custom options.
class DMFlagsPage : public QWidget {
    Q_OBJECT
public:
    explicit DMFlagsPage(QWidget* parent = nullptr);

    Ui::DMFlagsPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);

    // The two forms that the page's buttons open; they live as long as the
    // wizard, hidden in between.
    void setOptionForms(AdvancedForm* advanced, custom::CustomForm* customOptions);

    // The frame's title shows the flags' number; in a CTF game the CTF
    // page's boxes count too.
    void showFlagsNumber(const torvik::DMFlagBoxes& ctfBoxes, bool ctf);
    // The number of players as typed, 0 when there is none.
    double maxPlayers() const;

    torvik::DMFlagBoxes flagBoxes() const;
    void readAnswersInto(torvik::ComposerInput& in) const;

signals:
    void flagsChanged();

private:
    AdvancedForm* advanced_ = nullptr;
    custom::CustomForm* custom_ = nullptr;
};

} // namespace pages
