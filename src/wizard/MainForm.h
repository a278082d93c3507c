#pragma once
// The wizard's main form: tool strip, page picture and the stack of pages.
// The answers are the values of its controls.
#include "ui_MainForm.h"
#include "command/Composer.h"

#include <QWidget>

class QMenu;
class QAction;
class QListWidget;

namespace pages {
class AdvancedForm;
}
namespace custom {
class CustomForm;
}
namespace platform {
class Timer;
}

namespace torvik {

class ProgressForm;

class MainForm : public QWidget {
    Q_OBJECT
public:
    explicit MainForm(QWidget* parent = nullptr);
    ~MainForm() override;

    Ui::MainForm ui;
    QMenu* GotoMenu;
    pages::AdvancedForm* Advanced = nullptr;
    custom::CustomForm* Custom = nullptr;

    // Page engine.
    void Main_Next_Click();
    void Main_Previous_Click();
    void Main_Cancel_Click();
    void Main_About_Click();
    void Command23_Click();
    void ClearFrames();
    void ClickNext();
    void ClickPrev();
    void Dontshow();
    void Dontshow1();
    void Dontshow2();
    void CheckGameStatus();
    void ShowPagePicture();

    // Answers, command and launch.
    void UpdateDMFlags();
    void composeCommandLine();
    ComposerInput ReadAnswers() const;

    // Tool strip.
    void openMapCycleEditor();

    // Locations.
    void CheckFileLocs();
    void Command16_Click();
    void Command1_Click();
    void Command2_Click();

    // Bots and teams.
    void LoadBotsAtStart();
    bool ReloadBotsAfterPrefs();
    void addCTFBots();
    void RestoreBotsCfg();
    ProgressForm* Progress = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    bool FixStuff();
    void ConnectControls();
    void BuildGotoMenu();
    void Dir1_Change();
    void SetCloseTool(bool leave);
    void ShowLocationState(bool found);
    void ShowPageOf(int page);
    void RaisePanelOf(int page);
    QWidget* PanelOf(int page) const;
    QString PictureKeyOf(int page) const;
    QList<QToolButton*> RaisedButtons() const;
    void EnterAllDone();
    void SetupAnswerPages();
    void chooseGameType(const QString& code);
    void SetupBotPages();

    QAction* addGoto(const QString& caption, const char* handler);
};

// Creates, loads and shows the main form; false when its load ended the program.
bool ShowMainForm();
MainForm* MainFormInstance();

} // namespace torvik
