#include "maps/PakDirectory.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace torvik {
namespace {

constexpr qint64 kHeaderSize = 12;
constexpr qint64 kEntrySize = 64;
constexpr qint64 kNameSize = 56;
// Entries fetched per read: large directories go through a fixed buffer, so a
// header claiming gigabytes costs no more memory than an honest one.
constexpr qint64 kEntriesPerRead = 1024;

constexpr char kMapFolder[] = "maps/";
constexpr qint64 kMapFolderSize = 5;
constexpr char kMapSuffix[] = ".bsp";
constexpr qint64 kMapSuffixSize = 4;

qint32 le32(const char* p)
{
    const auto b = reinterpret_cast<const unsigned char*>(p);
    return qint32(quint32(b[0]) | quint32(b[1]) << 8 | quint32(b[2]) << 16 | quint32(b[3]) << 24);
}

MapScanResult failure(MapScanFailure kind, const QString& detail) { return MapScanResult{kind, detail, {}}; }

struct PakHeader {
    qint32 dirOffset = 0;
    qint32 dirLength = 0;
};

MapScanResult openPak(QFile& file, const QString& path, PakHeader& header)
{
    const QFileInfo info(path);
    if (!info.exists())
        return failure(MapScanFailure::CannotRead, QStringLiteral("%1 can't be found").arg(path));
    if (!info.isFile())
        return failure(MapScanFailure::CannotRead, QStringLiteral("%1 is not a file").arg(path));
    file.setFileName(path);
    if (!file.open(QIODevice::ReadOnly))
        return failure(MapScanFailure::CannotRead,
                       QStringLiteral("%1 can't be opened: %2").arg(path, file.errorString()));
    // Bytes missing from a short file count as zeros, as any read past the end
    // does here: a file of fewer than 12 bytes has an empty directory.
    char head[kHeaderSize] = {};
    if (file.read(head, kHeaderSize) < 0)
        return failure(MapScanFailure::CannotRead,
                       QStringLiteral("%1 can't be read: %2").arg(path, file.errorString()));
    header.dirOffset = le32(head + 4);
    header.dirLength = le32(head + 8);
    return {};
}

// Hands `count` entries, 64 bytes apart from `first`, to visit(entry, index)
// until it returns false. Entries that aren't wholly inside the file are left
// out, so the work is bounded by the file's size whatever the header says.
template <typename Visit>
MapScanResult walkEntries(QFile& file, const QString& path, qint64 first, qint64 count, Visit&& visit)
{
    if (count <= 0)
        return {};
    if (first < 0)
        return failure(MapScanFailure::BadDirectory,
                       QStringLiteral("%1: the directory would start %2 bytes before the file").arg(path).arg(-first));
    const qint64 size = file.size();
    if (first > size - kEntrySize)
        return {};
    count = std::min(count, (size - first - kEntrySize) / kEntrySize + 1);

    QByteArray buffer(std::min(count, kEntriesPerRead) * kEntrySize, Qt::Uninitialized);
    for (qint64 index = 0; index < count;) {
        const qint64 wanted = std::min(count - index, kEntriesPerRead);
        if (!file.seek(first + index * kEntrySize))
            return failure(MapScanFailure::CannotRead,
                           QStringLiteral("%1 can't be read: %2").arg(path, file.errorString()));
        const qint64 got = file.read(buffer.data(), wanted * kEntrySize);
        if (got < 0)
            return failure(MapScanFailure::CannotRead,
                           QStringLiteral("%1 can't be read: %2").arg(path, file.errorString()));
        const qint64 whole = got / kEntrySize;
        for (qint64 i = 0; i < whole; ++i) {
            MapScanResult stop;
            if (!visit(buffer.constData() + i * kEntrySize, index + i, stop))
                return stop;
        }
        if (whole < wanted) // the file shrank since its size was taken
            break;
        index += wanted;
    }
    return {};
}

// The part of a NUL-ended name between "maps/" and ".bsp", when it is a map.
bool mapNameOf(const char* name, qint64 length, QString& out)
{
    if (length < kMapFolderSize + kMapSuffixSize || std::memcmp(name, kMapFolder, kMapFolderSize) != 0
        || std::memcmp(name + length - kMapSuffixSize, kMapSuffix, kMapSuffixSize) != 0)
        return false;
    // Archive names are 8-bit text; Latin-1 keeps every byte as it was.
    out = QString::fromLatin1(name + kMapFolderSize, length - kMapFolderSize - kMapSuffixSize);
    return true;
}

QString entryLabel(const QString& path, qint64 index)
{
    return QStringLiteral("%1: directory entry %2").arg(path).arg(index + 1);
}

} // namespace

PakMapScan readCatalogueMaps(const QString& pakPath)
{
    PakMapScan scan;
    QFile file;
    PakHeader header;
    scan.result = openPak(file, pakPath, header);
    if (!scan.result.ok())
        return scan;
    const qint64 length = header.dirLength;
    const qint64 entries = length <= 0 ? 0 : (length + kEntrySize - 1) / kEntrySize;
    scan.result = walkEntries(file, pakPath, header.dirOffset, entries,
                              [&](const char* entry, qint64 index, MapScanResult& stop) {
        // The raw name is tested before it is cut at its NUL, so only would-be
        // maps need a well-formed name.
        if (std::memcmp(entry, kMapFolder, kMapFolderSize) != 0)
            return true;
        const void* end = std::memchr(entry, '\0', kNameSize);
        if (!end) {
            stop = failure(MapScanFailure::NameWithoutEnd,
                           entryLabel(pakPath, index) + QStringLiteral(" has a map name without its ending NUL"));
            return false;
        }
        QString name;
        if (mapNameOf(entry, static_cast<const char*>(end) - entry, name))
            scan.maps.append(PakMap{name, le32(entry + kNameSize)});
        return true;
    });
    return scan;
}

PakMapScan readEditorMaps(const QString& pakPath)
{
    PakMapScan scan;
    QFile file;
    PakHeader header;
    scan.result = openPak(file, pakPath, header);
    if (!scan.result.ok())
        return scan;
    // The bound is inclusive: one read more than the directory has entries.
    const qint64 length = header.dirLength;
    const qint64 entries = length < 0 ? 0 : length / kEntrySize + 1;
    scan.result = walkEntries(file, pakPath, header.dirOffset, entries,
                              [&](const char* entry, qint64 index, MapScanResult& stop) {
        const void* end = std::memchr(entry, '\0', kEntrySize);
        if (!end) {
            stop = failure(MapScanFailure::NameWithoutEnd,
                           entryLabel(pakPath, index) + QStringLiteral(" holds no NUL in its 64 bytes"));
            return false;
        }
        QString name;
        if (mapNameOf(entry, static_cast<const char*>(end) - entry, name))
            scan.maps.append(PakMap{name, 0});
        return true;
    });
    return scan;
}

} // namespace torvik
