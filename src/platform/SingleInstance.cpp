#include "platform/SingleInstance.h"

#include <QDir>
#include <QLockFile>

#include <memory>
#include <unistd.h>

namespace platform {
namespace {
std::unique_ptr<QLockFile> held;
}

bool acquireSingleInstance(const QString& lockPath)
{
    const QString path = lockPath.isEmpty()
        ? QDir::temp().filePath(QStringLiteral("torvik-%1.lock").arg(getuid()))
        : lockPath;
    auto lock = std::make_unique<QLockFile>(path);
    lock->setStaleLockTime(0);
    if (!lock->tryLock(0))
        return false;
    held = std::move(lock);
    return true;
}

void releaseSingleInstance() { held.reset(); }

} // namespace platform
