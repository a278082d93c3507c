#include "wizard/SplashForm.h"

#include "media/Graphics.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/SingleInstance.h"
#include "platform/Timer.h"
#include "wizard/Globals.h"
#include "wizard/MainForm.h"
#include "wizard/Program.h"

#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <new>

#include <dirent.h>

namespace torvik {
namespace {

// Tries the listing itself: permission bits alone don't tell what this
// process may do (an administrator's rights, access lists).
bool canList(const QString& folder)
{
    DIR* dir = ::opendir(QFile::encodeName(folder).constData());
    if (!dir)
        return false;
    ::closedir(dir);
    return true;
}

// Makes one of the program's own folders when it is missing. False after
// telling the user and ending the program, when that can't be done.
bool checkProgramFolder(const QString& name, const QString& failure)
{
    const QString path = platform::joinPath(ProgramFolder, name);
    const QString real = platform::resolvePath(path);
    bool ok;
    if (real.isEmpty())
        ok = QDir().mkdir(path);
    else
        ok = QFileInfo(real).isDir() && canList(real);
    if (!ok) {
        platform::msgBox(failure);
        ExitProgram(true);
    }
    return ok;
}

QString savedFolder() { return platform::programContext.inProgramFolder(QStringLiteral("Saved")); }

} // namespace

SplashForm::SplashForm(QWidget* parent) : QWidget(parent)
{
    ui.setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    ui.Image1->setPixmap(media::splashLogo());

    Timer4 = new platform::Timer(this, 20, false);
    Timer4->setObjectName(QStringLiteral("Timer4"));
    Timer1 = new platform::Timer(this, 1, false);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer3 = new platform::Timer(this, 2, false);
    Timer3->setObjectName(QStringLiteral("Timer3"));

    connect(Timer4, &platform::Timer::timeout, this, &SplashForm::loadPictureComponent);
    connect(Timer1, &platform::Timer::timeout, this, &SplashForm::offerDataFiles);
    connect(Timer3, &platform::Timer::timeout, this, [this] {
        Timer3->setEnabled(false);
        Timer1->setEnabled(true);
    });
    connect(ui.Option1, &QRadioButton::toggled, this, &SplashForm::enableDataFileChoice);
    connect(ui.Option2, &QRadioButton::toggled, this, &SplashForm::enableDataFileChoice);
    connect(ui.Command1, &QPushButton::clicked, this, &SplashForm::startWizard);
    connect(ui.Command2, &QPushButton::clicked, this, &SplashForm::deleteDataFile);
    connect(ui.Command3, &QPushButton::clicked, this, &SplashForm::askToClose);
    connect(ui.File1, &QWidget::customContextMenuRequested, this, [this] {
        if (ui.File1->isEnabled())
            deleteDataFile();
    });
    ui.File1->viewport()->installEventFilter(this);

    loadForm();
}

void SplashForm::loadForm()
{
    if (!platform::acquireSingleInstance(SingleInstanceLockPath)) {
        platform::msgBox(QStringLiteral("Only one instance of TK is allowed!"));
        ExitProgram(true);
        return;
    }
    // The map words of the Saved folder's message are the program's own,
    // kept as they always were.
    if (!checkProgramFolder(QStringLiteral("MapInfo"), QStringLiteral("Couldn't check for map information"))
        || !checkProgramFolder(QStringLiteral("Backup"), QStringLiteral("Couldn't check for backup information"))
        || !checkProgramFolder(QStringLiteral("Saved"), QStringLiteral("Couldn't check for map information")))
        return;
    listDataFiles();
    if (ui.File1->count() == 0)
        ui.Option2->setEnabled(false);
    loaded_ = true;
    Timer4->setEnabled(true);
}

void SplashForm::listDataFiles()
{
    ui.File1->clear();
    ui.File1->addItems(platform::listFiles(savedFolder(), {QStringLiteral("*.TKD")}));
}

void SplashForm::loadPictureComponent()
{
    Timer4->setEnabled(false);
    if (!platform::fileExists(platform::joinPath(ProgramFolder, QStringLiteral("TKGraphics.dll")))) {
        platform::msgBox(QStringLiteral("Torvik's Graphics Dll (TKGraphics.dll) couldn't be found. "
                                        "Make sure its in your TK dir. Ending Torvik!"));
        ExitProgram(true);
        return;
    }
    ui.Label2->setVisible(true);
    ui.Label2->repaint();

    std::unique_ptr<media::GraphicsComponent> component;
    if (media::GraphicsComponent::load(ProgramFolder, component) != media::GraphicsComponent::LoadResult::Ok) {
        offerRepair();
        return;
    }
    delete media::GraphicsObject;
    media::GraphicsObject = component.release();
    Timer1->setEnabled(true);
}

// The component is there but can't be used. Putting back the copy that was
// installed beside the program is our way of registering it anew; like a
// registration, it takes effect at the next start.
void SplashForm::offerRepair()
{
    platform::beep();
    const platform::Answer answer = platform::msgBox(
        QStringLiteral("Error! The TKGraphics.dll couldn't be used.  Would you like TK to try to register the dll for you?"),
        platform::Buttons::YesNo, platform::Icon::Question, QStringLiteral("Register TKGraphics.dll"));
    if (answer != platform::Answer::Yes)
        return;
    platform::msgBox(QStringLiteral("If worked...You will receive a message saying Dllregisterserver successful.  "
                                    "TK will end afterward."));
    if (media::GraphicsComponent::repair(ProgramFolder))
        platform::msgBox(QStringLiteral("DllRegisterServer in tkgraphics.dll succeeded."));
    else
        platform::msgBox(QStringLiteral("DllRegisterServer in tkgraphics.dll failed."), platform::Buttons::Ok,
                         platform::Icon::Critical);
    ExitProgram(true);
}

void SplashForm::offerDataFiles()
{
    Timer1->setEnabled(false);
    ui.Version->setVisible(true);
    if (ui.File1->count() == 0) {
        startWizard();
        return;
    }
    ui.Label2->setVisible(false);
    ui.Picture1->setVisible(true);
}

void SplashForm::enableDataFileChoice()
{
    const bool on = ui.Option2->isChecked();
    ui.File1->setEnabled(on);
    ui.Command2->setEnabled(on);
}

void SplashForm::startWizard()
{
    ui.Label2->setText(QStringLiteral("LOADING TORVIK..."));
    ui.Label2->setVisible(true);
    if (ui.Option1->isChecked()) {
        DataFileMode = 0;
        RebuildCTFBots = 1;
    } else {
        QListWidgetItem* row = ui.File1->currentItem();
        if (!row || !row->isSelected()) {
            platform::msgBox(QStringLiteral("No Torvik Data file selected!"));
            return;
        }
        DataFileMode = 1;
        DataFileName = row->text();
        CompanionFileName = DataFileName.left(DataFileName.size() - 3) + QStringLiteral("tke");
    }
    ui.Label2->repaint();
    try {
        if (!ShowMainForm())
            return;
    } catch (const std::bad_alloc&) {
        platform::msgBox(QStringLiteral("Out-of-Memory. Try closing a few apps, then try running again."),
                         platform::Buttons::Ok, platform::Icon::Critical);
        ExitProgram(true);
        return;
    } catch (...) {
        platform::msgBox(QStringLiteral("Error! Something bad has happened loading the main form!"));
        ExitProgram(true);
        return;
    }
    hide();
    deleteLater();
}

void SplashForm::deleteDataFile()
{
    QListWidgetItem* row = ui.File1->currentItem();
    if (!row || !row->isSelected()) {
        platform::beep();
        platform::msgBox(QStringLiteral("No Torvik Data file selected!"));
        return;
    }
    const QString name = row->text();
    if (!platform::ask(QStringLiteral("Are you sure you want to delete ") + name + QStringLiteral(" ?"),
                       QStringLiteral("Delete")))
        return;
    const QString saved = savedFolder();
    if (!QFile::remove(platform::joinPath(saved, name))) {
        platform::msgBox(QStringLiteral("Couldn't delete ") + name + QStringLiteral("!"), platform::Buttons::Ok,
                         platform::Icon::Exclamation);
        return;
    }
    const QString companion = platform::resolvePath(
        platform::joinPath(saved, name.left(name.size() - 3) + QStringLiteral("tke")));
    if (!companion.isEmpty())
        QFile::remove(companion);
    listDataFiles();
    if (ui.File1->count() == 0) {
        ui.Option1->setChecked(true);
        ui.Command2->setEnabled(false);
        ui.File1->setEnabled(false);
        ui.Option2->setEnabled(false);
        ui.Picture1->setVisible(false);
        startWizard();
    }
}

void SplashForm::askToClose()
{
    if (platform::ask(QStringLiteral("Are you sure you want to close Torvik?"), QStringLiteral("Close Torvik")))
        ExitProgram(true);
}

// The right press that deletes a file picks the row under the pointer first;
// its release would pick the row that moved there after the delete, shown
// highlighted yet not chosen. Dropped, the list stays as the delete left it.
bool SplashForm::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui.File1->viewport() && event->type() == QEvent::MouseButtonRelease
        && static_cast<QMouseEvent*>(event)->button() == Qt::RightButton)
        return true;
    return QWidget::eventFilter(watched, event);
}

void SplashForm::closeEvent(QCloseEvent* event)
{
    // Closing the splash before the wizard is up ends the program.
    if (!programEnded() && !MainFormInstance()) {
        event->ignore();
        ExitProgram(true);
        return;
    }
    QWidget::closeEvent(event);
}

} // namespace torvik
