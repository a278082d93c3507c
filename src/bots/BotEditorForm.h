#pragma once
// The bot editor's list: every installed bot of bots.cfg as a working copy
// that add, edit, delete and clear change, and that only Save writes back.
#include "bots/BotStore.h"
#include "ui_BotEditorForm.h"

#include <QByteArray>
#include <QDialog>

#include <vector>

namespace platform {
class Timer;
}

namespace torvik {

// "GREAT" while the one-bot form adds a bot, else the row it edits.
inline QString EditIndex;
// 1 while Edit fills the one-bot form: its skin list then shows no pictures.
inline int EditLoading = 0;

class BotEditorForm : public QDialog {
    Q_OBJECT
public:
    explicit BotEditorForm(QWidget* parent = nullptr);

    Ui::BotEditorForm ui;
    platform::Timer* Timer1 = nullptr;

    // Whether Save wrote bots.cfg, so the pages are to read it again.
    bool botsSaved() const { return saved_; }

private:
    void loadBotList();
    void addBot();
    void editBot();
    void deleteBot();
    void clearBots();
    void saveBotList();
    bool changedElsewhere() const;
    bool eventFilter(QObject* watched, QEvent* event) override;

    // The file as the load read it: a change by another program since then
    // is told before Save replaces it.
    QByteArray readBytes_;
    bool loaded_ = false;
    // Rows of the file the list leaves out: their model or skin is missing.
    std::vector<BotRecord> unlisted_;
    bool saved_ = false;
};

} // namespace torvik
