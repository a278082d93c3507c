#pragma once
// Process-wide state of the wizard. The answers themselves are the values of
// the form controls; these are the few values that live beside them.
#include "pages/WizardState.h"
#include "platform/ProgramContext.h"

#include <QString>

namespace torvik {

// The folder of the executable and the two locations live in the program
// context, where the layers below the wizard read them too.
inline QString& ProgramFolder = platform::programContext.programFolder;
inline QString& Quake2Location = platform::programContext.quake2Location;
inline QString& GorvanLocation = platform::programContext.gorvanLocation;

inline QString gameFolder() { return platform::programContext.gameFolder(); }
inline QString modFolder() { return platform::programContext.modFolder(); }
inline QString modShortName() { return platform::programContext.modShortName(); }

// The game type and the data file flag steer pages as well, which read them
// from the wizard state.
inline QString& GameTypeCode = pages::wizardState.gameTypeCode;
inline int& DataFileMode = pages::wizardState.dataFileMode;
inline int& SaveRefused = pages::wizardState.saveRefused;
inline QString DataFileName;
inline QString CompanionFileName;
inline int RebuildCTFBots = 1;
inline int MapFamilyAtLoad = 1;
inline int LocationsMissing = 0;

// Game and mod locations.
inline int Quake2Set = 0;
inline int GorvanSet = 0;
inline int StoredExeValid = 0;
inline int ReloadAfterPrefs = 0;
inline int PrefsOpen = 0;

// Page engine.
inline int PageNumber = 1;
inline int AboutOpen = 0;
inline QString LastBotCount;

} // namespace torvik
