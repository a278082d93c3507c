#pragma once
// A generated Quake II tree with the Gorvan mod's files, so that Torvik can be
// tried and tested without the game. Our own data only: no game content.
// tools/demo/README.md lists what the tree holds.
#include <QByteArray>
#include <QString>

namespace demo {

struct DemoOptions {
    // Spell some names the way Windows-made installs do ("PAK0.PAK", "Bots.cfg").
    bool mixedCase = false;
};

// Writes the install below root (made if missing). False, with a reason in
// error, when something can't be written. Running it again over an earlier
// install, of either spelling, brings that install back to the demo state.
bool createDemoInstall(const QString& root, QString* error = nullptr, const DemoOptions& options = {});

// A version 38 BSP map whose only filled lump is the entity text, with the
// title in the world's "message" key, as every demo map is made.
QByteArray bspMap(const QByteArray& title);

// Paths inside an install made by createDemoInstall.
QString gameExecutable(const QString& root);
QString modFolder(const QString& root);
// The game's data folder: "baseq2", or "BaseQ2" with mixedCase.
QString baseFolder(const QString& root, const DemoOptions& options = {});
// The log that the stub game writes on every run (format in stubgame.cpp).
QString stubLog(const QString& root);

} // namespace demo
