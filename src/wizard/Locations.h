#pragma once
// The two location files: one quoted record each, CR LF behind it.
#include <QByteArray>
#include <QString>

namespace torvik {

// The value of a location file; empty when the file is missing, empty,
// unquoted, cut off or not text at all.
QString readLocationFile(const QString& path);
QString parseLocationRecord(const QByteArray& bytes);
QByteArray locationRecord(const QString& value);
// A record is one line: a path holding a line break (or a NUL) can't be
// stored, and the folder that holds it must be refused when it is chosen.
bool isStorableLocation(const QString& value);
// Rewrites the named file in the program folder whole, keeping the spelling
// of a file that is already there. False, and the old file kept, when the
// value can't be stored or the file can't be written.
bool writeLocationFile(const QString& fileName, const QString& value);

} // namespace torvik
