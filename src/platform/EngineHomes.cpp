#include "platform/EngineHomes.h"

#include "platform/Files.h"

#include <QDir>
#include <QFileInfo>

namespace platform {

QStringList engineHomeFolders(const QString& modName)
{
    const QString home = qEnvironmentVariable("HOME", QDir::homePath());
    QString data = qEnvironmentVariable("XDG_DATA_HOME");
    if (data.isEmpty())
        data = joinPath(home, QStringLiteral(".local/share"));
    const QStringList roots = {joinPath(home, QStringLiteral(".yq2")), joinPath(data, QStringLiteral("YamagiQ2")),
                               joinPath(home, QStringLiteral(".q2pro")), joinPath(home, QStringLiteral(".quake2"))};
    QStringList folders;
    for (const QString& root : roots) {
        if (!modName.isEmpty() && modName.compare(QLatin1String("baseq2"), Qt::CaseInsensitive) != 0)
            folders << joinPath(root, modName);
        folders << joinPath(root, QStringLiteral("baseq2"));
    }
    return folders;
}

QStringList filesInEngineHomes(const QString& modName, const QString& fileName)
{
    QStringList found;
    for (const QString& folder : engineHomeFolders(modName)) {
        const QString real = resolvePath(joinPath(folder, fileName));
        if (!real.isEmpty() && QFileInfo(real).isFile() && !found.contains(real))
            found << real;
    }
    return found;
}

} // namespace platform
