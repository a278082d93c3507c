#pragma once
// The map cycle editor's duplicate check, kept with its old quirks; see
// mapeditor::CheckMaps in maps/MapTree.h for what it does.
#include <QStringList>

namespace torvik::mapeditor {

// The check as first written: every row compared with every other, each
// removal shifting the rows behind it. It takes the square of the map count,
// and stays for lists with an empty name, whose rows read past the end make
// the check fail part way.
bool checkMapsByScan(QStringList& List1, QStringList& List2, QStringList& List3);

// The same result from one index of the names per list: each row is found
// by its name instead of by a scan, and its live row number is counted in a
// tree of the rows still there.
bool checkMapsIndexed(QStringList& List1, QStringList& List2, QStringList& List3);

} // namespace torvik::mapeditor
