#pragma once
#include <QString>

namespace platform {

// Takes the per-user lock that keeps a second copy of the program from
// running. Returns false when another running instance holds it. The lock is
// held until the process ends.
bool acquireSingleInstance(const QString& lockPath = QString());
void releaseSingleInstance();

} // namespace platform
