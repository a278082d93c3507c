// The main form's side of the data files: gathering every page's answers for
// Start's save, and putting a chosen file's answers back on the pages.
#include "custom/CustomForm.h"
#include "datafile/DataFile.h"
#include "pages/AdvancedForm.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "wizard/Globals.h"
#include "wizard/MainForm.h"

namespace torvik {
namespace {

QString savedFolder() { return platform::programContext.inProgramFolder(QStringLiteral("Saved")); }

void refuseDataFile(const QString& text)
{
    platform::msgBox(text, platform::Buttons::Ok, platform::Icon::None, QString());
    DataFileMode = 0;
}

} // namespace

datafile::SavedAnswers MainForm::savedAnswers() const
{
    datafile::SavedAnswers saved;
    ui.GameType->saveAnswersInto(saved);
    ui.StartMap->saveAnswersInto(saved);
    ui.SpawnBots->saveAnswersInto(saved);
    ui.Teams->saveAnswersInto(saved);
    ui.DMFlags->saveAnswersInto(saved);
    ui.GorvanFlags->saveAnswersInto(saved);
    ui.CTFflags->saveAnswersInto(saved);
    ui.PlayerSetup->saveAnswersInto(saved);
    ui.AllDone->saveAnswersInto(saved);
    Advanced->saveAnswersInto(saved);
    return saved;
}

void MainForm::wireDataFiles()
{
    ui.AllDone->setSaveSources([this] { return savedAnswers(); }, [this] { return Custom->flagStates(); });
}

// The companion's states come first and stay even when the data file is
// refused. Nothing is put on a page before the whole file has been read.
void MainForm::loadDataFile()
{
    const QString folder = savedFolder();
    const QString companion = platform::resolvePath(platform::joinPath(folder, CompanionFileName));
    QByteArray bytes;
    if (!companion.isEmpty() && Custom->hasNodes() && platform::readFile(companion, bytes))
        Custom->applyFlagStates(datafile::readCompanion(bytes));
    ui.AllDone->ui.Text6->setText(DataFileName.left(DataFileName.size() - 4));

    const QString path = platform::resolvePath(platform::joinPath(folder, DataFileName));
    bytes.clear();
    if (path.isEmpty() || !platform::readFile(path, bytes)) {
        refuseDataFile(QStringLiteral("Couldn't read %1!  Loading Defaults").arg(DataFileName));
        return;
    }
    const datafile::ReadResult read = datafile::readDataFile(bytes);
    if (read.status == datafile::ReadResult::Old) {
        refuseDataFile(QStringLiteral("TKD file is old!  Loading Defaults"));
        return;
    }
    if (read.status == datafile::ReadResult::Damaged) {
        refuseDataFile(QStringLiteral("TKD file is damaged!  Loading Defaults"));
        return;
    }
    const datafile::SavedAnswers& saved = read.answers;
    ui.GameType->restoreAnswersFrom(saved);
    ui.StartMap->restoreAnswersFrom(saved);
    if (read.singlePlayer)
        return;
    ui.GorvanFlags->restoreAnswersFrom(saved);
    ui.DMFlags->restoreAnswersFrom(saved);
    Advanced->restoreAnswersFrom(saved);
    ui.AllDone->restoreAnswersFrom(saved);
    ui.PlayerSetup->restoreAnswersFrom(saved);
    if (saved.gameType == '2') {
        ui.Teams->restoreAnswersFrom(saved);
    } else {
        ui.SpawnBots->restoreAnswersFrom(saved);
    }
    ui.CTFflags->restoreAnswersFrom(saved, ui.SpawnBots->specificBots() ? ui.SpawnBots->chosenBots() : QStringList());
    // The team lists came from the file: the bot page's next leaving keeps them.
    LastBotCount = ui.SpawnBots->chosenCount();
    RebuildCTFBots = 0;
}

} // namespace torvik
