#pragma once
#include "ui_AllDonePage.h"

#include <QList>
#include <QWidget>

#include <functional>

namespace platform {
class Timer;
}

namespace datafile {
struct SavedAnswers;
struct FlagState;
}
namespace pages {

class StartMapPage;

// The last page: the configuration file made of the command, the offer to
// save the answers, and Start.
class AllDonePage : public QWidget {
    Q_OBJECT
public:
    explicit AllDonePage(QWidget* parent = nullptr);

    Ui::AllDonePage ui;

    // The answers a data file keeps, and putting them back from one.
    void saveAnswersInto(datafile::SavedAnswers& saved) const;
    void restoreAnswersFrom(const datafile::SavedAnswers& saved);
    // Enables Start a moment after the configuration was written.
    platform::Timer* Timer6;
    // The head of the command, cut out of it on entering the page.
    QString LaunchHead;

    // Where Start finds the map and the map cycle chosen.
    void setStartMap(const StartMapPage* startMap);

    // Entering the page: the configuration of an earlier pass and a
    // "launcher.cfg" must go. False after telling the user and ending the
    // program, when one of them can't.
    bool removeOldConfiguration();
    // The head of the command stays for Start, the rest becomes "asdf.cfg"
    // in the program folder and in the game's "baseq2"; Start is enabled
    // 1500 ms later.
    void prepareLaunch(const QString& command, bool dedicated);
    // Going back: Start waits for the next preparation.
    void holdStart();
    // What Start saves when asked: the answers of every page, and the
    // custom flags' states for the companion.
    void setSaveSources(std::function<datafile::SavedAnswers()> answers,
                        std::function<QList<datafile::FlagState>()> flags);

private:
    void showSaveChoice(bool save);
    void saveDataFile();
    void startGame();
    void offerToRemoveHomeConfigs();

    const StartMapPage* startMap_ = nullptr;
    std::function<datafile::SavedAnswers()> answers_;
    std::function<QList<datafile::FlagState>()> flags_;
    // The user is asked about stale configurations once a run.
    bool homeConfigsAsked_ = false;
};

} // namespace pages
