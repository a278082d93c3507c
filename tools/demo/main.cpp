// torvik-demo-install FOLDER [--mixed-case]
// Writes the demo game install into FOLDER (see README.md beside this file).
#include "demo/DemoInstall.h"

#include <QCoreApplication>
#include <QStringList>
#include <cstdio>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    QString folder;
    demo::DemoOptions options;
    bool usageError = false;
    const QStringList args = app.arguments().mid(1);
    for (const QString& arg : args) {
        if (arg == QLatin1String("--mixed-case"))
            options.mixedCase = true;
        else if (arg.startsWith(QLatin1String("--")) || !folder.isEmpty())
            usageError = true;
        else
            folder = arg;
    }
    if (usageError || folder.isEmpty()) {
        std::fprintf(stderr, "usage: %s FOLDER [--mixed-case]\n", argv[0]);
        return 2;
    }
    QString error;
    if (!demo::createDemoInstall(folder, &error, options)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    std::printf("Demo install written to %s\n", qPrintable(folder));
    return 0;
}
