#include "pages/AllDonePage.h"

#include "command/Composer.h"
#include "maps/MapCycles.h"
#include "pages/SavedControls.h"
#include "pages/StartMapPage.h"
#include "pages/WizardState.h"
#include "platform/Dialogs.h"
#include "platform/EngineHomes.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/ProgramContext.h"
#include "platform/Timer.h"

#include <QFile>

namespace pages {

AllDonePage::AllDonePage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    connect(ui.Check26, &QCheckBox::toggled, this, &AllDonePage::showSaveChoice);
    connect(ui.Start, &QPushButton::clicked, this, &AllDonePage::startGame);
    Timer6 = new platform::Timer(this, 1500, false);
    Timer6->setObjectName(QStringLiteral("Timer6"));
    connect(Timer6, &platform::Timer::timeout, this, [this] {
        ui.Start->setEnabled(true);
        Timer6->setEnabled(false);
    });
}

void AllDonePage::setStartMap(const StartMapPage* startMap) { startMap_ = startMap; }

void AllDonePage::showSaveChoice(bool save)
{
    ui.Text6->setVisible(save);
    ui.Label53->setVisible(save);
    ui.Check44->setVisible(save);
}

bool AllDonePage::removeOldConfiguration()
{
    const platform::ProgramContext& context = platform::programContext;
    const QString cfg = platform::resolvePath(platform::joinPath(context.programFolder, QStringLiteral("asdf.cfg")));
    const QString launcherCfg =
        platform::resolvePath(platform::joinPath(context.modFolder(), QStringLiteral("launcher.cfg")));
    // Unlike the clean-up at start-up, this delete doesn't clear a read-only
    // file, and the wizard can't go on with a configuration it can't replace.
    // A file whose owner may not write it is read-only here, even where the
    // folder would let it go and even for root.
    auto removeWritable = [](const QString& path) {
        return path.isEmpty() || ((QFile::permissions(path) & QFileDevice::WriteOwner) && QFile::remove(path));
    };
    if (!removeWritable(cfg) || !removeWritable(launcherCfg)) {
        platform::msgBox(QStringLiteral("Error: Something has happened. Ending program!(1)"));
        platform::exitProgram();
        return false;
    }
    return true;
}

void AllDonePage::prepareLaunch(const QString& command, bool dedicated)
{
    const torvik::SplitCommand split = torvik::splitCommandLine(command, dedicated);
    if (!split.ok) {
        platform::beep();
        platform::msgBox(QStringLiteral("Internal Error: Couldn't fix command line"));
        return;
    }
    LaunchHead = split.launchHead;
    const platform::ProgramContext& context = platform::programContext;
    const QString home = platform::joinPath(context.programFolder, QStringLiteral("asdf.cfg"));
    QString baseq2 = platform::resolvePath(platform::joinPath(context.gameFolder(), QStringLiteral("baseq2")));
    if (baseq2.isEmpty())
        baseq2 = platform::joinPath(context.gameFolder(), QStringLiteral("baseq2"));
    const QString copy = platform::joinPath(baseq2, QStringLiteral("asdf.cfg"));
    const QByteArray bytes = torvik::configFileBytes(split.config);
    if (!platform::writeFile(home, bytes) || !platform::writeFile(copy, bytes)) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't create internal command line!"));
        return;
    }
    Timer6->setEnabled(true);
}

// The Linux engines read a configuration of this name from the player's home
// folder before the game's own, so an old one there would silently replace
// the settings made here.
void AllDonePage::offerToRemoveHomeConfigs()
{
    if (homeConfigsAsked_)
        return;
    const QStringList stale =
        platform::filesInEngineHomes(platform::programContext.modShortName(), QStringLiteral("asdf.cfg"));
    if (stale.isEmpty())
        return;
    homeConfigsAsked_ = true;
    const QString question =
        QStringLiteral("The game will read an old asdf.cfg from your home folder instead of the settings made "
                       "here:\n\n%1\n\nRemove it?")
            .arg(stale.join(QLatin1Char('\n')));
    if (!platform::ask(question, QStringLiteral("Old game settings")))
        return;
    for (const QString& path : stale)
        if (!QFile::remove(path))
            platform::msgBox(QStringLiteral("Couldn't remove %1. The game will read it instead of the settings made here.")
                                 .arg(path),
                             platform::Buttons::Ok, platform::Icon::Exclamation);
}

void AllDonePage::holdStart() { ui.Start->setEnabled(false); }

void AllDonePage::setSaveSources(std::function<datafile::SavedAnswers()> answers,
                                 std::function<QList<datafile::FlagState>()> flags)
{
    answers_ = std::move(answers);
    flags_ = std::move(flags);
}

// The data file and its companion under the title of Text6 in the Saved
// folder. A refusal sets saveRefused, which holds the launch. The data file
// is written first, so that a failed write leaves the old set as it was.
void AllDonePage::saveDataFile()
{
    const QString title = ui.Text6->text();
    if (title.isEmpty()) {
        platform::beep();
        platform::msgBox(QStringLiteral("You must have a titlename!"), platform::Buttons::Ok, platform::Icon::None,
                         QString());
        wizardState.saveRefused = 1;
        return;
    }
    // A title is a file name in the Saved folder and nowhere else.
    if (title.contains(QLatin1Char('/')) || title == QLatin1String(".") || title == QLatin1String("..")) {
        platform::beep();
        platform::msgBox(QStringLiteral("A titlename can't hold \"/\" or be \".\" or \"..\"!"), platform::Buttons::Ok,
                         platform::Icon::None, QString());
        wizardState.saveRefused = 1;
        return;
    }
    const QString folder = platform::programContext.inProgramFolder(QStringLiteral("Saved"));
    const QString path = platform::joinPath(folder, title + QStringLiteral(".tkd"));
    const QString existing = platform::resolvePath(path);
    if (!existing.isEmpty()) {
        platform::beep();
        if (platform::msgBox(QStringLiteral("File already exists!  Copy over file?"), platform::Buttons::YesNo,
                             platform::Icon::Question, QStringLiteral("Copy Over"))
            != platform::Answer::Yes) {
            ui.Text6->setText(QString());
            wizardState.saveRefused = 1;
            return;
        }
    }
    const QByteArray data = datafile::writeDataFile(answers_ ? answers_() : datafile::SavedAnswers{});
    const QList<datafile::FlagState> flags = flags_ ? flags_() : QList<datafile::FlagState>{};
    const QString companion = platform::joinPath(folder, title + QStringLiteral(".tke"));
    const QString oldCompanion = platform::resolvePath(companion);
    const bool written = platform::writeFile(path, data)
                         && (flags.isEmpty() || platform::writeFile(companion, datafile::writeCompanion(flags)));
    if (!written) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't save the data file %1!").arg(path));
        wizardState.saveRefused = 1;
        return;
    }
    // The file of the title spelt in another case is the one replaced.
    if (!existing.isEmpty() && existing != path)
        QFile::remove(existing);
    if (!oldCompanion.isEmpty() && (flags.isEmpty() || oldCompanion != companion))
        QFile::remove(oldCompanion);
}

// Saving the answers and the chosen map cycle come before the launch; a
// single player game starts its map directly, the others run the head with
// the configuration file.
void AllDonePage::startGame()
{
    const platform::ProgramContext& context = platform::programContext;
    const QString folder = context.gameFolder();
    if (ui.Check26->isChecked()) {
        saveDataFile();
        if (ui.Check44->isChecked())
            return;
    }
    if (wizardState.saveRefused == 1) {
        wizardState.saveRefused = 0;
        return;
    }
    if (!torvik::FixMapCycle(startMap_->chosenCycle(), startMap_->firstCycleRow()))
        return;

    platform::ProcessStart start;
    if (wizardState.gameTypeCode == QLatin1String("SP")) {
        start = platform::executableStart(context.quake2Location, {QStringLiteral("+map"), startMap_->chosenMap()},
                                          folder);
    } else {
        offerToRemoveHomeConfigs();
        QStringList words = torvik::splitHead(LaunchHead + QStringLiteral(" +exec asdf.cfg "), context.quake2Location);
        const QString program = words.isEmpty() ? QString() : words.takeFirst();
        start = platform::executableStart(program, words, folder);
    }
    if (start.program.isEmpty() || !platform::launcher().start(start)) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't run Quake2. Re-verify settings!"));
        return;
    }
    if (ui.Check30->isChecked())
        platform::exitProgram();
}

void AllDonePage::saveAnswersInto(datafile::SavedAnswers& saved) const { saveChecks(saved, {ui.Check26}); }

void AllDonePage::restoreAnswersFrom(const datafile::SavedAnswers& saved) { restoreChecks(saved, {ui.Check26}); }

} // namespace pages
