#pragma once
// File look-up that ignores case, as game installs made on Windows mix
// "PAK0.PAK" and "Bots.cfg", and the listing helpers that stand in for the
// file and folder list boxes.
#include <QString>
#include <QStringList>

namespace platform {

// The path as it is spelled on disk, each component matched without regard to
// case (an exact match wins). Empty when nothing matches.
QString resolvePath(const QString& path);
bool fileExists(const QString& path);   // a file (not a folder) is there
bool folderExists(const QString& path); // a folder is there
// folder + "/" + name, without doubling a separator the folder already ends in.
QString joinPath(const QString& folder, const QString& name);
// The folder part of a path (everything before the last "/"), "" if none.
QString folderOf(const QString& path);
QString fileNameOf(const QString& path);

// Names of the files in a folder that match one of the wildcard patterns
// ("*.exe"), case ignored, sorted as a file list box sorts them. Hidden files
// are included; folders never are. A folder that can't be read gives nothing.
QStringList listFiles(const QString& folder, const QStringList& patterns = {QStringLiteral("*")});
// Names of the sub-folders, sorted the same way.
QStringList listFolders(const QString& folder);

// Executable files of a folder: files with an execute bit and "*.exe" files.
QStringList listExecutables(const QString& folder);

// The mod's game library in a folder ("gamex86.dll" or a native game library),
// its name as on disk, or empty.
QString findModLibrary(const QString& folder);

// A file name as stored in a text file: the bytes the file system holds
// (UTF-8). Names written on Windows in its 8-bit code page read as Latin-1.
QString fileNameFromBytes(const QByteArray& bytes);
QByteArray fileNameBytes(const QString& name);

// Reads a whole file; false when it can't be read.
bool readFile(const QString& path, QByteArray& out);
// Every write of a file goes through here. The file is replaced whole and
// only once the new text is complete; false when it can't be written, and
// then the old file is left byte for byte as it was. A read-only file (its
// owner's write bit off) is refused, and so is a folder in the file's place.
bool writeFile(const QString& path, const QByteArray& data);
// A file just put back from a backup is read only at the next start, and the
// program ends right after it; whatever a form would still save on its way
// out must not undo it. From this call on, writeFile leaves the file alone
// once the program is ending, and reports that as done.
void keepRestoredFile(const QString& path);
// True when the file is there and its owner may not write it.
bool isReadOnlyFile(const QString& path);
// Copies a file's bytes through writeFile.
bool copyFile(const QString& from, const QString& to);

} // namespace platform
