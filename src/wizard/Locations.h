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
// Rewrites the named file in the program folder whole, keeping the spelling
// of a file that is already there.
bool writeLocationFile(const QString& fileName, const QString& value);

} // namespace torvik
