#pragma once
// A generated Quake II tree with the Gorvan mod's files, so that Torvik can be
// tried and tested without the game. Our own data only: no game content.
#include <QString>

namespace demo {

struct DemoOptions {
    // Spell some names the way Windows-made installs do ("PAK0.PAK", "Bots.cfg").
    bool mixedCase = false;
};

// Writes the install below root (made if missing). False, with a reason in
// error, when something can't be written.
bool createDemoInstall(const QString& root, QString* error = nullptr, const DemoOptions& options = {});

// Paths inside an install made by createDemoInstall.
QString gameExecutable(const QString& root);
QString modFolder(const QString& root);

} // namespace demo
