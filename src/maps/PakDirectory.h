#pragma once
// Map names from the directory of a PAK archive. Only the 12-byte header and
// the directory are read, never a member: a PAK can be hundreds of megabytes
// and the scan runs on a page change.
//
// There are two readers on purpose. The catalogue's one (starting map tree)
// keeps positions and treats a map name without its NUL as damage; the map
// cycle editor's one reads each entry as 64 plain characters, makes one read
// past the directory's end and keeps names only. Their results differ on odd
// archives, and the two trees have always shown those differences.
#include <QList>
#include <QString>

namespace torvik {

enum class MapScanFailure {
    None,
    FolderMissing,  // a folder to be listed isn't there
    CannotRead,     // a listed "*.pak" is no file, or can't be opened or read
    BadDirectory,   // the header puts the directory before the start of the file
    NameWithoutEnd, // a map entry's name has no NUL where one must be
    DuplicateCheck, // the cycle editor's duplicate check tripped over a missing row
};

struct MapScanResult {
    MapScanFailure failure = MapScanFailure::None;
    QString detail; // what went wrong and where, for the one who has to fix the file
    // The first map that found the catalogue full; it and the maps after it
    // are left out, and the scan goes on without them.
    QString leftOut;
    bool ok() const { return failure == MapScanFailure::None; }
};

struct PakMap {
    QString MapName;         // "dm1" for "maps/dm1.bsp", "sub/x" for "maps/sub/x.bsp"
    qint32 FilePosition = 0; // where the member's data starts in the PAK
};

struct PakMapScan {
    QList<PakMap> maps;   // directory order; on a failure, the maps before it
    MapScanResult result;
};

// The catalogue's reader. The signature isn't checked: any "*.pak" is read as
// one. Entries run from dirOffset while they start before dirOffset +
// dirLength, so a length that is no multiple of 64 ends in one entry reaching
// past the directory. Only names whose raw bytes begin with "maps/" (case
// counts) and that end in ".bsp" are maps; such a name without a NUL in its
// 56 bytes fails the scan. Entries not wholly inside the file yield nothing.
PakMapScan readCatalogueMaps(const QString& pakPath);

// The cycle editor's reader: every entry is 64 characters cut at the first
// NUL, so a name filling its 56 bytes runs on into the position bytes; 64
// bytes without any NUL fail the scan. Reads at dirOffset + 0, 64, ... up to
// and including dirOffset + dirLength. Positions are not kept.
PakMapScan readEditorMaps(const QString& pakPath);

} // namespace torvik
