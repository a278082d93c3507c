#pragma once
// MapInfo.dat, the descriptions the user typed for maps, and the screenshots
// beside it in the program's MapInfo folder. Plain functions over bytes and
// names: the form does the file work.
//
// A record is one line: a quotation mark, the map's name, "?", the
// description and a quotation mark. Nothing is escaped; a record is read by
// position only. A line is a record of a map when the characters behind its
// first one start with the map's name, case ignored, so "base1" also owns a
// record of "base12": files written by earlier versions rely on that match,
// and it stays.
#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace torvik::mapinfo {

inline const QString kFileName = QStringLiteral("MapInfo.dat");
inline const QString kNoDescription = QStringLiteral("No description available");

// The file's lines: each ended by CR LF, or by a lone CR or LF as a file
// edited by hand may have them; the file's end ends the last one.
QList<QByteArray> lines(const QByteArray& file);

// Whether the line is a record of the map (name as bytes, as written).
bool isRecordOf(const QByteArray& line, const QByteArray& name);

// The description in the map's last record: what stands behind the name and
// the character after it, up to but not including the line's last character.
// A record too short to hold one gives an empty description, which the next
// save replaces. Nothing when the map has no record.
std::optional<QByteArray> description(const QByteArray& file, const QByteArray& name);

// One record, without its line end. Line breaks in the description are
// dropped: a record is one line.
QByteArray record(const QByteArray& name, const QByteArray& description);

// The file after the map information form closed. Without a file, the
// record alone. With records of the map, every other line in file order and
// then the record, each with CR LF: the map's record moves to the end. With
// none, the file as it was and the record behind it, on a line of its own.
QByteArray savedFile(const std::optional<QByteArray>& file, const QByteArray& name, const QByteArray& description);

// The screenshots of the map among the names of the folder's "*.pcx" and
// "*.tga" files, in their order: a name whose extension has three letters and
// whose stem begins with the map's name and "_", case ignored. "base1_2.tga"
// belongs to "base1", "base1.tga" doesn't.
QStringList screenshotsOf(const QStringList& files, const QString& map);

} // namespace torvik::mapinfo
