#include "backup/Backup.h"

#include "platform/Files.h"
#include "platform/ProgramContext.h"

#include <QFile>

// The factory copies sit in torvik_core, a static library: without a
// reference their resource object would be dropped by the linker.
static void initFactoryResource()
{
    Q_INIT_RESOURCE(factory);
}

namespace backup {
namespace {

QString existingOr(const QString& path)
{
    const QString real = platform::resolvePath(path);
    return real.isEmpty() ? path : real;
}

QByteArray resourceText(const QString& name)
{
    static const bool registered = (initFactoryResource(), true);
    (void)registered;
    QFile f(QStringLiteral(":/factory/factory/") + name);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

QString userFilePath(Kind kind)
{
    const platform::ProgramContext& ctx = platform::programContext;
    switch (kind) {
    case Kind::Bots: return existingOr(platform::joinPath(ctx.modFolder(), QStringLiteral("bots.cfg")));
    case Kind::Chat: return existingOr(platform::joinPath(ctx.modFolder(), QStringLiteral("chat.txt")));
    case Kind::Script: return existingOr(platform::joinPath(ctx.programFolder, QStringLiteral("Script.TK")));
    case Kind::MapInfo:
        return existingOr(platform::joinPath(ctx.inProgramFolder(QStringLiteral("MapInfo")), QStringLiteral("MapInfo.dat")));
    }
    return QString();
}

QString backupFolder() { return platform::programContext.inProgramFolder(QStringLiteral("Backup")); }

QByteArray factoryBotsText() { return resourceText(QStringLiteral("bots.cfg")); }
QByteArray factoryChatText() { return resourceText(QStringLiteral("chat.txt")); }

} // namespace backup
