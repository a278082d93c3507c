// torvik_scenario [-v] FILE.scn...: plays scenario files against the real
// forms, offscreen, and exits with 1 when any check failed.
#include "Doubles.h"
#include "Scenario.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
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

// Plays one file, or one part of it, in a child process of this program;
// gives its exit code.
int runChild(const QStringList& arguments)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedChannels);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    child.waitForFinished(-1);
    return child.exitStatus() == QProcess::NormalExit ? child.exitCode() : 1;
}

constexpr int kMistakes = 3;

} // namespace

int main(int argc, char** argv)
{
    qInstallMessageHandler(filterMessages);
    QStringList files;
    bool verbose = false;
    int part = 0;
    QString resumeFolder;
    int resumeLine = 0;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg == QLatin1String("-v"))
            verbose = true;
        else if (arg == QLatin1String("--part") && i + 1 < argc)
            part = QString::fromLocal8Bit(argv[++i]).toInt();
        else if (arg == QLatin1String("--resume") && i + 2 < argc) {
            resumeFolder = QString::fromLocal8Bit(argv[++i]);
            resumeLine = QString::fromLocal8Bit(argv[++i]).toInt();
        }        else
            files.append(arg);
    }
    if (files.isEmpty()) {
        std::fprintf(stderr, "usage: torvik_scenario [-v] FILE.scn...\n");
        return 2;
    }
    harness::ensureApplication();
    QCoreApplication::setApplicationName(QStringLiteral("Torvik"));
    const QStringList flags = verbose ? QStringList{QStringLiteral("-v")} : QStringList{};

    // The program's state lives for the whole process, so each further
    // scenario, and each part after a "fresh" line, gets a process of its own.
    if (files.size() > 1) {
        bool allPassed = true;
        for (const QString& file : files)
            allPassed = runChild(flags + QStringList{file}) == 0 && allPassed;
        return allPassed ? 0 : 1;
    }
    const QString file = files.first();
    if (part == 0) {
        QFile f(file);
        const int parts = f.open(QIODevice::ReadOnly) ? harness::scenarioParts(f.readAll()) : 1;
        if (parts > 1) {
            bool allPassed = true;
            for (int k = 1; k <= parts; ++k) {
                const int code = runChild(flags + QStringList{QStringLiteral("--part"), QString::number(k), file});
                allPassed = code == 0 && allPassed;
                if (code == kMistakes)
                    break;
            }
            std::printf("%s: scenario %s\n", file.toLocal8Bit().constData(), allPassed ? "passed" : "failed");
            return allPassed ? 0 : 1;
        }
    }

    harness::ScenarioOptions options;
    options.verbose = verbose;
    options.part = part;
    options.print = [](const QString& line) {
        std::printf("%s\n", line.toLocal8Bit().constData());
        std::fflush(stdout);
    };
    options.resumeFolder = resumeFolder;
    options.resumeLine = resumeLine;
    const harness::ScenarioResult result = harness::runScenarioFile(file, options);
    // Each new process plays on from a later line, so the chain ends.
    if (result.restartLine <= resumeLine)
        return result.passed ? 0 : part && result.mistakes ? kMistakes : 1;
    // The program ended and the scenario starts it again: a new process, as
    // a user's next start is, plays on in the same folder.
    QStringList next = flags;
    if (part)
        next << QStringLiteral("--part") << QString::number(part);
    next << QStringLiteral("--resume") << result.folder << QString::number(result.restartLine) << file;
    const int code = runChild(next);
    if (options.resumeFolder.isEmpty() && !qEnvironmentVariableIsSet("TORVIK_SCENARIO_KEEP"))
        QDir(result.folder).removeRecursively();
    return result.passed && code == 0 ? 0 : 1;
}
