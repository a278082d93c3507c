#include "wizard/PreferencesPage.h"

#include "pages/EngineLimits.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "wizard/Globals.h"
#include "wizard/Launch.h"
#include "wizard/Locations.h"
#include "wizard/Q2EXEForm.h"

namespace torvik {
namespace {

const QString kNotLocatedQuake = QStringLiteral("QUAKE2 IS NOT LOCATED HERE!");
const QString kNotLocatedGorvan = QStringLiteral("GORVAN IS NOT LOCATED HERE!");
const QString kQuakeSet = QStringLiteral("QUAKE2 IS SET!");
const QString kGorvanSet = QStringLiteral("GORVAN IS SET!");

// A location file holds one line: a folder whose path breaks it can't be kept.
void refuseUnstorable(const QString& folder)
{
    platform::beep();
    platform::msgBox(QStringLiteral("Torvik can't keep the folder \"%1\": its path holds a line break. Please choose "
                                    "or rename another folder.")
                         .arg(folder),
                     platform::Buttons::Ok, platform::Icon::Exclamation);
}

// Said once, when such a folder is chosen; the folder is still taken.
void warnAbout(const QString& warning)
{
    if (!warning.isEmpty())
        platform::msgBox(warning, platform::Buttons::Ok, platform::Icon::Exclamation);
}

} // namespace

PreferencesPage::PreferencesPage(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    connect(ui.Command1, &QPushButton::clicked, this, &PreferencesPage::checkGameFolder);
    connect(ui.Command2, &QPushButton::clicked, this, &PreferencesPage::checkModFolder);
    connect(ui.Dir1, &platform::FolderChooser::pathChanged, this, &PreferencesPage::chooseGameFolder);
    connect(ui.Dir2, &platform::FolderChooser::pathChanged, this, &PreferencesPage::checkModFolder);
}

bool PreferencesPage::readStoredLocations()
{
    StoredExeValid = 0;
    Quake2Location = readLocationFile(platform::joinPath(ProgramFolder, QStringLiteral("QUAKE2.LOC")));
    if (Quake2Location.isEmpty()) {
        platform::beep();
        platform::msgBox(QStringLiteral("Quake2 location couldn't be found! Please set the location."));
        Quake2Set = 0;
        ui.Text7->setText(kNotLocatedQuake);
        if (GorvanSet == 0)
            ui.Text8->setText(kNotLocatedGorvan);
        return false;
    }
    // The stored game path is taken as it stands; a game removed since shows
    // up only when it is started.
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
            return true;
        }
        GorvanSet = 0;
        LocationsMissing = 1;
        ui.Text8->setText(kNotLocatedGorvan);
    }
    platform::beep();
    platform::msgBox(QStringLiteral("Gorvan location not found! Please set the location."));
    GorvanSet = 0;
    ui.Text8->setText(kNotLocatedGorvan);
    return false;
}

// A folder list set to the folder it already shows raises no change, so a
// later visit doesn't ask for the executable again.
void PreferencesPage::showStoredFolders()
{
    if (Quake2Set == 0 || GorvanSet == 0)
        return;
    if (ui.Dir1->path() != gameFolder())
        ui.Dir1->setPath(gameFolder());
    if (ui.Dir2->path() != modFolder())
        ui.Dir2->setPath(modFolder());
}

void PreferencesPage::chooseGameFolder()
{
    if (DirPrimed == 1)
        StoredExeValid = 0;
    DirPrimed = 1;
    checkGameFolder();
}

// Any executable of the folder may be the game: the user's pick decides,
// unless the stored game is in the folder.
void PreferencesPage::checkGameFolder()
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
                ExePicked = ask.exec() == QDialog::Accepted ? 1 : 0;
            }
            located = ExePicked != 0;
        }
    }
    if (!located && StoredExeValid != 1) {
        ui.Text7->setText(kNotLocatedQuake);
        Quake2Set = 0;
        emit locationChecked(false);
        return;
    }
    // Without a row to go by (the stored game is no longer in the folder)
    // the stored name is kept: a folder path alone would start nothing.
    QListWidgetItem* chosen = ui.File5->currentItem();
    const QString name = chosen ? chosen->text() : platform::fileNameOf(Quake2Location);
    const QString location = platform::joinPath(folder, name);
    if (!isStorableLocation(location)) {
        refuseUnstorable(folder);
        ui.Text7->setText(kNotLocatedQuake);
        Quake2Set = 0;
        emit locationChecked(false);
        return;
    }
    ui.Text7->setText(kQuakeSet);
    const bool changed = location != Quake2Location;
    Quake2Location = location;
    if (!writeLocationFile(QStringLiteral("quake2.loc"), Quake2Location))
        platform::msgBox(QStringLiteral("Couldn't save the Quake2 location (quake2.loc)!"), platform::Buttons::Ok,
                         platform::Icon::Exclamation);
    Quake2Set = 1;
    if (changed)
        warnAbout(pages::gameFolderWarning(gameFolder()));
    emit locationChecked(true);
}

// Here the mod needs its bots file beside its library; at start-up the
// library alone does.
void PreferencesPage::checkModFolder()
{
    const QString folder = ui.Dir2->path();
    const bool found = !folder.isEmpty() && !platform::findModLibrary(folder).isEmpty()
        && platform::fileExists(platform::joinPath(folder, QStringLiteral("BOTS.CFG")));
    if (!found) {
        ui.Text8->setText(kNotLocatedGorvan);
        GorvanSet = 0;
        emit locationChecked(false);
        return;
    }
    const QString location = platform::joinPath(folder, QStringLiteral("GAMEX86.DLL"));
    if (!isStorableLocation(location)) {
        refuseUnstorable(folder);
        ui.Text8->setText(kNotLocatedGorvan);
        GorvanSet = 0;
        emit locationChecked(false);
        return;
    }
    ui.Text8->setText(kGorvanSet);
    const bool changed = location != GorvanLocation;
    GorvanLocation = location;
    if (!writeLocationFile(QStringLiteral("gorvan.loc"), GorvanLocation))
        platform::msgBox(QStringLiteral("Couldn't save the Gorvan location (gorvan.loc)!"), platform::Buttons::Ok,
                         platform::Icon::Exclamation);
    GorvanSet = 1;
    if (changed)
        warnAbout(pages::modFolderWarning(modShortName()));
    emit locationChecked(true);
}

} // namespace torvik
