#include "demo/DemoInstall.h"

#include <QDir>

namespace demo {

bool createDemoInstall(const QString& root, QString* error, const DemoOptions&)
{
    if (!QDir().mkpath(root)) {
        if (error)
            *error = QStringLiteral("Can't make %1").arg(root);
        return false;
    }
    return true;
}

QString gameExecutable(const QString& root) { return root + QStringLiteral("/quake2"); }
QString modFolder(const QString& root) { return root + QStringLiteral("/gorvan"); }

} // namespace demo
