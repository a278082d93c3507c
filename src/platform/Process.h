#pragma once
// Starting other programs: always a program and its argument list, never a
// shell, so that paths with blanks and quotes arrive as they are.
#include <QString>
#include <QStringList>

namespace platform {

struct ProcessStart {
    QString program;
    QStringList arguments;
    QString workingFolder;
};

class ProcessLauncher {
public:
    virtual ~ProcessLauncher() = default;
    // Starts detached and returns at once; false when the program couldn't start.
    virtual bool start(const ProcessStart& what) = 0;
};

ProcessLauncher& launcher();
void setLauncher(ProcessLauncher* replacement); // tests; nullptr restores; not owned

// How to start a game executable: a Windows ".exe" goes through wine when wine
// is installed; anything else is run as it is.
ProcessStart executableStart(const QString& exe, const QStringList& arguments, const QString& workingFolder);

// Opens a web address, mail address or document with the desktop's opener.
bool openWithDesktop(const QString& target);

// Where the program ends. The desktop handler leaves the event loop and ends
// the process; tests replace it to watch the end instead.
using ExitHandler = void (*)(int code);
void setExitHandler(ExitHandler handler); // nullptr restores the desktop one
void endProcess(int code = 0);

} // namespace platform
