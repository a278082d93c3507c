#pragma once
// Hand-made PAK archives for the map tests, written byte by byte from the
// archive layout (12-byte header, member data, 64-byte directory entries), so
// that every field can be made as wrong as a test needs.
#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QList>
#include <QString>

#include <gtest/gtest.h>

namespace mapstest {

inline void putLe32(QByteArray& out, qint32 value)
{
    const auto v = quint32(value);
    out.append(char(v & 0xff)).append(char((v >> 8) & 0xff)).append(char((v >> 16) & 0xff)).append(char(v >> 24));
}

// One 64-byte directory entry. A name shorter than 56 bytes is padded with
// NULs; one of exactly 56 bytes is stored without any.
inline QByteArray dirEntry(const QByteArray& name, qint32 position, qint32 length)
{
    QByteArray e = name.left(56);
    e += QByteArray(56 - e.size(), '\0');
    putLe32(e, position);
    putLe32(e, length);
    return e;
}

inline QByteArray pakHeader(qint32 dirOffset, qint32 dirLength, const QByteArray& signature = "PACK")
{
    QByteArray h = signature.left(4);
    h += QByteArray(4 - h.size(), '\0');
    putLe32(h, dirOffset);
    putLe32(h, dirLength);
    return h;
}

// A well-formed archive laid out as the game's tools do: header, data, then
// the directory. positions() tells where each member's data went.
class PakBuilder {
public:
    PakBuilder& add(const QByteArray& name, const QByteArray& data = QByteArray("IBSP"))
    {
        members_.append({name, data});
        return *this;
    }
    PakBuilder& signature(const QByteArray& sig)
    {
        signature_ = sig;
        return *this;
    }

    QByteArray build()
    {
        QByteArray body;
        QByteArray dir;
        positions_.clear();
        for (const auto& m : members_) {
            const qint32 at = qint32(12 + body.size());
            positions_.append(at);
            dir += dirEntry(m.first, at, qint32(m.second.size()));
            body += m.second;
        }
        directoryOffset_ = qint32(12 + body.size());
        return pakHeader(directoryOffset_, qint32(dir.size()), signature_) + body + dir;
    }

    const QList<qint32>& positions() const { return positions_; }
    qint32 directoryOffset() const { return directoryOffset_; }

private:
    QList<QPair<QByteArray, QByteArray>> members_;
    QByteArray signature_ = "PACK";
    QList<qint32> positions_;
    qint32 directoryOffset_ = 0;
};

inline void writeBytes(const QString& path, const QByteArray& bytes)
{
    QDir().mkpath(path.left(path.lastIndexOf(QLatin1Char('/'))));
    QFile f(path);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    ASSERT_EQ(f.write(bytes), bytes.size());
}

inline QByteArray readBytes(const QString& path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll();
}

// A PAK of maps only, named as given.
inline QByteArray mapsPak(const QList<QByteArray>& mapNames)
{
    PakBuilder b;
    for (const QByteArray& n : mapNames)
        b.add("maps/" + n + ".bsp");
    return b.build();
}

} // namespace mapstest
