#pragma once
// PAK archives written byte by byte (12-byte header, member data, 64-byte
// directory entries), so that every field can be as wrong as a test needs.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>

namespace mapstest {

inline QByteArray le32(qint32 v)
{
    const auto u = quint32(v);
    const char bytes[] = {char(u), char(u >> 8), char(u >> 16), char(u >> 24)};
    return QByteArray(bytes, 4);
}

inline QByteArray header(qint32 dirOffset, qint32 dirLength, const QByteArray& signature = "PACK")
{
    return signature + le32(dirOffset) + le32(dirLength);
}

// A 64-byte entry: the name NUL-padded to 56 bytes (none at 56), position, length.
inline QByteArray entry(const QByteArray& name, qint32 position = 12, qint32 length = 4)
{
    return name.left(56) + QByteArray(56 - qMin<qsizetype>(56, name.size()), '\0') + le32(position) + le32(length);
}

// Laid out as the game's tools do: header, one "IBSP" of data, directory.
inline QByteArray pak(const QList<QByteArray>& names, const QByteArray& signature = "PACK")
{
    QByteArray dir;
    for (const QByteArray& n : names)
        dir += entry(n);
    return header(16, qint32(dir.size()), signature) + "IBSP" + dir;
}

inline bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf(QLatin1Char('/'))));
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

} // namespace mapstest
