#include "wizard/Locations.h"

#include "platform/Files.h"
#include "wizard/Globals.h"

namespace torvik {

QString parseLocationRecord(const QByteArray& bytes)
{
    qsizetype start = 0;
    while (start < bytes.size() && (bytes[start] == ' ' || bytes[start] == '\t'))
        ++start;
    if (start >= bytes.size() || bytes[start] != '"')
        return QString();
    const qsizetype end = bytes.indexOf('"', start + 1);
    if (end < 0)
        return QString();
    for (char c : bytes) {
        const auto u = static_cast<unsigned char>(c);
        if (u < 0x20 && c != '\r' && c != '\n' && c != '\t')
            return QString();
    }
    const QByteArray value = bytes.mid(start + 1, end - start - 1);
    if (value.contains('\r') || value.contains('\n'))
        return QString();
    return QString::fromUtf8(value);
}

QString readLocationFile(const QString& path)
{
    const QString real = platform::resolvePath(path);
    QByteArray bytes;
    if (real.isEmpty() || !platform::fileExists(real) || !platform::readFile(real, bytes))
        return QString();
    return parseLocationRecord(bytes);
}

QByteArray locationRecord(const QString& value)
{
    return '"' + value.toUtf8() + "\"\r\n";
}

bool writeLocationFile(const QString& fileName, const QString& value)
{
    const QString wanted = platform::joinPath(ProgramFolder, fileName);
    const QString existing = platform::resolvePath(wanted);
    return platform::writeFile(existing.isEmpty() ? wanted : existing, locationRecord(value));
}

} // namespace torvik
