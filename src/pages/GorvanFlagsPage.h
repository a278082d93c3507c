#pragma once
#include "ui_GorvanFlagsPage.h"

#include <QWidget>

namespace torvik {
struct ComposerInput;
}

namespace pages {

// The flags of the Gorvan bots: their skill, chat, lag and free places.
class GorvanFlagsPage : public QWidget {
    Q_OBJECT
public:
    explicit GorvanFlagsPage(QWidget* parent = nullptr);

    Ui::GorvanFlagsPage ui;

    // Tarzan bots swing on the grappling hook, which only CTF games have.
    void allowTarzan(bool ctf);

    void readAnswersInto(torvik::ComposerInput& in) const;

private:
    void showSkillName(int skill);
};

} // namespace pages
