#include "wizard/Module1.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "wizard/Globals.h"
#include "wizard/Program.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <dirent.h>

namespace torvik {
namespace {

// A name in the program folder, spelt as it stands on disk when it is there.
QString inProgramFolder(const QString& name)
{
    const QString path = platform::joinPath(ProgramFolder, name);
    const QString real = platform::resolvePath(path);
    return real.isEmpty() ? path : real;
}

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

bool checkFolder(const QString& name, const QString& failure)
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

} // namespace

bool CheckMapInfoFolder()
{
    return checkFolder(QStringLiteral("MapInfo"), QStringLiteral("Couldn't check for map information"));
}

bool CheckBackupFolder()
{
    return checkFolder(QStringLiteral("Backup"), QStringLiteral("Couldn't check for backup information"));
}

bool CheckSavedFolder()
{
    // The map words here are the program's own, kept as they always were.
    return checkFolder(QStringLiteral("Saved"), QStringLiteral("Couldn't check for map information"));
}

QString MapInfoFolder() { return inProgramFolder(QStringLiteral("MapInfo")); }
QString BackupFolder() { return inProgramFolder(QStringLiteral("Backup")); }
QString SavedFolder() { return inProgramFolder(QStringLiteral("Saved")); }

bool RepairGraphicsComponent()
{
    const QString spare = platform::resolvePath(platform::joinPath(ProgramFolder, QStringLiteral("repair/TKGraphics.dll")));
    if (spare.isEmpty())
        return false;
    const QString target = inProgramFolder(QStringLiteral("TKGraphics.dll"));
    const QString fresh = target + QStringLiteral(".new");
    QFile::remove(fresh);
    if (!QFile::copy(spare, fresh))
        return false;
    QFile::remove(target);
    return QFile::rename(fresh, target);
}

bool OpenWithShell(const QString& target)
{
    return platform::openWithDesktop(target);
}

} // namespace torvik
