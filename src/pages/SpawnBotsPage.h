#pragma once
#include "ui_SpawnBotsPage.h"

#include <QWidget>

namespace platform {
class Timer;
}
namespace torvik {
struct ComposerInput;
}

namespace datafile {
struct SavedAnswers;
}
namespace pages {

class StoreRowsModel;

// The bots to play against: an amount of random bots, or bots picked from
// bots.cfg in one of two views of the same selection, the report view with
// its ticks or the plain name list.
class SpawnBotsPage : public QWidget {
    Q_OBJECT
public:
    explicit SpawnBotsPage(QWidget* parent = nullptr);

    Ui::SpawnBotsPage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);
    // Defers the counter's update after the name list's selection changed.
    platform::Timer* Timer2;
    // 1-based row last clicked in the report view; 0 before any click.
    int ListCurrentBot = 0;

    // Reads the bots into both views, with the progress told while
    // ShowBotProgress is 1; the selection starts empty.
    void loadBots();
    // Ticks the report view's rows of the chosen bots, and counts them.
    void markChosenBots();
    // Leaving the page with the amount emptied makes it "0".
    void settleEmptyAmount();

    bool specificBots() const;
    // The counter's caption: how many bots are chosen.
    QString chosenCount() const;
    int listedBotCount() const;
    // The chosen bots' names, in list order.
    QStringList chosenBots() const;

    void readAnswersInto(torvik::ComposerInput& in) const;

signals:
    void loadBegun();
    void loadProgressed(int value, int maximum);
    void loadEnded();

private:
    void showBotMode();
    void followAmount();
    void followSlider();
    void showExtendedView(bool extended);
    void showBotCounter();
    void toggleBotMark();
    void examineBot();
    void refreshBots();

    // True while the amount sets the slider, which must not set it back.
    bool tyingAmount_ = false;
    // The listed bots, which both views show.
    StoreRowsModel* botRows_;
};

} // namespace pages
