#pragma once
#include <QString>

namespace torvik {

// Where the single-instance lock lives; empty means the per-user default.
inline QString SingleInstanceLockPath;

// Starts the program as the user does: ProgramFolder must be set; shows the
// splash form, whose timers carry on the start-up.
void startProgram();

// Every way out of the program: closes all forms and ends the process.
void ExitProgram(bool force = true);

// True once ExitProgram ran (the forms may still be closing).
bool programEnded();

} // namespace torvik
