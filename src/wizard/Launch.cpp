#include "wizard/Launch.h"

#include "platform/Files.h"
#include "wizard/Globals.h"

#include <QFile>

namespace torvik {

void KillFiles()
{
    const QString mod = modFolder();
    const QString paths[] = {
        platform::joinPath(ProgramFolder, QStringLiteral("asdf.cfg")),
        platform::joinPath(platform::joinPath(gameFolder(), QStringLiteral("baseq2")), QStringLiteral("asdf.cfg")),
        platform::joinPath(mod, QStringLiteral("launcher.cfg")),
        platform::joinPath(mod, QStringLiteral("asdf.cfg")),
    };
    for (const QString& path : paths) {
        const QString real = platform::resolvePath(path);
        if (real.isEmpty() || !platform::fileExists(real))
            continue;
        QFile::setPermissions(real, QFile::permissions(real) | QFile::WriteOwner | QFile::ReadOwner);
        QFile::remove(real);
    }
}

} // namespace torvik
