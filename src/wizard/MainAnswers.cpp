// The answer pages of the main form: what their controls do, the command
// made of them, and the launch.
#include "custom/CustomForm.h"
#include "maps/MapCycles.h"
#include "media/Graphics.h"
#include "pages/AdvancedForm.h"
#include "pages/NumericBoxes.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"
#include "wizard/Launch.h"
#include "wizard/MainForm.h"
#include "wizard/Program.h"

#include <QFile>

namespace torvik {

void MainForm::SetupAnswerPages()
{
    connect(ui.GameType, &pages::GameTypePage::chosen, this, &MainForm::chooseGameType);

    connect(ui.DMFlags, &pages::DMFlagsPage::flagsChanged, this, &MainForm::UpdateDMFlags);
    connect(ui.CTFflags, &pages::CTFflagsPage::flagsChanged, this, &MainForm::UpdateDMFlags);
    ui.DMFlags->setOptionForms(Advanced, Custom);
    connect(ui.CTFflags, &pages::CTFflagsPage::pictureWanted, this, [this](const QString& key) {
        if (PageNumber == 7)
            media::ShowGraphic(key, ui.CurrentPix);
    });
    const pages::DMFlagsPage* flags = ui.DMFlags;
    ui.CTFflags->limitBotsPerHuman([flags] { return flags->maxPlayers(); });

    ui.AllDone->setStartMap(ui.StartMap);
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

void MainForm::UpdateDMFlags()
{
    ui.DMFlags->showFlagsNumber(ui.CTFflags->flagBoxes(), GameTypeCode == QLatin1String("CTF"));
}

ComposerInput MainForm::ReadAnswers() const
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

void MainForm::composeCommandLine()
{
    ui.CommandLine->showCommand(torvik::composeCommandLine(ReadAnswers()));
}

} // namespace torvik
