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
namespace {

const QString CRLF = QStringLiteral("\r\n");

} // namespace

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

    auto& ad = ui.AllDone->ui;
    connect(ad.Check26, &QCheckBox::toggled, this, [this](bool on) {
        auto& a = ui.AllDone->ui;
        a.Text6->setVisible(on);
        a.Label53->setVisible(on);
        a.Check44->setVisible(on);
    });
    connect(ad.Start, &QPushButton::clicked, this, &MainForm::Start_Click);
    Timer6 = new platform::Timer(this, 1500, false);
    Timer6->setObjectName(QStringLiteral("Timer6"));
    connect(Timer6, &platform::Timer::timeout, this, [this] {
        ui.AllDone->ui.Start->setEnabled(true);
        Timer6->setEnabled(false);
    });

    auto& sd = ui.StartDialog->ui;
    connect(sd.Label42, &platform::ClickLabel::clicked, this, &MainForm::Label42_Click);
    const std::pair<platform::ClickLabel*, const char*> links[] = {
        {sd.Label10, "mailto:torvik@torvik.invalid"},
        {sd.Label32, "mailto:gorvan@gorvan.invalid"},
        {sd.Label11, "https://torvik.invalid/"},
        {sd.Label12, "https://gorvan.invalid/"},
    };
    for (const auto& [label, target] : links) {
        const QString where = QString::fromLatin1(target);
        connect(label, &platform::ClickLabel::clicked, this, [where] { platform::openWithDesktop(where); });
    }
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

// The text box shows lines; the command keeps CR LF, which the split counts.
void MainForm::composeCommandLine()
{
    QString text = torvik::composeCommandLine(ReadAnswers());
    ui.CommandLine->ui.CmdLine->setPlainText(text.replace(CRLF, QStringLiteral("\n")));
}

void MainForm::TryCommand()
{
    QString text = ui.CommandLine->ui.CmdLine->toPlainText();
    text.replace(QLatin1Char('\n'), CRLF);
    const SplitCommand split = splitCommandLine(text, Advanced->dedicated());
    if (!split.ok) {
        platform::beep();
        platform::msgBox(QStringLiteral("Internal Error: Couldn't fix command line"));
        return;
    }
    LaunchHead = split.launchHead;
    const QString home = platform::joinPath(ProgramFolder, QStringLiteral("asdf.cfg"));
    QString baseq2 = platform::resolvePath(platform::joinPath(gameFolder(), QStringLiteral("baseq2")));
    if (baseq2.isEmpty())
        baseq2 = platform::joinPath(gameFolder(), QStringLiteral("baseq2"));
    const QString copy = platform::joinPath(baseq2, QStringLiteral("asdf.cfg"));
    const QByteArray bytes = split.config.toUtf8();
    QFile::remove(copy);
    if (!platform::writeFile(home, bytes) || !QFile::copy(home, copy)) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't create internal command line!"));
        return;
    }
    Timer6->setEnabled(true);
}

void MainForm::Start_Click()
{
    const auto& ad = ui.AllDone->ui;
    const QString folder = gameFolder();
    // Saving the answers and the chosen map cycle come before the launch.
    if (ad.Check26->isChecked() && ad.Check44->isChecked())
        return;
    if (!FixMapCycle(ui.StartMap->chosenCycle(), ui.StartMap->firstCycleRow()))
        return;

    platform::ProcessStart start;
    if (GameTypeCode == QLatin1String("SP")) {
        start = platform::executableStart(Quake2Location, {QStringLiteral("+map"), ui.StartMap->chosenMap()},
                                          folder);
    } else {
        QStringList words = splitHead(LaunchHead + QStringLiteral(" +exec asdf.cfg "), Quake2Location);
        const QString program = words.isEmpty() ? QString() : words.takeFirst();
        start = platform::executableStart(program, words, folder);
    }
    if (start.program.isEmpty() || !platform::launcher().start(start)) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't run Quake2. Re-verify settings!"));
        return;
    }
    if (ad.Check30->isChecked())
        ExitProgram(true);
}

void MainForm::Label42_Click()
{
    const QString tool = platform::resolvePath(platform::joinPath(ProgramFolder, QStringLiteral("zprw.exe")));
    if (tool.isEmpty() || !platform::fileExists(tool)) {
        platform::msgBox(QStringLiteral("Couldn't start the Zeprin Update Wizard!"));
        return;
    }
    if (!platform::launcher().start(platform::executableStart(tool, {}, ProgramFolder))) {
        platform::msgBox(QStringLiteral("Couldn't start the Zeprin Update Wizard!"));
        return;
    }
    ExitProgram(true);
}

} // namespace torvik
