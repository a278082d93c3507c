#include "platform/ProgramContext.h"

#include "platform/Files.h"
#include "platform/Process.h"

namespace platform {

QString ProgramContext::gameFolder() const
{
    const qsizetype at = quake2Location.lastIndexOf(QLatin1Char('/'));
    if (at < 0)
        return QString();
    return at == 0 ? QStringLiteral("/") : quake2Location.left(at);
}

QString ProgramContext::modFolder() const
{
    // The stored mod path always ends in "/GAMEX86.DLL" (12 characters).
    QString folder = gorvanLocation.left(qMax<qsizetype>(0, gorvanLocation.size() - 12));
    if (folder.isEmpty() && gorvanLocation.startsWith(QLatin1Char('/')))
        folder = QStringLiteral("/");
    return folder;
}

QString ProgramContext::modShortName() const
{
    QString folder = modFolder();
    while (folder.endsWith(QLatin1Char('/')) && folder.size() > 1)
        folder.chop(1);
    return folder.mid(folder.lastIndexOf(QLatin1Char('/')) + 1);
}

QString ProgramContext::inProgramFolder(const QString& name) const
{
    const QString path = joinPath(programFolder, name);
    const QString real = resolvePath(path);
    return real.isEmpty() ? path : real;
}

void exitProgram()
{
    if (programContext.ended)
        return;
    if (programContext.exitProgram) {
        programContext.exitProgram();
        return;
    }
    programContext.ended = true;
    endProcess(0);
}

bool programEnded() { return programContext.ended; }

} // namespace platform
