#include "bots/ModelViewer.h"

#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "platform/ProgramContext.h"

namespace torvik {
namespace {

// The file as spelt on disk; the plain spelling when it isn't there.
QString onDisk(const QString& plain)
{
    const QString real = platform::resolvePath(plain);
    return real.isEmpty() ? plain : real;
}

} // namespace

void startModelViewer(const QString& playersFolder, const QString& model, const QString& skin)
{
    const QString plugins =
        platform::resolvePath(platform::joinPath(platform::programContext.programFolder, QStringLiteral("plugins")));
    // A viewer built for this system needs nothing beside it; the Windows
    // one runs through wine and wants its Glide library.
    QString viewer;
    for (const char* name : {"md2view", "md2view.exe"}) {
        for (const QString& file : platform::listExecutables(plugins))
            if (viewer.isEmpty() && file.compare(QLatin1String(name), Qt::CaseInsensitive) == 0)
                viewer = platform::joinPath(plugins, file);
    }
    if (plugins.isEmpty() || viewer.isEmpty()) {
        platform::msgBox(QStringLiteral("Model Viewer couldn't be found in the TK \\plugins dir."));
        return;
    }
    if (viewer.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive)
        && !platform::fileExists(platform::resolvePath(platform::joinPath(plugins, QStringLiteral("glide.dll"))))) {
        platform::msgBox(QStringLiteral("Model Viewer's required file couldn't be found in the TK \\plugins dir."));
        return;
    }
    const QString folder = onDisk(platform::joinPath(playersFolder, model));
    const QStringList arguments{onDisk(platform::joinPath(folder, QStringLiteral("tris.md2"))),
                                onDisk(platform::joinPath(folder, skin + QStringLiteral(".pcx")))};
    if (!platform::launcher().start(platform::executableStart(viewer, arguments, plugins)))
        platform::msgBox(QStringLiteral("Couldn't view the model!"));
}

} // namespace torvik
