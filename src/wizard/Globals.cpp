#include "wizard/Globals.h"

namespace torvik {

QString gameFolder()
{
    const qsizetype at = Quake2Location.lastIndexOf(QLatin1Char('/'));
    if (at < 0)
        return QString();
    return at == 0 ? QStringLiteral("/") : Quake2Location.left(at);
}

QString modFolder()
{
    // The stored mod path always ends in "/GAMEX86.DLL" (12 characters).
    QString folder = GorvanLocation.left(qMax<qsizetype>(0, GorvanLocation.size() - 12));
    if (folder.isEmpty() && GorvanLocation.startsWith(QLatin1Char('/')))
        folder = QStringLiteral("/");
    return folder;
}

QString modShortName()
{
    QString folder = modFolder();
    while (folder.endsWith(QLatin1Char('/')) && folder.size() > 1)
        folder.chop(1);
    return folder.mid(folder.lastIndexOf(QLatin1Char('/')) + 1);
}

} // namespace torvik
