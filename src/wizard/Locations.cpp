#include "wizard/Locations.h"

#include "platform/Files.h"
#include "wizard/Globals.h"

namespace torvik {

QString parseLocationRecord(const QByteArray& bytes)
{
    for (char c : bytes) {
        const auto u = static_cast<unsigned char>(c);
        if (u < 0x20 && c != '\r' && c != '\n' && c != '\t')
            return QString();
    }
    // One record on the first line. The value runs to the line's last quote,
    // so a folder with a double quote in its name reads back whole.
    qsizetype lineEnd = bytes.indexOf('\n');
    if (lineEnd < 0)
        lineEnd = bytes.size();
    if (const qsizetype cr = bytes.indexOf('\r'); cr >= 0 && cr < lineEnd)
        lineEnd = cr;
    const QByteArray line = bytes.left(lineEnd);
    qsizetype start = 0;
    while (start < line.size() && (line[start] == ' ' || line[start] == '\t'))
        ++start;
    if (start >= line.size() || line[start] != '"')
        return QString();
    const qsizetype end = line.lastIndexOf('"');
    if (end <= start)
        return QString();
    return platform::fileNameFromBytes(line.mid(start + 1, end - start - 1));
}

bool isStorableLocation(const QString& value)
{
    return !value.contains(QLatin1Char('\r')) && !value.contains(QLatin1Char('\n')) && !value.contains(QChar(0));
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
    return '"' + platform::fileNameBytes(value) + "\"\r\n";
}

bool writeLocationFile(const QString& fileName, const QString& value)
{
    if (!isStorableLocation(value))
        return false;
    const QString wanted = platform::joinPath(ProgramFolder, fileName);
    const QString existing = platform::resolvePath(wanted);
    return platform::writeFile(existing.isEmpty() ? wanted : existing, locationRecord(value));
}

} // namespace torvik
