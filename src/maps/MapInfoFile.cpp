#include "maps/MapInfoFile.h"

namespace torvik::mapinfo {

QList<QByteArray> lines(const QByteArray& file)
{
    QList<QByteArray> out;
    qsizetype start = 0;
    for (qsizetype i = 0; i < file.size(); ++i) {
        const char c = file[i];
        if (c != '\r' && c != '\n')
            continue;
        out << file.mid(start, i - start);
        if (c == '\r' && i + 1 < file.size() && file[i + 1] == '\n')
            ++i;
        start = i + 1;
    }
    if (start < file.size())
        out << file.mid(start);
    return out;
}

bool isRecordOf(const QByteArray& line, const QByteArray& name)
{
    return line.mid(1, name.size()).toUpper() == name.toUpper();
}

std::optional<QByteArray> description(const QByteArray& file, const QByteArray& name)
{
    std::optional<QByteArray> found;
    for (const QByteArray& line : lines(file)) {
        if (!isRecordOf(line, name))
            continue;
        const qsizetype start = name.size() + 2;
        const qsizetype length = line.size() - 1 - start;
        found = length > 0 ? line.mid(start, length) : QByteArray();
    }
    return found;
}

QByteArray record(const QByteArray& name, const QByteArray& description)
{
    QByteArray text = description;
    text.replace('\r', QByteArray()).replace('\n', QByteArray());
    return '"' + name + '?' + text + '"';
}

QByteArray savedFile(const std::optional<QByteArray>& file, const QByteArray& name, const QByteArray& description)
{
    const QByteArray own = record(name, description) + "\r\n";
    if (!file)
        return own;
    if (!mapinfo::description(*file, name)) {
        // A last line without its line end keeps its own line.
        const bool open = !file->isEmpty() && !file->endsWith('\n') && !file->endsWith('\r');
        return *file + (open ? "\r\n" : "") + own;
    }
    QByteArray kept;
    for (const QByteArray& line : lines(*file)) {
        if (!isRecordOf(line, name))
            kept += line + "\r\n";
    }
    return kept + own;
}

QStringList screenshotsOf(const QStringList& files, const QString& map)
{
    QStringList shots;
    const QString prefix = map.toUpper() + QLatin1Char('_');
    for (const QString& file : files) {
        const qsizetype dot = file.lastIndexOf(QLatin1Char('.'));
        if (dot < 0 || file.size() - dot - 1 != 3)
            continue;
        if (file.left(dot).toUpper().startsWith(prefix))
            shots << file;
    }
    return shots;
}

} // namespace torvik::mapinfo
