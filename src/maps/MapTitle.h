#pragma once
// The title stored in a map, asked of the title library (mapname.dll in the
// program folder) for the file and position that the map catalogue holds.
#include <QByteArray>
#include <QString>

namespace torvik {

// The title line's text whenever the library can't give a title: missing,
// not loadable, without its entry point, or no title in the map.
inline const QString kNoMapTitleText = QStringLiteral("Couldn't find map title!");

// The record handed to the library: the path's bytes and a NUL, cut to the
// record's 120 bytes (a longer path then arrives cut, and yields no title).
QByteArray titleRecord(const QString& sourceFile);

// What the map information form shows as the map's title. Empty when the
// catalogue has no row of the map (in single player it holds none); the
// first row whose name matches, case ignored, is asked.
QString GetMapTitle(const QString& mapName);

} // namespace torvik
