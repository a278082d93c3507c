#include "bots/BotsFile.h"

#include <cstring>

namespace torvik {
namespace {

constexpr int kNone = -1; // what a position off the row reads as

QString latin1(QByteArrayView text) { return QString::fromLatin1(text.data(), text.size()); }

// A row seen through 1-based positions, the way its rules count. Reading off
// either end gives no character rather than an error, so that every scan on
// a short or broken row simply runs out of steps.
class Row {
public:
    explicit Row(QByteArrayView text) : text_(text) {}

    qsizetype size() const { return text_.size(); }

    int at(qsizetype pos) const { return pos >= 1 && pos <= text_.size() ? uchar(text_[pos - 1]) : kNone; }

    // Up to len characters from pos, cut at the end of the row.
    QByteArrayView mid(qsizetype pos, qsizetype len) const
    {
        if (pos < 1 || pos > text_.size() || len <= 0)
            return {};
        return text_.sliced(pos - 1, qMin(len, text_.size() - pos + 1));
    }

    // The next quotation mark from pos on. A scan that finds none within its
    // steps stops kRowScanLimit positions on, usually past the row's end.
    qsizetype findQuote(qsizetype from) const
    {
        const qsizetype first = qMax<qsizetype>(from, 1);
        const qsizetype last = qMin<qsizetype>(from + kRowScanLimit - 1, text_.size());
        if (first <= last) {
            const void* hit = std::memchr(text_.data() + first - 1, '"', size_t(last - first + 1));
            if (hit)
                return static_cast<const char*>(hit) - text_.data() + 1;
        }
        return from + kRowScanLimit;
    }

    // The first position from pos on that holds neither a blank nor, when
    // tabsToo, a tab.
    qsizetype skipBlanks(qsizetype from, bool tabsToo) const
    {
        qsizetype p = from;
        for (int steps = 0; steps < kRowScanLimit; ++steps, ++p) {
            const int c = at(p);
            if (c != ' ' && !(tabsToo && c == '\t'))
                break;
        }
        return p;
    }

private:
    QByteArrayView text_;
};

// The one character at pos as a column's text; empty off the row.
QByteArrayView column(const Row& row, qsizetype pos) { return row.mid(pos, 1); }

QString quoted(const QString& text) { return QLatin1Char('"') + text + QLatin1Char('"'); }

QString blanks(qsizetype count) { return QString(count, QLatin1Char(' ')); }

} // namespace

void ProgressBar::setMaximum(int maximum)
{
    maximum_ = qMax(0, maximum);
    value_ = 0;
    if (report_)
        report_(value_, maximum_);
}

void ProgressBar::step()
{
    if (value_ >= maximum_)
        return;
    ++value_;
    if (report_)
        report_(value_, maximum_);
}

std::vector<QByteArrayView> splitBotsFileLines(QByteArrayView file)
{
    std::vector<QByteArrayView> lines;
    const char* const data = file.data();
    const qsizetype size = file.size();
    qsizetype start = 0;
    for (qsizetype i = 0; i < size; ++i) {
        const char c = data[i];
        if (c != '\r' && c != '\n')
            continue;
        lines.emplace_back(data + start, i - start);
        if (c == '\r' && i + 1 < size && data[i + 1] == '\n')
            ++i;
        start = i + 1;
    }
    if (start < size)
        lines.emplace_back(data + start, size - start);
    return lines;
}

namespace {

std::optional<size_t> skipToPrefix(const std::vector<QByteArrayView>& lines, QByteArrayView prefix)
{
    for (size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].startsWith(prefix))
            return i + 1;
    }
    return std::nullopt;
}

} // namespace

std::optional<size_t> SkipToBots(const std::vector<QByteArrayView>& lines)
{
    return skipToPrefix(lines, "[bots]");
}

std::optional<size_t> SkipToTeams(const std::vector<QByteArrayView>& lines)
{
    return skipToPrefix(lines, "[teams]");
}

std::optional<qint16> botNumber(QByteArrayView text)
{
    qsizetype i = 0;
    bool negative = false;
    if (!text.isEmpty() && (text[0] == '+' || text[0] == '-')) {
        negative = text[0] == '-';
        i = 1;
    }
    if (i == text.size())
        return std::nullopt;
    qint32 value = 0;
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
        if (value > 32768)
            return std::nullopt;
    }
    if (negative)
        value = -value;
    if (value > 32767)
        return std::nullopt;
    return qint16(value);
}

bool ParseBotLine(QByteArrayView line, BotRecord& bot)
{
    bot = BotRecord{};
    const Row row(line);

    const qsizetype nameEnd = row.findQuote(2);
    bot.Name = latin1(row.mid(2, nameEnd - 2));
    const qsizetype skinStart = row.findQuote(nameEnd + 1);
    const qsizetype skinEnd = row.findQuote(skinStart + 1);
    bot.ModelSkin = latin1(row.mid(skinStart + 1, skinEnd - skinStart - 1));

    // Each column is one character, and the character right behind it is
    // stepped over unseen. Only the first gap may hold tabs: later a tab
    // where a value is looked for is taken as the value, which the mod's
    // reader does too, so a file it rejects is rejected here.
    QByteArrayView columns[6];
    qsizetype p = row.skipBlanks(skinEnd + 1, true);
    columns[0] = column(row, p);
    p += 2;
    for (int c = 1; c < 6; ++c) {
        p = row.skipBlanks(p, false);
        columns[c] = column(row, p);
        p += 2;
    }

    // The ping is gathered in batches of five with two unseen characters
    // between them, as the mod's own reader does; pings of up to five
    // digits, all there ever are, read whole.
    p = row.skipBlanks(p, false);
    QByteArray ping;
    for (int gathered = 0; gathered < kRowScanLimit; gathered += 5) {
        bool ended = false;
        for (int inBatch = 0; inBatch < 5; ++inBatch, ++p) {
            const int c = row.at(p);
            if (c == kNone || c == ' ') {
                ended = true;
                break;
            }
            ping += char(c);
        }
        if (ended)
            break;
        p += 2;
    }

    qint16* const fields[6] = {&bot.Accuracy, &bot.Aggressiveness, &bot.CombatSkills,
                               &bot.FavoriteWeapon, &bot.QuadFreak, &bot.Camper};
    for (int c = 0; c < 6; ++c) {
        const std::optional<qint16> n = botNumber(columns[c]);
        if (!n)
            return false;
        *fields[c] = *n;
    }
    const std::optional<qint16> n = botNumber(ping);
    if (!n)
        return false;
    bot.Ping = *n;
    return true;
}

TeamRecord ParseTeamLine(QByteArrayView line)
{
    TeamRecord team;
    const Row row(line);

    const qsizetype nameEnd = row.findQuote(2);
    team.Name = latin1(row.mid(2, nameEnd - 2));
    const qsizetype abbrStart = row.findQuote(nameEnd + 1);
    const qsizetype abbrEnd = row.findQuote(abbrStart + 1);
    team.Abbreviation = latin1(row.mid(abbrStart + 1, abbrEnd - abbrStart - 1));
    const qsizetype skinStart = row.findQuote(abbrEnd + 1);
    const qsizetype skinEnd = row.findQuote(skinStart + 1);
    team.ModelSkin = latin1(row.mid(skinStart + 1, skinEnd - skinStart - 1));

    // Members: every quoted name from here on, brackets or not; the
    // character behind a closing mark is never looked at, and a backtick
    // ends the list.
    QByteArray members;
    qsizetype p = skinEnd + 1;
    for (int steps = 0; steps < kRowScanLimit && p <= row.size(); ++steps) {
        const int c = row.at(p);
        if (c == '"') {
            const qsizetype end = row.findQuote(p + 1);
            members += row.mid(p + 1, end - p - 1);
            members += ' ';
            p = end + 2;
        } else if (c == '`') {
            break;
        } else {
            ++p;
        }
    }
    team.Members = latin1(members);
    return team;
}

BotsSection ReadBotsSection(QByteArrayView file, ProgressBar* progress)
{
    BotsSection out;
    const std::vector<QByteArrayView> lines = splitBotsFileLines(file);
    const std::optional<size_t> start = SkipToBots(lines);
    if (!start)
        return out;
    out.found = true;

    // The section's end is the exact line: "[teams] " or "[Teams]" doesn't
    // end it, and the team rows behind such a line are read as bot rows.
    const QByteArrayView teamsLine("[teams]");

    // First pass, only to size the bar: each meaningful line once for the
    // read and once more for the listing that follows.
    int counted = 0;
    for (size_t i = *start; i < lines.size(); ++i) {
        if (!lines[i].isEmpty() && lines[i][0] != '#')
            ++counted;
        if (lines[i] == teamsLine)
            break;
    }
    if (progress)
        progress->setMaximum(2 * counted + 1);

    for (size_t i = *start; i < lines.size(); ++i) {
        if (progress)
            progress->step();
        const QByteArrayView line = lines[i];
        if (line == teamsLine) {
            QByteArray rest;
            for (size_t k = i + 1; k < lines.size(); ++k) {
                rest += lines[k];
                rest += "\r\n";
            }
            out.teamsText = latin1(rest);
            break;
        }
        if (line.isEmpty() || line[0] != '"')
            continue;
        if (out.rows.size() >= size_t(kMaxBots)) {
            out.rows.emplace_back();
            out.rowFailed = true;
            break;
        }
        BotRecord bot;
        const bool ok = ParseBotLine(line, bot);
        out.rows.push_back(std::move(bot));
        if (!ok) {
            out.rowFailed = true;
            break;
        }
    }
    return out;
}

TeamsSection ReadTeamsSection(QByteArrayView file)
{
    TeamsSection out;
    const std::vector<QByteArrayView> lines = splitBotsFileLines(file);
    const std::optional<size_t> start = SkipToTeams(lines);
    if (!start)
        return out;
    out.found = true;
    for (size_t i = *start; i < lines.size(); ++i) {
        const QByteArrayView line = lines[i];
        ++out.lines;
        if (line.isEmpty() || line[0] != '"')
            continue;
        if (out.rows.size() >= size_t(kMaxTeams)) {
            out.rows.emplace_back();
            out.rowFailed = true;
            break;
        }
        out.rows.push_back(ParseTeamLine(line));
    }
    return out;
}

std::optional<QString> botRowText(const BotRecord& bot)
{
    const QString name = quoted(bot.Name);
    const qsizetype gap = 17 - name.size();
    if (gap < 0)
        return std::nullopt;
    const QString skin = quoted(bot.ModelSkin);
    // A model/skin too wide for its 21 columns gets the name's gap instead,
    // as the editors always wrote it; readers skip blanks, so no harm done.
    const qsizetype skinGap = skin.size() <= 21 ? 21 - skin.size() : gap;
    return name + blanks(gap) + skin + blanks(skinGap)
           + QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                 .arg(bot.Accuracy)
                 .arg(bot.Aggressiveness)
                 .arg(bot.CombatSkills)
                 .arg(bot.FavoriteWeapon)
                 .arg(bot.QuadFreak)
                 .arg(bot.Camper)
                 .arg(bot.Ping);
}

std::optional<QString> teamRowText(const TeamRecord& team)
{
    const QString name = quoted(team.Name);
    const qsizetype gap = 23 - name.size();
    if (gap < 0)
        return std::nullopt;
    const QString skin = quoted(team.ModelSkin);
    const qsizetype skinGap = skin.size() <= 21 ? 21 - skin.size() : gap;
    // Each member is what precedes a blank: a text without its trailing blank
    // loses the last name, and a name holding a blank becomes two members.
    QString members;
    qsizetype from = 0;
    for (qsizetype at; (at = team.Members.indexOf(QLatin1Char(' '), from)) >= 0; from = at + 1)
        members += quoted(team.Members.mid(from, at - from)) + QLatin1Char(' ');
    return name + blanks(gap) + quoted(team.Abbreviation) + blanks(gap) + skin + blanks(skinGap)
           + QLatin1Char('[') + members + QLatin1Char(']');
}

namespace {

const QString kLineEnd = QStringLiteral("\r\n");

std::optional<QString> botsPart(const std::vector<BotRecord>& bots)
{
    QString text = QStringLiteral("[bots]") + kLineEnd;
    for (const BotRecord& bot : bots) {
        const std::optional<QString> row = botRowText(bot);
        if (!row)
            return std::nullopt;
        text += *row + kLineEnd;
    }
    return text;
}

} // namespace

std::optional<QByteArray> botsFileForBots(const std::vector<BotRecord>& bots, const QString& teamsText)
{
    std::optional<QString> text = botsPart(bots);
    if (!text)
        return std::nullopt;
    // The final line end is the print's own: the file ends in an empty line.
    *text += QStringLiteral("[teams]") + kLineEnd + teamsText + kLineEnd;
    return text->toLatin1();
}

std::optional<QByteArray> botsFileForTeams(const std::vector<BotRecord>& bots,
                                           const std::vector<TeamRecord>& teams)
{
    std::optional<QString> text = botsPart(bots);
    if (!text)
        return std::nullopt;
    *text += QStringLiteral("[teams]") + kLineEnd;
    for (const TeamRecord& team : teams) {
        const std::optional<QString> row = teamRowText(team);
        if (!row)
            return std::nullopt;
        *text += *row + kLineEnd;
    }
    *text += kLineEnd;
    return text->toLatin1();
}

} // namespace torvik
