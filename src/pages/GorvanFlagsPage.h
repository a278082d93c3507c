#pragma once
#include "ui_GorvanFlagsPage.h"

#include <QWidget>

namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

// The flags of the Gorvan bots: their skill, chat, lag and free places.
class GorvanFlagsPage : public QWidget {
    Q_OBJECT
public:
    explicit GorvanFlagsPage(QWidget* parent = nullptr);

    Ui::GorvanFlagsPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);

    // Tarzan bots swing on the grappling hook, which only CTF games have.
    void allowTarzan(bool ctf);

    void readAnswersInto(torvik::ComposerInput& in) const;

private:
    void showSkillName(int skill);
};

} // namespace pages
