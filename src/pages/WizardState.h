#pragma once
// The two answers that steer more than one page: the game type, and whether
// a data file's answers are being put in place. The start form and the main
// form set them; the pages read them, and the map page ends the data file's
// hold on the chosen map.
#include <QString>

namespace pages {

struct WizardState {
    // "SP", "DM", "DMT" or "CTF".
    QString gameTypeCode = QStringLiteral("DM");
    // 1 from the choice of a data file on the start form until the map tree
    // has been built for it; 0 otherwise.
    int dataFileMode = 0;
    // 1 when Start's save was refused and the launch must wait; the next
    // press that gets past the save puts it back to 0.
    int saveRefused = 0;
};

// The one state of the run.
inline WizardState wizardState;

} // namespace pages
