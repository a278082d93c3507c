#include "platform/Process.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>


namespace platform {
namespace {

class DetachedLauncher final : public ProcessLauncher {
public:
    bool start(const ProcessStart& what) override
    {
        return QProcess::startDetached(what.program, what.arguments, what.workingFolder);
    }
};

DetachedLauncher detached;
ProcessLauncher* current = nullptr;

void desktopExit(int code)
{
    // Queued, so that it also works before the event loop runs.
    QMetaObject::invokeMethod(QCoreApplication::instance(), [code] { QCoreApplication::exit(code); },
                              Qt::QueuedConnection);
}

ExitHandler exitHandler = nullptr;

} // namespace

ProcessLauncher& launcher() { return current ? *current : detached; }
void setLauncher(ProcessLauncher* replacement) { current = replacement; }

ProcessStart executableStart(const QString& exe, const QStringList& arguments, const QString& workingFolder)
{
    if (exe.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive)) {
        const QString wine = QStandardPaths::findExecutable(QStringLiteral("wine"));
        if (!wine.isEmpty())
            return {wine, QStringList{exe} + arguments, workingFolder};
    }
    return {exe, arguments, workingFolder};
}

bool openWithDesktop(const QString& target)
{
    return launcher().start({QStringLiteral("xdg-open"), {target}, QString()});
}

void setExitHandler(ExitHandler handler) { exitHandler = handler; }

void endProcess(int code)
{
    if (exitHandler)
        exitHandler(code);
    else
        desktopExit(code);
}

} // namespace platform
