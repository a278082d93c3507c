#include "wizard/Program.h"

namespace torvik {
namespace {
bool ended = false;
}
void startProgram() {}
void ExitProgram(bool) { ended = true; }
bool programEnded() { return ended; }
} // namespace torvik
