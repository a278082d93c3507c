#include "chat/ChatFile.h"

#include <vector>

namespace chat {

namespace {

std::vector<QByteArray> splitLines(const QByteArray& bytes)
{
    std::vector<QByteArray> lines;
    qsizetype start = 0;
    const qsizetype n = bytes.size();
    for (qsizetype i = 0; i < n; ++i) {
        const char c = bytes[i];
        if (c != '\r' && c != '\n')
            continue;
        lines.push_back(bytes.mid(start, i - start));
        if (c == '\r' && i + 1 < n && bytes[i + 1] == '\n')
            ++i;
        start = i + 1;
    }
    if (start < n)
        lines.push_back(bytes.mid(start));
    return lines;
}

bool isMarker(const QByteArray& line)
{
    for (const QByteArray& marker : sectionMarkers())
        if (line.startsWith(marker))
            return true;
    return false;
}

// The mod stops a section at these lines, so the editor must too: what
// stands behind them is out of the mod's reach.
bool endsSection(const QByteArray& line)
{
    return line.isEmpty() || line[0] == '#' || line[0] == ' ' || isMarker(line);
}

} // namespace

const std::array<QByteArray, kSectionCount>& sectionMarkers()
{
    static const std::array<QByteArray, kSectionCount> markers = {
        QByteArrayLiteral("-- Greetings"),
        QByteArrayLiteral("-- Insults (general)"),
        QByteArrayLiteral("-- Insults (kicking ass)"),
        QByteArrayLiteral("-- Insults (losing, coming back)"),
        QByteArrayLiteral("-- Come-backs"),
        QByteArrayLiteral("-- TEAMPLAY: Help!"),
        QByteArrayLiteral("-- TEAMPLAY: Drop Item (not implemented yet)"),
        QByteArrayLiteral("-- TEAMPLAY: Let's Group!"),
    };
    return markers;
}

std::optional<ChatSections> readChat(const QByteArray& bytes)
{
    const std::vector<QByteArray> lines = splitLines(bytes);
    ChatSections out;
    for (int s = 0; s < kSectionCount; ++s) {
        const QByteArray& marker = sectionMarkers()[s];
        std::size_t i = 0;
        while (i < lines.size() && !lines[i].startsWith(marker))
            ++i;
        if (i == lines.size())
            return std::nullopt;
        for (++i; i < lines.size() && !endsSection(lines[i]); ++i)
            if (lines[i][0] != '"')
                out.sayings[s].append(QString::fromLatin1(lines[i]));
    }
    return out;
}

QByteArray writeChat(const QString& header, const ChatSections& sections)
{
    static const QByteArray crlf = QByteArrayLiteral("\r\n");
    QByteArray out;
    for (const QString& line : header.split(QLatin1Char('\n')))
        out += line.toLatin1() + crlf;
    for (int s = 0; s < kSectionCount; ++s) {
        out += sectionMarkers()[s] + crlf;
        for (const QString& saying : sections.sayings[s])
            out += saying.toLatin1() + crlf;
    }
    return out;
}

QString explanationOf(const QString& header)
{
    QStringList lines = header.split(QLatin1Char('\n'));
    for (QString& line : lines) {
        if (line.startsWith(QLatin1Char('#')))
            line.remove(0, 1);
        if (line.startsWith(QLatin1Char(' ')))
            line.remove(0, 1);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace chat
