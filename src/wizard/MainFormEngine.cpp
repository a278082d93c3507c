// The page engine of the main form: Next and Back move PageNumber along the
// sequence of the game type and show one panel; the close tool leaves the
// layers over the pages; the Goto menu jumps by stepping from the page
// before the target.
#include "wizard/MainForm.h"

#include "media/Graphics.h"
#include "pages/AdvancedForm.h"
#include "platform/Dialogs.h"
#include "wizard/Globals.h"
#include "wizard/Program.h"

#include <QMenu>

namespace torvik {

void MainForm::nextPage()
{
    ui.Main_Previous->setEnabled(true);
    switch (PageNumber) {
    case 1:
        ui.StartDialog->setVisible(false);
        ui.GameType->setVisible(true);
        break;
    case 2:
        checkGameStatus();
        ui.GameType->setVisible(false);
        ui.StartMap->setVisible(true);
        break;
    case 3:
        ui.StartMap->setVisible(false);
        if (GameTypeCode == QLatin1String("SP")) {
            PageNumber = 9;
            enterAllDone();
            if (programEnded())
                return;
            break;
        }
        showPageOf(4);
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
        enterAllDone();
        if (programEnded())
            return;
        break;
    default:
        return;
    }
    ++PageNumber;
    raisePanelOf(PageNumber);
    showPagePicture();
}

void MainForm::enterAllDone()
{
    ui.CommandLine->setVisible(false);
    ui.AllDone->setVisible(true);
    ui.Main_Next->setEnabled(false);
    if (!ui.AllDone->removeOldConfiguration())
        return;
    ui.AllDone->prepareLaunch(ui.CommandLine->command(), Advanced->dedicated());
}

// Going back leaves all answers as they are.
void MainForm::previousPage()
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
        clearFrames();
        ui.GameType->setVisible(true);
        break;
    case 4:
        clearFrames();
        ui.SpawnBots->setVisible(false);
        ui.Teams->setVisible(false);
        ui.StartMap->setVisible(true);
        break;
    case 5:
        ui.DMFlags->setVisible(false);
        showPageOf(4);
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
            previousPage();
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
    raisePanelOf(PageNumber);
    showPagePicture();
}

// The layers over the pages are About and Preferences; with neither open the
// close tool quits. Preferences can't be left while a location is unset.
void MainForm::leaveLayerOrQuit()
{
    if (Quake2Set == 0 || GorvanSet == 0) {
        platform::beep();
        platform::msgBox(QStringLiteral("Quake2 and/or the Gorvan location hasn't been determined."));
        return;
    }
    setCloseTool(false);
    if (PrefsOpen == 1) {
        PrefsOpen = 0;
        StoredExeValid = 1;
        if (ReloadAfterPrefs == 1) {
            ReloadAfterPrefs = 0;
            if (!reloadBotsAfterPreferences())
                return;
            if (DataFileMode == 1)
                loadDataFile();
            ui.StartMap->addMaps();
            if (programEnded())
                return;
        }
        ui.Preferences->setVisible(false);
        showPagePicture();
    } else if (AboutOpen != 1) {
        if (platform::ask(QStringLiteral("Are you sure you want to quit Torvik?"), QStringLiteral("Quit Torvik")))
            ExitProgram(true);
        return;
    } else {
        ui.Panel_About->setVisible(false);
        AboutOpen = 0;
    }
    enableTools();
    ui.Main_Cancel->setToolTip(QStringLiteral("Quit Torvik"));
    clearFrames();
    showPageOf(PageNumber);
    raisePanelOf(PageNumber);
    if (PageNumber == 1)
        ui.Main_Previous->setEnabled(false);
    if (PageNumber == 10)
        ui.Main_Next->setEnabled(false);
}

// ---------------------------------------------------------------- goto menu

// The engine has no jump of its own: an item sets PageNumber to the page
// before its target and steps forward from there, with that step's work.
void MainForm::buildGotoMenu()
{
    struct Item {
        const char* caption;
        const char* name;
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
        QAction* action = GotoMenu->addAction(QString::fromLatin1(item.caption));
        const QString name = QString::fromLatin1(item.name);
        action->setObjectName(name);
        const int before = item.before;
        connect(action, &QAction::triggered, this, [this, before, name] {
            PageNumber = before;
            if (name == QLatin1String("GotoWelcome")) {
                clearFrames();
                clickPrevious();
                return;
            }
            if (name == QLatin1String("GotoAllDone"))
                composeCommandLine();
            clickNext();
        });
    }
}

void MainForm::popUpGotoMenu()
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

void MainForm::clickNext()
{
    clearFrames();
    ui.Main_Next->setEnabled(true);
    nextPage();
}

void MainForm::clickPrevious() { previousPage(); }

// ---------------------------------------------------------------- panels

// Player Setup is left alone on purpose: a step that comes from that page
// hides it itself.
void MainForm::clearFrames()
{
    for (QWidget* panel : {static_cast<QWidget*>(ui.StartDialog), static_cast<QWidget*>(ui.GameType),
                           static_cast<QWidget*>(ui.StartMap), static_cast<QWidget*>(ui.SpawnBots),
                           static_cast<QWidget*>(ui.Teams), static_cast<QWidget*>(ui.DMFlags),
                           static_cast<QWidget*>(ui.GorvanFlags), static_cast<QWidget*>(ui.CTFflags),
                           static_cast<QWidget*>(ui.CommandLine), static_cast<QWidget*>(ui.AllDone)})
        panel->setVisible(false);
}

// With none of the multiplayer types on, single player stays as it is.
void MainForm::checkGameStatus()
{
    const QString code = ui.GameType->multiplayerChoice();
    if (!code.isEmpty())
        GameTypeCode = code;
}

QWidget* MainForm::panelOf(int page) const
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

QString MainForm::pictureKeyOf(int page) const
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

void MainForm::showPagePicture() { media::ShowGraphic(pictureKeyOf(PageNumber), ui.CurrentPix); }

// Player Setup may stay shown after a jump (the pages are cleared without
// it); the page the user went to must lie above it.
// The page shown takes the keyboard too, so that Enter goes on from it and
// no key lands in a page that was left.
void MainForm::raisePanelOf(int page)
{
    if (QWidget* panel = panelOf(page)) {
        panel->raise();
        panel->setFocus(Qt::OtherFocusReason);
    }
}

void MainForm::showPageOf(int page)
{
    if (QWidget* panel = panelOf(page)) {
        panel->setVisible(true);
        panel->raise();
    }
}

} // namespace torvik
