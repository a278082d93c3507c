#pragma once

namespace torvik {

// Removes the configuration files an earlier launch left behind, read-only
// ones included.
void KillFiles();

} // namespace torvik
