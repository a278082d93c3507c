#pragma once
// Where the map trees hand a map over to the map information form. Both trees
// and the cycle list put the map into InfoMapName and call ShowMapInfoForm.
#include <QString>

class QWidget;

namespace torvik {

// The map that the map information form is to show.
inline QString InfoMapName;

// Shows the map information form for InfoMapName, modally over parent.
void ShowMapInfoForm(QWidget* parent);

} // namespace torvik
