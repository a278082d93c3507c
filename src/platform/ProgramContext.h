#pragma once
// Where Torvik and the game it starts live, and the one way out of the
// program. The wizard fills it in at start-up and whenever a location is
// set; the bots, maps and media code read it here instead of reaching up
// into the wizard.
#include <QString>

#include <functional>
#include <vector>

namespace platform {

struct ProgramContext {
    // The folder of Torvik's executable, holding its own files.
    QString programFolder;
    // Full paths of the game executable and of the mod's game library.
    QString quake2Location;
    QString gorvanLocation;
    // The program's orderly end; the wizard puts its own here, which closes
    // the forms first.
    std::function<void()> exitProgram;
    // True once the program began to end (its forms may still be closing).
    bool ended = false;
    // What forms do as the program ends (a form that keeps its work at
    // unload), run once by the way out after `ended` is set.
    std::vector<std::function<void()>> atEnd;

    // The game executable's path cut before its last separator.
    QString gameFolder() const;
    // The mod library's path without its last 12 characters ("/GAMEX86.DLL").
    QString modFolder() const;
    // The last folder name of the mod folder, as it stands on disk.
    QString modShortName() const;
    // A name directly below the program folder, spelt as on disk when it is
    // there ("MapInfo", "Backup", "Saved", ...).
    QString inProgramFolder(const QString& name) const;
};

// The one context of the run.
inline ProgramContext programContext;

// Ends the program through the context's way out, or, with none set, ends the
// process. Only the first call does anything.
void exitProgram();
bool programEnded();

} // namespace platform
