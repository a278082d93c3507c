#include "wizard/MainForm.h"

#include "media/Graphics.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "bots/BotStore.h"
#include "custom/CustomForm.h"
#include "maps/MapEditorForm.h"
#include "pages/AdvancedForm.h"
#include "wizard/Globals.h"
#include "wizard/Launch.h"
#include "wizard/Locations.h"
#include "wizard/Program.h"
#include "wizard/ProgressForm.h"
#include "wizard/Q2EXEForm.h"

#include <QCloseEvent>
#include <QFile>
#include <QMenu>
#include <QPointer>
#include <QStyle>
#include <new>

namespace torvik {
namespace {
QPointer<MainForm> instance;

const QString kNotLocatedQuake = QStringLiteral("QUAKE2 IS NOT LOCATED HERE!");
const QString kNotLocatedGorvan = QStringLiteral("GORVAN IS NOT LOCATED HERE!");
const QString kQuakeSet = QStringLiteral("QUAKE2 IS SET!");
const QString kGorvanSet = QStringLiteral("GORVAN IS SET!");
const QString kQuitTip = QStringLiteral("Quit Torvik");
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
    // Created hidden now, as the command is read from their controls even
    // when the user never opens them.
    Advanced = new pages::AdvancedForm(this);
    Custom = new custom::CustomForm(this);
    GotoMenu = new QMenu(this);
    GotoMenu->setObjectName(QStringLiteral("GotoMenu"));
    BuildGotoMenu();
    ConnectControls();
    Form_Load();
}

MainForm::~MainForm() = default;

void MainForm::ConnectControls()
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
    SetCloseTool(false);

    connect(ui.Main_Next, &QToolButton::clicked, this, &MainForm::Main_Next_Click);
    connect(ui.Main_Previous, &QToolButton::clicked, this, &MainForm::Main_Previous_Click);
    connect(ui.Main_Cancel, &QToolButton::clicked, this, &MainForm::Main_Cancel_Click);
    connect(ui.Main_About, &QToolButton::clicked, this, &MainForm::Main_About_Click);
    connect(ui.Command23, &QToolButton::clicked, this, &MainForm::Command23_Click);
    connect(ui.Command16, &QToolButton::clicked, this, &MainForm::Command16_Click);
    connect(ui.Command1, &QPushButton::clicked, this, &MainForm::Command1_Click);
    connect(ui.Command2, &QPushButton::clicked, this, &MainForm::Command2_Click);
    connect(ui.Dir1, &platform::FolderChooser::pathChanged, this, &MainForm::Dir1_Change);
    connect(ui.Dir2, &platform::FolderChooser::pathChanged, this, &MainForm::Command2_Click);

    SetupAnswerPages();
    SetupBotPages();
    connect(ui.Command18, &QToolButton::clicked, this, &MainForm::openMapCycleEditor);
}

// ---------------------------------------------------------------- load

void MainForm::Form_Load()
{
    auto& gt = ui.GameType->ui;
    MapFamilyAtLoad = gt.Option2->isChecked() ? 2 : gt.Option3->isChecked() ? 3 : 1;
    ui.StartMap->KeepMapLabel = 0;
    GameTypeCode = QStringLiteral("DM");
    if (!FixStuff())
        return;
    PageNumber = 1;
    CheckFileLocs();
    if (programEnded())
        return;
    if (LocationsMissing != 1) {
        ui.StartMap->addMaps();
        if (programEnded())
            return;
        UpdateDMFlags();
    }
}

bool MainForm::FixStuff()
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
        platform::msgBox(QStringLiteral("Out-of-Memory. Try closing a few apps, then try running again."));
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

void MainForm::closeEvent(QCloseEvent* event)
{
    QWidget::closeEvent(event);
    ExitProgram(true);
}

// ---------------------------------------------------------------- locations

void MainForm::CheckFileLocs()
{
    StoredExeValid = 0;
    Quake2Location = readLocationFile(platform::joinPath(ProgramFolder, QStringLiteral("QUAKE2.LOC")));
    bool gorvanOk = false;
    if (!Quake2Location.isEmpty()) {
        // The stored game path is taken as it stands; a game removed since
        // shows up only when it is started.
        ui.Text7->setText(kQuakeSet);
        Quake2Set = 1;
        StoredExeValid = 1;
        GorvanLocation = readLocationFile(platform::joinPath(ProgramFolder, QStringLiteral("GORVAN.LOC")));
        if (!GorvanLocation.isEmpty()) {
            if (!platform::findModLibrary(modFolder()).isEmpty()) {
                ui.Text8->setText(kGorvanSet);
                GorvanSet = 1;
                KillFiles();
                StoredExeValid = 1;
                gorvanOk = true;
            } else {
                GorvanSet = 0;
                LocationsMissing = 1;
                ui.Text8->setText(kNotLocatedGorvan);
            }
        }
        if (gorvanOk) {
            LoadBotsAtStart();
            return;
        }
        platform::beep();
        platform::msgBox(QStringLiteral("Gorvan location not found! Please set the location."));
        GorvanSet = 0;
        ui.Text8->setText(kNotLocatedGorvan);
    } else {
        platform::beep();
        platform::msgBox(QStringLiteral("Quake2 location couldn't be found! Please set the location."));
        Quake2Set = 0;
        ui.Text7->setText(kNotLocatedQuake);
        if (GorvanSet == 0)
            ui.Text8->setText(kNotLocatedGorvan);
    }
    ReloadAfterPrefs = 1;
    LocationsMissing = 1;
    Command16_Click();
    SetCloseTool(false);
    StoredExeValid = 0;
}

void MainForm::Command16_Click()
{
    ui.Preferences->setVisible(true);
    ui.Preferences->raise();
    PrefsOpen = 1;
    Dontshow();
    Dontshow1();
    ui.Main_Cancel->setToolTip(QStringLiteral("Exit Preferences"));
    // A folder list set to the folder it already shows raises no change, so
    // a later visit doesn't ask for the executable again.
    if (Quake2Set != 0 && GorvanSet != 0) {
        if (ui.Dir1->path() != gameFolder())
            ui.Dir1->setPath(gameFolder());
        if (ui.Dir2->path() != modFolder())
            ui.Dir2->setPath(modFolder());
    }
    media::ShowGraphic(QStringLiteral("showpref"), ui.CurrentPix);
    SetCloseTool(true);
}

void MainForm::Dir1_Change()
{
    if (DirPrimed == 1)
        StoredExeValid = 0;
    DirPrimed = 1;
    Command1_Click();
}

void MainForm::Command1_Click()
{
    const QString folder = ui.Dir1->path();
    const QStringList executables = platform::listExecutables(folder);
    ui.File5->clear();
    ui.File5->addItems(executables);

    bool located = false;
    if (ui.File5->count() > 0) {
        bool matched = true;
        if (StoredExeValid != 0) {
            const QString stored = platform::fileNameOf(Quake2Location);
            matched = false;
            for (int i = 0; i < ui.File5->count(); ++i) {
                if (ui.File5->item(i)->text().compare(stored, Qt::CaseInsensitive) == 0) {
                    ui.File5->setCurrentRow(i);
                    matched = true;
                    break;
                }
            }
        }
        if (matched) {
            ExePicked = 0;
            if (StoredExeValid == 0) {
                Q2EXEForm ask(this);
                ask.ui.File1->addItems(executables);
                connect(&ask, &Q2EXEForm::picked, this, [this](int row) { ui.File5->setCurrentRow(row); });
                ask.exec();
            }
            located = ExePicked != 0;
        }
    }
    if (!located && StoredExeValid != 1) {
        ui.Text7->setText(kNotLocatedQuake);
        Quake2Set = 0;
        ShowLocationState(false);
        return;
    }
    // Without a row to go by (the stored game is no longer in the folder)
    // the stored name is kept: a folder path alone would start nothing.
    QListWidgetItem* chosen = ui.File5->currentItem();
    const QString name = chosen ? chosen->text() : platform::fileNameOf(Quake2Location);
    ui.Text7->setText(kQuakeSet);
    Quake2Location = platform::joinPath(folder, name);
    if (!writeLocationFile(QStringLiteral("quake2.loc"), Quake2Location))
        platform::msgBox(QStringLiteral("Couldn't save the Quake2 location (quake2.loc)!"), platform::Buttons::Ok,
                         platform::Icon::Exclamation);
    Quake2Set = 1;
    ShowLocationState(true);
}

void MainForm::Command2_Click()
{
    const QString folder = ui.Dir2->path();
    const bool found = !folder.isEmpty() && !platform::findModLibrary(folder).isEmpty()
        && platform::fileExists(platform::joinPath(folder, QStringLiteral("BOTS.CFG")));
    if (!found) {
        ui.Text8->setText(kNotLocatedGorvan);
        GorvanSet = 0;
        ShowLocationState(false);
        return;
    }
    ui.Text8->setText(kGorvanSet);
    GorvanLocation = platform::joinPath(folder, QStringLiteral("GAMEX86.DLL"));
    if (!writeLocationFile(QStringLiteral("gorvan.loc"), GorvanLocation))
        platform::msgBox(QStringLiteral("Couldn't save the Gorvan location (gorvan.loc)!"), platform::Buttons::Ok,
                         platform::Icon::Exclamation);
    GorvanSet = 1;
    ShowLocationState(true);
}

// A location lost makes the close tool the way out of the program; once
// both are set it leaves Preferences. One found beside a missing other keeps
// its tip as it was.
void MainForm::ShowLocationState(bool found)
{
    if (!found) {
        ui.Main_Cancel->setToolTip(kQuitTip);
        SetCloseTool(false);
    } else if (Quake2Set == 1 && GorvanSet == 1) {
        ui.Main_Cancel->setToolTip(QStringLiteral("Exit Preferences"));
        SetCloseTool(true);
    } else {
        SetCloseTool(false);
    }
}

// The close tool shows whether it leaves a layer or quits the program.
void MainForm::SetCloseTool(bool leave)
{
    ui.Main_Cancel->setIcon(style()->standardIcon(leave ? QStyle::SP_DialogCancelButton : QStyle::SP_DialogCloseButton));
    ui.Main_Cancel->setText(leave ? QStringLiteral("Leave") : QStringLiteral("Quit"));
}

// ---------------------------------------------------------------- page engine

QList<QToolButton*> MainForm::RaisedButtons() const
{
    return {ui.Main_Cancel, ui.Main_Next, ui.Command23, ui.Main_Previous, ui.Main_About, ui.Command24,
            ui.Command20,   ui.Command19, ui.Command18, ui.Command17,     ui.Command15,  ui.Command16};
}

// Raised buttons follow the pointer by themselves (auto-raise), so there is
// nothing left to hide.
void MainForm::Dontshow() {}

void MainForm::Dontshow1()
{
    for (QToolButton* b : RaisedButtons())
        if (b != ui.Main_Cancel)
            b->setEnabled(false);
}

void MainForm::Dontshow2()
{
    for (QToolButton* b : RaisedButtons())
        b->setEnabled(true);
}

void MainForm::ClearFrames()
{
    for (QWidget* panel : {static_cast<QWidget*>(ui.StartDialog), static_cast<QWidget*>(ui.GameType),
                           static_cast<QWidget*>(ui.StartMap), static_cast<QWidget*>(ui.SpawnBots),
                           static_cast<QWidget*>(ui.Teams), static_cast<QWidget*>(ui.DMFlags),
                           static_cast<QWidget*>(ui.GorvanFlags), static_cast<QWidget*>(ui.CTFflags),
                           static_cast<QWidget*>(ui.CommandLine), static_cast<QWidget*>(ui.AllDone)})
        panel->setVisible(false);
}

// With none of the multiplayer types on, single player stays as it is.
void MainForm::CheckGameStatus()
{
    const QString code = ui.GameType->multiplayerChoice();
    if (!code.isEmpty())
        GameTypeCode = code;
}

QWidget* MainForm::PanelOf(int page) const
{
    switch (page) {
    case 1: return ui.StartDialog;
    case 2: return ui.GameType;
    case 3: return ui.StartMap;
    case 4: return GameTypeCode == QLatin1String("DMT") ? static_cast<QWidget*>(ui.Teams) : ui.SpawnBots;
    case 5: return ui.DMFlags;
    case 6: return ui.GorvanFlags;
    case 7: return ui.CTFflags;
    case 8: return ui.PlayerSetup;
    case 9: return ui.CommandLine;
    case 10: return ui.AllDone;
    default: return nullptr;
    }
}

QString MainForm::PictureKeyOf(int page) const
{
    switch (page) {
    case 1: return QStringLiteral("showwelcome");
    case 2: return QStringLiteral("showgametype");
    case 3: return QStringLiteral("showstartmap");
    case 4: return GameTypeCode == QLatin1String("DMT") ? QStringLiteral("showteamselect") : QStringLiteral("showspawnbots");
    case 5: return QStringLiteral("showdmflags");
    case 6: return QStringLiteral("showgorvanflags");
    case 7: return QStringLiteral("showctfflags");
    case 8: return QStringLiteral("showplayersetup");
    case 9: return QStringLiteral("showcmdline");
    case 10: return QStringLiteral("showalldone");
    default: return QString();
    }
}

void MainForm::ShowPagePicture()
{
    media::ShowGraphic(PictureKeyOf(PageNumber), ui.CurrentPix);
}

// Player Setup may stay shown after a jump (the pages are cleared without
// it); the page the user went to must lie above it.
void MainForm::RaisePanelOf(int page)
{
    if (QWidget* panel = PanelOf(page))
        panel->raise();
}

void MainForm::ShowPageOf(int page)
{
    if (QWidget* panel = PanelOf(page)) {
        panel->setVisible(true);
        panel->raise();
    }
}

void MainForm::Main_Next_Click()
{
    ui.Main_Previous->setEnabled(true);
    switch (PageNumber) {
    case 1:
        ui.StartDialog->setVisible(false);
        ui.GameType->setVisible(true);
        break;
    case 2:
        CheckGameStatus();
        ui.GameType->setVisible(false);
        ui.StartMap->setVisible(true);
        break;
    case 3:
        if (GameTypeCode == QLatin1String("SP")) {
            ui.StartMap->setVisible(false);
            PageNumber = 9;
            EnterAllDone();
            if (programEnded())
                return;
            break;
        }
        ui.StartMap->setVisible(false);
        ShowPageOf(4);
        break;
    case 4:
        ui.SpawnBots->settleEmptyAmount();
        ui.Teams->setVisible(false);
        ui.SpawnBots->setVisible(false);
        ui.DMFlags->setVisible(true);
        if (RebuildCTFBots == 1) {
            addCTFBots();
            RebuildCTFBots = 0;
        }
        break;
    case 5:
        ui.DMFlags->setVisible(false);
        ui.GorvanFlags->setVisible(true);
        ui.GorvanFlags->allowTarzan(GameTypeCode == QLatin1String("CTF"));
        break;
    case 6:
        ui.GorvanFlags->setVisible(false);
        // Another number of chosen bots means another choice: the CTF team
        // lists start again from it.
        if (ui.SpawnBots->chosenCount() != LastBotCount)
            addCTFBots();
        LastBotCount = ui.SpawnBots->chosenCount();
        if (GameTypeCode == QLatin1String("CTF")) {
            ui.CTFflags->setVisible(true);
            ui.CTFflags->enter(ui.SpawnBots->specificBots());
        } else {
            ++PageNumber;
            ui.PlayerSetup->setVisible(true);
            ui.CTFflags->setVisible(false);
        }
        break;
    case 7:
        ui.PlayerSetup->setVisible(true);
        ui.CTFflags->setVisible(false);
        break;
    case 8:
        ui.PlayerSetup->setVisible(false);
        ui.CommandLine->setVisible(true);
        composeCommandLine();
        break;
    case 9:
        EnterAllDone();
        if (programEnded())
            return;
        break;
    default:
        return;
    }
    ++PageNumber;
    RaisePanelOf(PageNumber);
    ShowPagePicture();
}

void MainForm::EnterAllDone()
{
    ui.CommandLine->setVisible(false);
    ui.AllDone->setVisible(true);
    ui.Main_Next->setEnabled(false);
    if (!ui.AllDone->removeOldConfiguration())
        return;
    ui.AllDone->prepareLaunch(ui.CommandLine->command(), Advanced->dedicated());
}

void MainForm::Main_Previous_Click()
{
    ui.Main_Next->setEnabled(true);
    switch (PageNumber) {
    case 2:
        ui.GameType->setVisible(false);
        ui.StartDialog->setVisible(true);
        ui.Main_Previous->setEnabled(false);
        update();
        break;
    case 3:
        ClearFrames();
        ui.GameType->setVisible(true);
        break;
    case 4:
        ClearFrames();
        ui.SpawnBots->setVisible(false);
        ui.Teams->setVisible(false);
        ui.StartMap->setVisible(true);
        break;
    case 5:
        ui.DMFlags->setVisible(false);
        ShowPageOf(4);
        break;
    case 6:
        ui.GorvanFlags->setVisible(false);
        ui.DMFlags->setVisible(true);
        break;
    case 7:
        ui.GorvanFlags->setVisible(true);
        ui.CTFflags->setVisible(false);
        break;
    case 8:
        ui.PlayerSetup->setVisible(false);
        if (GameTypeCode == QLatin1String("CTF")) {
            ui.CTFflags->setVisible(true);
        } else {
            --PageNumber;
            ui.GorvanFlags->setVisible(true);
        }
        break;
    case 9:
        ui.CommandLine->setVisible(false);
        ui.PlayerSetup->setVisible(true);
        break;
    case 10:
        if (GameTypeCode == QLatin1String("SP")) {
            PageNumber = 4;
            Main_Previous_Click();
            return;
        }
        ui.AllDone->holdStart();
        ui.CommandLine->setVisible(true);
        ui.AllDone->setVisible(false);
        break;
    default:
        return;
    }
    --PageNumber;
    RaisePanelOf(PageNumber);
    ShowPagePicture();
}

void MainForm::Main_About_Click()
{
    Dontshow();
    Dontshow1();
    AboutOpen = 1;
    ui.Main_Cancel->setToolTip(QStringLiteral("Exit About"));
    ClearFrames();
    ui.Preferences->setVisible(false);
    ui.PlayerSetup->setVisible(false);
    ui.Panel_About->setVisible(true);
    ui.Panel_About->raise();
    SetCloseTool(true);
}

void MainForm::Main_Cancel_Click()
{
    if (Quake2Set == 0 || GorvanSet == 0) {
        platform::beep();
        platform::msgBox(QStringLiteral("Quake2 and/or the Gorvan location hasn't been determined."));
        return;
    }
    SetCloseTool(false);
    if (PrefsOpen == 1) {
        PrefsOpen = 0;
        StoredExeValid = 1;
        if (ReloadAfterPrefs == 1) {
            ReloadAfterPrefs = 0;
            if (!ReloadBotsAfterPrefs())
                return;
            ui.StartMap->addMaps();
            if (programEnded())
                return;
        }
        ui.Preferences->setVisible(false);
        ShowPagePicture();
    } else if (AboutOpen != 1) {
        if (platform::ask(QStringLiteral("Are you sure you want to quit Torvik?"), QStringLiteral("Quit Torvik")))
            ExitProgram(true);
        return;
    } else {
        ui.Panel_About->setVisible(false);
        AboutOpen = 0;
    }
    Dontshow();
    Dontshow2();
    ui.Main_Cancel->setToolTip(kQuitTip);
    ClearFrames();
    ShowPageOf(PageNumber);
    if (PageNumber == 1)
        ui.Main_Previous->setEnabled(false);
    if (PageNumber == 10)
        ui.Main_Next->setEnabled(false);
}

// ---------------------------------------------------------------- goto menu

QAction* MainForm::addGoto(const QString& caption, const char* handler)
{
    QAction* action = GotoMenu->addAction(caption);
    action->setObjectName(QString::fromLatin1(handler));
    return action;
}

void MainForm::BuildGotoMenu()
{
    struct Item {
        const char* caption;
        const char* handler;
        int before;
    };
    static const Item items[] = {
        {"Welcome", "GotoWelcome", 2},          {"Game Type", "GotoGameType", 1},
        {"Map Selection", "Gotomap", 2},        {"Team Selection", "GotoTeamSelection", 3},
        {"Bot Selection", "GotoBotSelection", 3}, {"DM Flags", "GotoDMFlags", 4},
        {"Gorvan Flags", "GotoGorvanFlags", 5},  {"CTF Flags", "GotoCTFFlags", 6},
        {"Player Setup", "GotoPlayerSetup", 7},  {"Command Line", "GotoCMDLine", 8},
        {"All Done", "GotoAllDone", 9},
    };
    for (const Item& item : items) {
        QAction* action = addGoto(QString::fromLatin1(item.caption), item.handler);
        const int before = item.before;
        const QString handler = QString::fromLatin1(item.handler);
        connect(action, &QAction::triggered, this, [this, before, handler] {
            PageNumber = before;
            if (handler == QLatin1String("GotoWelcome")) {
                ClearFrames();
                ClickPrev();
                return;
            }
            if (handler == QLatin1String("GotoAllDone"))
                composeCommandLine();
            ClickNext();
        });
    }
}

void MainForm::Command23_Click()
{
    static const char* const middle[] = {"Gotomap", "GotoTeamSelection", "GotoBotSelection", "GotoDMFlags",
                                         "GotoGorvanFlags", "GotoCTFFlags", "GotoPlayerSetup", "GotoCMDLine"};
    auto item = [this](const char* name) { return GotoMenu->findChild<QAction*>(QString::fromLatin1(name)); };
    for (const char* name : middle)
        item(name)->setEnabled(true);
    if (GameTypeCode == QLatin1String("DM")) {
        item("GotoCTFFlags")->setEnabled(false);
        item("GotoTeamSelection")->setEnabled(false);
    } else if (GameTypeCode == QLatin1String("DMT")) {
        item("GotoCTFFlags")->setEnabled(false);
        item("GotoBotSelection")->setEnabled(false);
    } else if (GameTypeCode == QLatin1String("CTF")) {
        item("GotoTeamSelection")->setEnabled(false);
    } else if (GameTypeCode == QLatin1String("SP")) {
        for (const char* name : middle)
            if (qstrcmp(name, "Gotomap") != 0)
                item(name)->setEnabled(false);
    }
    GotoMenu->exec(ui.Command23->mapToGlobal(QPoint(0, ui.Command23->height())));
}

void MainForm::ClickNext()
{
    ClearFrames();
    ui.Main_Next->setEnabled(true);
    Main_Next_Click();
}

void MainForm::ClickPrev()
{
    Main_Previous_Click();
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
        platform::msgBox(QStringLiteral("Out-of-Memory. Try closing a few apps, then try running again."),
                         platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
        return;
    }
    if (!programEnded())
        ui.StartMap->addMaps();
}

// ---------------------------------------------------------------- bots and teams

void MainForm::SetupBotPages()
{
    const QPointer<MainForm> self(this);
    RestoreBotsCfgHook = [self] {
        if (self)
            self->RestoreBotsCfg();
    };
    Progress = new ProgressForm(this);
    connect(ui.SpawnBots, &pages::SpawnBotsPage::loadBegun, Progress, &ProgressForm::begin);
    connect(ui.SpawnBots, &pages::SpawnBotsPage::loadProgressed, Progress, &ProgressForm::report);
    connect(ui.SpawnBots, &pages::SpawnBotsPage::loadEnded, Progress, &QWidget::hide);
    connect(ui.Teams, &pages::TeamsPage::noTeamsFound, this, [this] { ui.GameType->ui.Option2->setEnabled(false); });
    connect(ui.CTFflags, &pages::CTFflagsPage::teamListsWanted, this, &MainForm::addCTFBots);
}

void MainForm::LoadBotsAtStart()
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

bool MainForm::ReloadBotsAfterPrefs()
{
    if (BotFileErrorFlag == 1)
        return false;
    ui.SpawnBots->loadBots();
    if (BotFileErrorFlag == 1)
        return false;
    ui.Teams->loadTeams();
    return BotFileErrorFlag != 1;
}

// A file that can't be read is to be replaced by the internal copy through
// the Backup Manager, which then ends the program. Until that manager is
// there the load simply stops after its message and the pages stay empty.
void MainForm::RestoreBotsCfg() {}

// The CTF team lists start again from the bots chosen on the bot page. While
// a data file is put in place they come from the file, and with no bots
// listed there is nothing to start from.
void MainForm::addCTFBots()
{
    if (DataFileMode == 1 || ui.SpawnBots->listedBotCount() == 0)
        return;
    ui.CTFflags->startTeamLists(ui.SpawnBots->chosenBots());
}

} // namespace torvik
