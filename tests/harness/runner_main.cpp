// torvik_scenario [-v] FILE.scn...: plays scenario files against the real
// forms, offscreen, and exits with 1 when any check failed.
#include "Doubles.h"
#include "Scenario.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>

#include <cstdio>

namespace {

// The offscreen platform's notes on what it can't do (window hints, raising,
// keyboard grabs) say nothing about the program; everything else reaches the
// terminal.
void filterMessages(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(QLatin1String("This plugin does not support")) ||
        message.contains(QLatin1String("XDG_RUNTIME_DIR")))
        return;
    std::fprintf(stderr, "%s\n", qFormatLogMessage(type, context, message).toLocal8Bit().constData());
}

} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(filterMessages);
    QStringList files;
    bool verbose = false;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg == QLatin1String("-v"))
            verbose = true;
        else
            files.append(arg);
    }
    if (files.isEmpty()) {
        std::fprintf(stderr, "usage: torvik_scenario [-v] FILE.scn...\n");
        return 2;
    }
    harness::ensureApplication();
    QCoreApplication::setApplicationName(QStringLiteral("Torvik"));

    // The program's state lives for the whole process, so each further
    // scenario gets a process of its own.
    if (files.size() > 1) {
        bool allPassed = true;
        for (const QString& file : files) {
            QProcess child;
            child.setProcessChannelMode(QProcess::ForwardedChannels);
            child.start(QCoreApplication::applicationFilePath(),
                        verbose ? QStringList{QStringLiteral("-v"), file} : QStringList{file});
            child.waitForFinished(-1);
            allPassed = child.exitStatus() == QProcess::NormalExit && child.exitCode() == 0 && allPassed;
        }
        return allPassed ? 0 : 1;
    }

    harness::ScenarioOptions options;
    options.verbose = verbose;
    options.print = [](const QString& line) {
        std::printf("%s\n", line.toLocal8Bit().constData());
        std::fflush(stdout);
    };
    return harness::runScenarioFile(files.first(), options).passed ? 0 : 1;
}
