#include "wizard/MainForm.h"

#include "backup/BackupManagerForm.h"
#include "bots/BotEditorForm.h"
#include "bots/BotStore.h"
#include "bots/TeamEditorForm.h"
#include "chat/ChatEditorForm.h"
#include "custom/CustomForm.h"
#include "maps/MapEditorForm.h"
#include "media/Graphics.h"
#include "pages/AdvancedForm.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "plugins/PluginsForm.h"
#include "wizard/Globals.h"
#include "wizard/Program.h"
#include "wizard/ProgressForm.h"

#include <QAbstractItemView>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QStyle>
#include <new>

namespace torvik {
namespace {
QPointer<MainForm> instance;

const QString kQuitTip = QStringLiteral("Quit Torvik");
const QString kOutOfMemory = QStringLiteral("Out-of-Memory. Try closing a few apps, then try running again.");
} // namespace

bool ShowMainForm()
{
    auto* form = new MainForm;
    if (programEnded())
        return false;
    form->show();
    return true;
}

MainForm* MainFormInstance() { return instance; }

MainForm::MainForm(QWidget* parent) : QWidget(parent)
{
    instance = this;
    ui.setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    Advanced = new pages::AdvancedForm(this);
    Custom = new custom::CustomForm(this);
    Progress = new ProgressForm(this);
    GotoMenu = new QMenu(this);
    GotoMenu->setObjectName(QStringLiteral("GotoMenu"));
    buildGotoMenu();
    connectToolStrip();
    wirePages();
    loadForm();
}

MainForm::~MainForm() = default;

void MainForm::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    ExitProgram(true);
}

void MainForm::keyPressEvent(QKeyEvent* event)
{
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool inLayer = PrefsOpen == 1 || AboutOpen == 1;
    if (enter && !inLayer && ui.Main_Next->isEnabled()) {
        // Lists and the command box keep Enter for themselves.
        QWidget* focus = focusWidget();
        if (!qobject_cast<QAbstractItemView*>(focus) && !qobject_cast<QPlainTextEdit*>(focus)) {
            ui.Main_Next->click();
            return;
        }
    }
    if (event->key() == Qt::Key_Escape && inLayer) {
        ui.Main_Cancel->click();
        return;
    }
    QWidget::keyPressEvent(event);
}

// ---------------------------------------------------------------- load

void MainForm::loadForm()
{
    auto& gt = ui.GameType->ui;
    MapFamilyAtLoad = gt.Option2->isChecked() ? 2 : gt.Option3->isChecked() ? 3 : 1;
    ui.StartMap->KeepMapLabel = 0;
    GameTypeCode = QStringLiteral("DM");
    if (!beautifyForm())
        return;
    PageNumber = 1;
    checkFileLocations();
    if (programEnded())
        return;
    if (LocationsMissing != 1) {
        ui.StartMap->addMaps();
        if (programEnded())
            return;
        updateDMFlags();
    }
}

// The pictures, and the panels laid at one place with the welcome page on top.
bool MainForm::beautifyForm()
{
    try {
        if (!media::ShowGraphic(QStringLiteral("showwelcome"), ui.CurrentPix)
            || !media::ShowGraphic(QStringLiteral("gorvanlogo"), ui.Image2)
            || !media::ShowGraphic(QStringLiteral("mklogo"), ui.Image3))
            throw std::runtime_error("picture component");
        ui.AboutLogo->setPixmap(media::splashLogo());
        const QList<QWidget*> panels = {ui.StartDialog, ui.GameType, ui.StartMap, ui.SpawnBots, ui.Teams,
                                        ui.DMFlags, ui.GorvanFlags, ui.CTFflags, ui.PlayerSetup,
                                        ui.CommandLine, ui.AllDone, ui.Preferences, ui.Panel_About};
        for (QWidget* panel : panels) {
            panel->setAutoFillBackground(true);
            panel->setBackgroundRole(QPalette::Window);
            panel->setVisible(false);
        }
        ui.StartDialog->setVisible(true);
        ui.Main_Previous->setEnabled(false);
    } catch (const std::bad_alloc&) {
        platform::beep();
        platform::msgBox(kOutOfMemory);
        ExitProgram(true);
        return false;
    } catch (...) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't beautify TK! Please restart this program again!"));
        ExitProgram(true);
        return false;
    }
    return true;
}

// Without both locations nothing can be read from the game's folders:
// Preferences comes up first, and the reads follow when it is left.
void MainForm::checkFileLocations()
{
    if (ui.Preferences->readStoredLocations()) {
        loadBotsAtStart();
        if (DataFileMode == 1)
            loadDataFile();
        return;
    }
    ReloadAfterPrefs = 1;
    LocationsMissing = 1;
    openPreferences();
    setCloseTool(false);
    StoredExeValid = 0;
}

void MainForm::loadBotsAtStart()
{
    ui.SpawnBots->ui.Label36->setText(QStringLiteral("0"));
    if (BotFileErrorFlag == 1)
        return;
    ui.Teams->loadTeams();
    if (BotFileErrorFlag == 1)
        return;
    ShowBotProgress = 1;
    ui.SpawnBots->loadBots();
    ShowBotProgress = 0;
}

bool MainForm::reloadBotsAfterPreferences()
{
    if (BotFileErrorFlag == 1)
        return false;
    ui.SpawnBots->loadBots();
    if (BotFileErrorFlag == 1)
        return false;
    ui.Teams->loadTeams();
    return BotFileErrorFlag != 1;
}

// A file that can't be read is replaced through the Backup Manager, from
// the factory copy or a backup of the user's, and the program ends; the
// next start reads the good file.
void MainForm::restoreBotsCfg()
{
    backup::BackupRescueMode = 1;
    showBackupManager();
}

void MainForm::restoreChat()
{
    backup::BackupRescueMode = 2;
    showBackupManager();
}

void MainForm::showBackupManager()
{
    try {
        backup::BackupManagerForm manager(this);
        manager.exec();
    } catch (const std::bad_alloc&) {
        platform::msgBox(kOutOfMemory, platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
    }
}

void MainForm::showPlugins()
{
    try {
        plugins::PluginsForm form(this);
        form.exec();
    } catch (const std::bad_alloc&) {
        platform::msgBox(kOutOfMemory, platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
    }
}

// The chat editor works on the mod's chat.txt; without one there is nothing
// to edit, and the user is offered the factory copy or a backup.
void MainForm::checkChatFile()
{
    if (platform::fileExists(backup::userFilePath(backup::Kind::Chat))) {
        try {
            chat::ChatEditorForm editor(this);
            editor.exec();
        } catch (const std::bad_alloc&) {
            platform::msgBox(kOutOfMemory, platform::Buttons::Ok, platform::Icon::Critical);
            ExitProgram(true);
        }
        return;
    }
    platform::beep();
    platform::msgBox(QStringLiteral("Error! Chat.txt file couldn't be found."));
    restoreChat();
}

// The team editor reads the teams afresh, so what an earlier load kept of
// the section goes first.
void MainForm::openTeamEditor()
{
    TeamsText.clear();
    try {
        TeamEditorForm editor(this);
        editor.exec();
    } catch (const std::bad_alloc&) {
        platform::msgBox(kOutOfMemory, platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
    }
}

// ---------------------------------------------------------------- tool strip

void MainForm::connectToolStrip()
{
    QStyle* st = style();
    ui.Main_Previous->setIcon(st->standardIcon(QStyle::SP_ArrowBack));
    ui.Main_Next->setIcon(st->standardIcon(QStyle::SP_ArrowForward));
    ui.Command23->setIcon(st->standardIcon(QStyle::SP_FileDialogContentsView));
    ui.Command16->setIcon(st->standardIcon(QStyle::SP_FileDialogDetailedView));
    ui.Command19->setIcon(st->standardIcon(QStyle::SP_ComputerIcon));
    ui.Command20->setIcon(st->standardIcon(QStyle::SP_DirHomeIcon));
    ui.Command17->setIcon(st->standardIcon(QStyle::SP_MessageBoxInformation));
    ui.Command18->setIcon(st->standardIcon(QStyle::SP_DriveNetIcon));
    ui.Command15->setIcon(st->standardIcon(QStyle::SP_DialogSaveButton));
    ui.Command24->setIcon(st->standardIcon(QStyle::SP_DirOpenIcon));
    ui.Main_About->setIcon(st->standardIcon(QStyle::SP_MessageBoxQuestion));
    setCloseTool(false);

    connect(ui.Main_Next, &QToolButton::clicked, this, &MainForm::nextPage);
    connect(ui.Main_Previous, &QToolButton::clicked, this, &MainForm::previousPage);
    connect(ui.Main_Cancel, &QToolButton::clicked, this, &MainForm::leaveLayerOrQuit);
    connect(ui.Main_About, &QToolButton::clicked, this, &MainForm::showAbout);
    connect(ui.Command23, &QToolButton::clicked, this, &MainForm::popUpGotoMenu);
    connect(ui.Command16, &QToolButton::clicked, this, &MainForm::openPreferences);
    connect(ui.Command18, &QToolButton::clicked, this, &MainForm::openMapCycleEditor);
    connect(ui.Command15, &QToolButton::clicked, this, [this] {
        backup::BackupRescueMode = 0;
        showBackupManager();
    });
    connect(ui.Command17, &QToolButton::clicked, this, &MainForm::checkChatFile);
    connect(ui.Command20, &QToolButton::clicked, this, &MainForm::openTeamEditor);
    connect(ui.Command19, &QToolButton::clicked, this, &MainForm::openBotEditor);
    connect(ui.Command24, &QToolButton::clicked, this, &MainForm::showPlugins);
}

// The close tool shows whether it leaves a layer or quits the program.
void MainForm::setCloseTool(bool leave)
{
    ui.Main_Cancel->setIcon(style()->standardIcon(leave ? QStyle::SP_DialogCancelButton : QStyle::SP_DialogCloseButton));
    ui.Main_Cancel->setText(leave ? QStringLiteral("Leave") : QStringLiteral("Quit"));
}

// A location lost makes the close tool the way out of the program; once
// both are set it leaves Preferences. One found beside a missing other keeps
// its tip as it was.
void MainForm::showLocationState(bool found)
{
    if (!found) {
        ui.Main_Cancel->setToolTip(kQuitTip);
        setCloseTool(false);
    } else if (Quake2Set == 1 && GorvanSet == 1) {
        ui.Main_Cancel->setToolTip(QStringLiteral("Exit Preferences"));
        setCloseTool(true);
    } else {
        setCloseTool(false);
    }
}

// The tool buttons follow the pointer by themselves (auto-raise); while a
// layer covers the pages only the close tool works.
QList<QToolButton*> MainForm::raisedButtons() const
{
    return {ui.Main_Cancel, ui.Main_Next, ui.Command23, ui.Main_Previous, ui.Main_About, ui.Command24,
            ui.Command20,   ui.Command19, ui.Command18, ui.Command17,     ui.Command15,  ui.Command16};
}

void MainForm::disableToolsButClose()
{
    for (QToolButton* b : raisedButtons())
        if (b != ui.Main_Cancel)
            b->setEnabled(false);
}

void MainForm::enableTools()
{
    for (QToolButton* b : raisedButtons())
        b->setEnabled(true);
}

void MainForm::openPreferences()
{
    ui.Preferences->setVisible(true);
    ui.Preferences->raise();
    ui.Preferences->setFocus(Qt::OtherFocusReason);
    PrefsOpen = 1;
    disableToolsButClose();
    ui.Main_Cancel->setToolTip(QStringLiteral("Exit Preferences"));
    ui.Preferences->showStoredFolders();
    media::ShowGraphic(QStringLiteral("showpref"), ui.CurrentPix);
    setCloseTool(true);
}

// However the editor was left, the tree is read again, which brings a cycle
// saved there into the list of cycles; its Exit keeps the chosen map.
void MainForm::openMapCycleEditor()
{
    try {
        MapEditorForm editor(this);
        if (programEnded())
            return;
        if (editor.exec() == QDialog::Accepted)
            ui.StartMap->KeepMapLabel = 1;
    } catch (const std::bad_alloc&) {
        platform::msgBox(kOutOfMemory, platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
        return;
    }
    if (!programEnded())
        ui.StartMap->addMaps();
}

// The editor reads the teams text afresh with its bots, and writes it back
// behind them on Save.
void MainForm::openBotEditor()
{
    TeamsText.clear();
    if (!platform::fileExists(platform::resolvePath(botsFilePath()))) {
        platform::beep();
        platform::msgBox(QStringLiteral("Error! Bots.cfg file couldn't be found."));
        restoreBotsCfg();
        return;
    }
    bool saved = false;
    try {
        BotEditorForm editor(this);
        editor.exec();
        saved = editor.botsSaved();
    } catch (const std::bad_alloc&) {
        platform::msgBox(kOutOfMemory, platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
        return;
    }
    if (saved && !programEnded())
        showSavedBots();
}

// The pages show the file just saved, as after their Refresh: the bot
// choice starts empty and the CTF team lists start again from it.
void MainForm::showSavedBots()
{
    TeamsText.clear();
    ui.SpawnBots->loadBots();
    if (BotFileErrorFlag == 1)
        return;
    ui.Teams->loadTeams();
    if (DataFileMode != 1)
        ui.CTFflags->startTeamLists(ui.SpawnBots->chosenBots());
}

void MainForm::showAbout()
{
    disableToolsButClose();
    AboutOpen = 1;
    ui.Main_Cancel->setToolTip(QStringLiteral("Exit About"));
    clearFrames();
    ui.Preferences->setVisible(false);
    ui.PlayerSetup->setVisible(false);
    ui.Panel_About->setVisible(true);
    ui.Panel_About->raise();
    ui.Panel_About->setFocus(Qt::OtherFocusReason);
    setCloseTool(true);
}

// ---------------------------------------------------------------- wiring

void MainForm::wirePages()
{
    connect(ui.Preferences, &PreferencesPage::locationChecked, this, &MainForm::showLocationState);
    connect(ui.GameType, &pages::GameTypePage::chosen, this, &MainForm::chooseGameType);

    const QPointer<MainForm> self(this);
    RestoreBotsCfgHook = [self] {
        if (self)
            self->restoreBotsCfg();
    };
    backup::RestoreChatHook = [self] {
        if (self)
            self->restoreChat();
    };
    connect(ui.SpawnBots, &pages::SpawnBotsPage::loadBegun, Progress, &ProgressForm::begin);
    connect(ui.SpawnBots, &pages::SpawnBotsPage::loadProgressed, Progress, &ProgressForm::report);
    connect(ui.SpawnBots, &pages::SpawnBotsPage::loadEnded, Progress, &QWidget::hide);
    connect(ui.Teams, &pages::TeamsPage::noTeamsFound, ui.GameType, &pages::GameTypePage::disableTeamGame);

    connect(ui.DMFlags, &pages::DMFlagsPage::flagsChanged, this, &MainForm::updateDMFlags);
    connect(ui.CTFflags, &pages::CTFflagsPage::flagsChanged, this, &MainForm::updateDMFlags);
    ui.DMFlags->setOptionForms(Advanced, Custom);
    const pages::DMFlagsPage* flags = ui.DMFlags;
    ui.CTFflags->limitBotsPerHuman([flags] { return flags->maxPlayers(); });
    connect(ui.CTFflags, &pages::CTFflagsPage::teamListsWanted, this, &MainForm::addCTFBots);
    connect(ui.CTFflags, &pages::CTFflagsPage::pictureWanted, this, [this](const QString& key) {
        if (PageNumber == 7)
            media::ShowGraphic(key, ui.CurrentPix);
    });

    ui.AllDone->setStartMap(ui.StartMap);
    wireDataFiles();
}

// Single player has a map tree of its own, so entering or leaving it reads
// the maps again. Every choice of a multiplayer type puts its map back, even
// without a change: players expect a fitting map after choosing the game.
void MainForm::chooseGameType(const QString& code)
{
    if (code == QLatin1String("SP")) {
        if (GameTypeCode != code) {
            GameTypeCode = code;
            ui.StartMap->addMaps();
        }
        return;
    }
    if (GameTypeCode == QLatin1String("SP")) {
        GameTypeCode = code;
        ui.StartMap->addMaps();
    }
    if (DataFileMode == 0)
        ui.StartMap->showDefaultMap(code);
    GameTypeCode = code;
}

void MainForm::updateDMFlags()
{
    ui.DMFlags->showFlagsNumber(ui.CTFflags->flagBoxes(), GameTypeCode == QLatin1String("CTF"));
}

// The CTF team lists start again from the bots chosen on the bot page. While
// a data file is put in place they come from the file, and with no bots
// listed there is nothing to start from.
void MainForm::addCTFBots()
{
    if (DataFileMode == 1 || ui.SpawnBots->listedBotCount() == 0)
        return;
    ui.CTFflags->startTeamLists(ui.SpawnBots->chosenBots());
}

ComposerInput MainForm::composerInput() const
{
    ComposerInput in;
    in.quake2Location = Quake2Location;
    in.modShortName = modShortName();
    in.gameTypeCode = GameTypeCode;
    Advanced->readAnswersInto(in);
    in.customOptions = Custom->commandOptions();
    ui.StartMap->readAnswersInto(in);
    ui.Teams->readAnswersInto(in);
    ui.SpawnBots->readAnswersInto(in);
    ui.DMFlags->readAnswersInto(in);
    ui.GorvanFlags->readAnswersInto(in);
    ui.CTFflags->readAnswersInto(in);
    ui.PlayerSetup->readAnswersInto(in);
    return in;
}

// Hand edits in the box are lost: the command is made anew from the answers.
void MainForm::composeCommandLine()
{
    ui.CommandLine->showCommand(torvik::composeCommandLine(composerInput()), Advanced->dedicated());
}

} // namespace torvik
