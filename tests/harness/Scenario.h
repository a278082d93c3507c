#pragma once
// Plays a scenario (see SCENARIOS.md) against the real forms, offscreen, in a
// fresh temporary folder, and tells what didn't go as expected.
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace harness {

struct ScenarioFailure {
    int line = 0;    // line of the scenario, 0 for the run as a whole
    QString message; // without the "<name>:<line>: " prefix
};

struct ScenarioResult {
    bool passed = false;
    std::vector<ScenarioFailure> failures;
    QStringList output; // every line printed, failures included
    bool mistakes = false; // lines that can't be understood; nothing ran
    // A "start" after the program ended: the run stopped before the lines
    // that lead to it, which play on in a new process (see runner_main)
    // with the same folder, from this line.
    int restartLine = 0;
    QString folder; // the scenario's folder, kept for the restart
};

struct ScenarioOptions {
    // Replaces torvik::startProgram() for the "start" line, e.g. a test that
    // builds a throwaway form. Runs after the program folder, the doubles and
    // the manual clock are in place.
    std::function<void()> start;
    // Where TKGraphics.dll and the "repair" folder are copied from into
    // $PROGRAM; empty leaves $PROGRAM empty.
    QString programTemplate = QStringLiteral(TORVIK_BUILD_PROGRAM_DIR);
    // Upper bound of one run, in real milliseconds.
    int timeoutMs = 60000;
    // Print every line before it runs.
    bool verbose = false;
    // Receives each output line as it happens.
    std::function<void(const QString&)> print;
    // Of a scenario cut by "fresh" lines, the part to play (1 is the part
    // before the first). 0 plays a scenario without them.
    int part = 0;
    // Goes on with a scenario that ended its program and starts it again:
    // the folder of the earlier run, and the line to play on from.
    QString resumeFolder;
    int resumeLine = 0;
};

ScenarioResult runScenario(const QByteArray& text, const QString& name, const ScenarioOptions& options = {});
inline ScenarioResult runScenario(const QString& text, const QString& name, const ScenarioOptions& options = {})
{
    return runScenario(text.toUtf8(), name, options);
}
ScenarioResult runScenarioFile(const QString& path, const ScenarioOptions& options = {});
// How many parts the "fresh" lines cut a scenario into.
int scenarioParts(const QByteArray& text);

// Makes a process-wide value checkable with "check global NAME VALUE".
void registerScenarioGlobal(const QString& name, std::function<QString()> read);

// A PAK archive as the game's tools write it: header, each member's data
// ("IBSP"), then the directory. A name of 56 bytes or more fills its field
// without the ending NUL.
QByteArray pakArchive(const QList<QByteArray>& names);

} // namespace harness
