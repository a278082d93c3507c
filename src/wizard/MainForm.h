#pragma once
// The wizard's main form: the tool strip, the page picture, and the stack of
// pages that the page engine moves through. Each page owns what its controls
// do; the main form loads them, sequences them and wires what crosses them.
#include "command/Composer.h"
#include "ui_MainForm.h"

#include <QWidget>

class QMenu;
class QAction;

namespace pages {
class AdvancedForm;
}
namespace custom {
class CustomForm;
}
namespace datafile {
struct SavedAnswers;
}

namespace torvik {

class ProgressForm;

class MainForm : public QWidget {
    Q_OBJECT
public:
    explicit MainForm(QWidget* parent = nullptr);
    ~MainForm() override;

    Ui::MainForm ui;

protected:
    void closeEvent(QCloseEvent* event) override;
    // Enter on a page goes on, as Next does; Escape leaves Preferences and
    // About.
    void keyPressEvent(QKeyEvent* event) override;

private:
    // Load (MainForm.cpp).
    void loadForm();
    bool beautifyForm();
    void checkFileLocations();
    void loadBotsAtStart();
    bool reloadBotsAfterPreferences();
    void restoreBotsCfg();
    void restoreChat();
    void showBackupManager();
    void checkChatFile();
    void openTeamEditor();
    void showPlugins();

    // Tool strip (MainForm.cpp).
    void connectToolStrip();
    void setCloseTool(bool leave);
    void showLocationState(bool found);
    void disableToolsButClose();
    void enableTools();
    QList<QToolButton*> raisedButtons() const;
    void openPreferences();
    void openMapCycleEditor();
    void openBotEditor();
    void showSavedBots();
    void showAbout();

    // Wiring between the pages (MainForm.cpp).
    void wirePages();
    void chooseGameType(const QString& code);
    void updateDMFlags();
    void addCTFBots();
    ComposerInput composerInput() const;
    void composeCommandLine();

    // Data files (MainFormData.cpp).
    void wireDataFiles();
    datafile::SavedAnswers savedAnswers() const;
    void loadDataFile();

    // Page engine (MainFormEngine.cpp).
    void nextPage();
    void previousPage();
    void leaveLayerOrQuit();
    void buildGotoMenu();
    void popUpGotoMenu();
    void clickNext();
    void clickPrevious();
    void clearFrames();
    void checkGameStatus();
    void enterAllDone();
    QWidget* panelOf(int page) const;
    QString pictureKeyOf(int page) const;
    void showPageOf(int page);
    void raisePanelOf(int page);
    void showPagePicture();

    QMenu* GotoMenu;
    // Hidden forms created at load: the command is read from their controls
    // even when the user never opens them.
    pages::AdvancedForm* Advanced = nullptr;
    custom::CustomForm* Custom = nullptr;
    ProgressForm* Progress = nullptr;
};

// Creates, loads and shows the main form; false when its load ended the program.
bool ShowMainForm();
MainForm* MainFormInstance();

} // namespace torvik
