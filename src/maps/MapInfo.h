#pragma once
// Where the map trees hand a map over to the map information form. Both trees
// and the cycle list put the map into InfoMapName and call ShowMapInfoForm;
// the form itself belongs to the map descriptions and plugs in through
// setMapInfoOpener. Until it does, a right click only records the map.
#include <QString>

#include <functional>

class QWidget;

namespace torvik {

// The map that the map information form is to show.
inline QString InfoMapName;

using MapInfoOpener = std::function<void(QWidget* parent)>;
// nullptr (an empty function) leaves nothing to open.
void setMapInfoOpener(MapInfoOpener opener);
// Shows the map information form for InfoMapName, modally over parent.
void ShowMapInfoForm(QWidget* parent);

} // namespace torvik
