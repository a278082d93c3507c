#include "backup/BackupManagerForm.h"

#include "backup/ViewFileForm.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/ProgramContext.h"
#include "platform/Timer.h"

#include <QFile>

namespace backup {
namespace {

const QString kInternalBots = QStringLiteral("Internal Bots.cfg");
const QString kInternalChat = QStringLiteral("Internal Chat.txt");
const QString kNothingSelected = QStringLiteral("Nothing selected");
constexpr int kMaxTitle = 20;

QString selectedRow(const QListWidget* list)
{
    const QListWidgetItem* item = list->currentItem();
    return item && item->isSelected() ? item->text() : QString();
}

// A backup of another case of the same title is the same backup.
QString backupPath(const QString& name)
{
    const QString path = platform::joinPath(backupFolder(), name);
    const QString real = platform::resolvePath(path);
    return real.isEmpty() ? path : real;
}

// The restored file is read at the next start only, so the program ends
// here; nothing the forms save on their way out may overwrite it.
void endAfterRestore(const QString& target, const QString& message)
{
    platform::keepRestoredFile(target);
    platform::beep();
    platform::msgBox(message);
    platform::exitProgram();
}

// A write that fails leaves the user's file as it was; the user hears why,
// and the program goes on so that another choice can be made.
void tellNotReplaced(const QString& target)
{
    platform::beep();
    platform::msgBox(QStringLiteral("Couldn't write %1! The file was left as it was.").arg(target),
                     platform::Buttons::Ok, platform::Icon::Critical);
}

} // namespace

BackupManagerForm::BackupManagerForm(QWidget* parent) : QDialog(parent)
{
    ui.setupUi(this);
    Timer1 = new platform::Timer(this, 100, true);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    tabs_ = {
        {Kind::Bots, 1, ui.File1, ui.Command1, ui.Command2, ui.Command3, ui.Command4, QStringLiteral("Bot_Backup"),
         QStringLiteral(".tkb"), QStringLiteral("Bots.cfg was created from user backup.")},
        {Kind::Chat, 2, ui.File2, ui.Command5, ui.Command6, ui.Command7, ui.Command8, QStringLiteral("Chat_Backup"),
         QStringLiteral(".tkc"), QStringLiteral("Chat.txt was created from user backup.")},
        {Kind::Script, 3, ui.File3, ui.Command15, ui.Command14, ui.Command13, ui.Command11,
         QStringLiteral("Script_Backup"), QStringLiteral(".tks"), QStringLiteral("Script.TK was created from user backup.")},
        {Kind::MapInfo, 4, ui.File4, ui.Command16, ui.Command17, ui.Command18, ui.Command19,
         QStringLiteral("MapInfo_Backup"), QStringLiteral(".tkm"),
         QStringLiteral("MapInfo.dat was created from user backup.")},
    };
    for (size_t i = 0; i < tabs_.size(); ++i) {
        const FileTab* tab = &tabs_[i];
        connect(tab->create, &QPushButton::clicked, this, [this, tab] { createBackup(*tab); });
        connect(tab->view, &QPushButton::clicked, this, [this, tab] { viewBackup(*tab); });
        connect(tab->remove, &QPushButton::clicked, this, [this, tab] { deleteBackup(*tab); });
        connect(tab->use, &QPushButton::clicked, this, [this, tab] { useBackup(*tab); });
    }
    connect(ui.Command10, &QPushButton::clicked, this, &BackupManagerForm::viewFactoryCopy);
    connect(ui.Command12, &QPushButton::clicked, this, &BackupManagerForm::useFactoryCopy);
    connect(ui.Command9, &QPushButton::clicked, this, &BackupManagerForm::closeManager);
    connect(Timer1, &platform::Timer::timeout, this, &BackupManagerForm::followBackupLists);
    loadForm();
}

void BackupManagerForm::loadForm()
{
    ui.List1->addItems({kInternalBots, kInternalChat});
    for (const FileTab& tab : tabs_)
        listBackups(tab);
    followBackupLists();
    // A rescue shows only the tab of the broken file and the factory copies.
    if (BackupRescueMode == 1 || BackupRescueMode == 2) {
        const int keep = BackupRescueMode;
        for (int t = 1; t <= 4; ++t)
            ui.SSTab1->setTabEnabled(t, t == keep);
    }
    for (const FileTab& tab : tabs_)
        tab.create->setEnabled(platform::fileExists(userFilePath(tab.kind)));
    // Close is gone in a rescue, and so are the bots tab's Create and View
    // whichever file broke: the user can only put a good file in place.
    if (BackupRescueMode == 1 || BackupRescueMode == 2) {
        delete ui.List1->takeItem(BackupRescueMode == 1 ? 1 : 0);
        ui.Command1->setEnabled(false);
        ui.Command2->setEnabled(false);
        ui.Command9->setEnabled(false);
    }
}

void BackupManagerForm::listBackups(const FileTab& tab)
{
    tab.list->clear();
    tab.list->addItems(platform::listFiles(backupFolder(), {QLatin1Char('*') + tab.extension}));
}

// The View, Delete and Use buttons follow their lists; Create and Close are
// the load's alone.
void BackupManagerForm::followBackupLists()
{
    for (const FileTab& tab : tabs_) {
        const bool any = tab.list->count() > 0;
        tab.view->setEnabled(any);
        tab.remove->setEnabled(any);
        tab.use->setEnabled(any);
    }
}

void BackupManagerForm::createBackup(const FileTab& tab)
{
    QString title;
    for (;;) {
        title = platform::inputBox(QStringLiteral("Type in a title for this backup. {Max lengh is 20 characters}"),
                                   QStringLiteral("Title of Backup"), tab.defaultTitle);
        QString problem;
        if (title.isEmpty())
            problem = QStringLiteral("Must have a title! Retry?");
        else if (title.size() > kMaxTitle)
            problem = QStringLiteral("Title is to long! Retry?");
        else
            break;
        if (platform::msgBox(problem, platform::Buttons::RetryCancel, platform::Icon::Question, QStringLiteral("Retry?"))
            != platform::Answer::Retry)
            return;
    }
    const QString name = title + tab.extension;
    // A title that can't be a file name, or a folder that takes no files,
    // fails here; the folder keeps what it had.
    if (title.contains(QLatin1Char('/')) || !platform::copyFile(userFilePath(tab.kind), backupPath(name))) {
        platform::beep();
        platform::msgBox(QStringLiteral("Couldn't create the backup %1! Check that the Backup folder can be written "
                                        "and that the title can be a file name.")
                             .arg(name),
                         platform::Buttons::Ok, platform::Icon::Critical);
    }
    listBackups(tab);
}

void BackupManagerForm::viewBackup(const FileTab& tab)
{
    const QString name = selectedRow(tab.list);
    if (name.isEmpty()) {
        platform::msgBox(kNothingSelected);
        return;
    }
    QByteArray bytes;
    if (!platform::readFile(backupPath(name), bytes)) {
        platform::msgBox(QStringLiteral("Couldn't read the backup %1!").arg(name), platform::Buttons::Ok,
                         platform::Icon::Critical);
        listBackups(tab);
        return;
    }
    ViewFileForm(bytes, this).exec();
}

void BackupManagerForm::deleteBackup(const FileTab& tab)
{
    const QString name = selectedRow(tab.list);
    if (name.isEmpty()) {
        platform::msgBox(kNothingSelected);
        return;
    }
    if (!platform::ask(QStringLiteral("Are you sure you want to delete ") + name, QStringLiteral("Delete ") + name))
        return;
    if (!QFile::remove(backupPath(name)))
        platform::msgBox(QStringLiteral("Couldn't delete the backup %1!").arg(name), platform::Buttons::Ok,
                         platform::Icon::Critical);
    listBackups(tab);
}

// A click replaces the file at once, without a question.
void BackupManagerForm::useBackup(const FileTab& tab)
{
    const QString name = selectedRow(tab.list);
    if (name.isEmpty())
        return;
    const QString target = userFilePath(tab.kind);
    if (!platform::copyFile(backupPath(name), target)) {
        tellNotReplaced(target);
        return;
    }
    endAfterRestore(target, tab.usedMessage);
    accept();
}

// In the chat rescue the one row left is the chat copy, whatever its place.
void BackupManagerForm::viewFactoryCopy()
{
    const int row = ui.List1->currentRow();
    if (selectedRow(ui.List1).isEmpty()) {
        platform::msgBox(kNothingSelected);
        return;
    }
    const bool bots = row == 0 && BackupRescueMode != 2;
    ViewFileForm(bots ? factoryBotsText() : factoryChatText(), this).exec();
}

void BackupManagerForm::useFactoryCopy()
{
    const QString row = selectedRow(ui.List1);
    if (row.isEmpty()) {
        platform::msgBox(kNothingSelected);
        return;
    }
    const bool bots = row == kInternalBots;
    if (BackupRescueMode != (bots ? 1 : 2)) {
        const QString question = bots ? QStringLiteral("Are you sure you want to replace your current bots.cfg file with the ")
                                      : QStringLiteral("Are you sure you want to replace your current chat.txt file with the ");
        if (!platform::ask(question + row, QStringLiteral("Replace File?")))
            return;
    }
    RestoreWhat = bots ? QStringLiteral("BOTS") : QStringLiteral("CHAT");
    Restore();
    if (platform::programEnded())
        accept();
}

void BackupManagerForm::closeManager()
{
    BackupRescueMode = 0;
    QDialog::reject();
}

// The close box and Escape. A rescue can't be walked away from: the broken
// file would stay broken, so leaving the rescue closes Torvik.
void BackupManagerForm::reject()
{
    if (BackupRescueMode == 1 || BackupRescueMode == 2) {
        platform::exitProgram();
        QDialog::reject();
        return;
    }
    closeManager();
}

void Restore()
{
    const bool bots = RestoreWhat == QLatin1String("BOTS");
    if (!bots && RestoreWhat != QLatin1String("CHAT"))
        return;
    const QString target = userFilePath(bots ? Kind::Bots : Kind::Chat);
    if (!platform::writeFile(target, (bots ? factoryBotsText() : factoryChatText()) + "\r\n")) {
        tellNotReplaced(target);
        return;
    }
    endAfterRestore(target, bots ? QStringLiteral("Bots.cfg was created from Internal Backup System.")
                                 : QStringLiteral("Chat.txt was created from Internal Backup System."));
}

} // namespace backup
