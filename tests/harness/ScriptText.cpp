#include "ScriptText.h"

namespace harness {
namespace {

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool isNameStart(char c) { return (c >= 'A' && c <= 'Z') || c == '_'; }
bool isNameChar(char c) { return isNameStart(c) || (c >= '0' && c <= '9'); }

int hexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

// Reads "$NAME" at line[i]; appends its value. False with error for an
// unknown name; a "$" not followed by a name stays a "$".
bool expandVariable(const QByteArray& line, qsizetype& i, const QMap<QString, QByteArray>& vars,
                    QByteArray& into, QString* error)
{
    qsizetype end = i + 1;
    if (end >= line.size() || !isNameStart(line[end])) {
        into.append('$');
        ++i;
        return true;
    }
    while (end < line.size() && isNameChar(line[end]))
        ++end;
    const QString name = QString::fromLatin1(line.mid(i + 1, end - i - 1));
    const auto it = vars.find(name);
    if (it == vars.end()) {
        *error = QStringLiteral("unknown variable $%1").arg(name);
        return false;
    }
    into.append(it.value());
    i = end;
    return true;
}

QString escapeChar(uint c, bool bytes)
{
    switch (c) {
    case '"': return QStringLiteral("\\\"");
    case '\\': return QStringLiteral("\\\\");
    case '\r': return QStringLiteral("\\r");
    case '\n': return QStringLiteral("\\n");
    case '\t': return QStringLiteral("\\t");
    default: break;
    }
    if (c < 0x20 || c == 0x7f || (bytes && c > 0x7f))
        return QStringLiteral("\\x") + QString::number(c, 16).rightJustified(2, QLatin1Char('0')).toUpper();
    return QString();
}

} // namespace

bool tokenizeLine(const QByteArray& line, const QMap<QString, QByteArray>& vars, QList<Token>* out,
                  QString* error)
{
    out->clear();
    qsizetype i = 0;
    const qsizetype n = line.size();
    while (i < n) {
        if (isBlank(line[i])) {
            ++i;
            continue;
        }
        if (line[i] == '#')
            break;
        Token tok;
        if (line[i] == '"') {
            tok.quoted = true;
            ++i;
            bool closed = false;
            while (i < n) {
                const char c = line[i];
                if (c == '"') {
                    closed = true;
                    ++i;
                    break;
                }
                if (c == '$') {
                    if (!expandVariable(line, i, vars, tok.bytes, error))
                        return false;
                    continue;
                }
                if (c != '\\') {
                    tok.bytes.append(c);
                    ++i;
                    continue;
                }
                if (i + 1 >= n) {
                    *error = QStringLiteral("a backslash ends the line inside a quoted word");
                    return false;
                }
                const char e = line[i + 1];
                i += 2;
                switch (e) {
                case '"': tok.bytes.append('"'); break;
                case '\\': tok.bytes.append('\\'); break;
                case 'r': tok.bytes.append('\r'); break;
                case 'n': tok.bytes.append('\n'); break;
                case 't': tok.bytes.append('\t'); break;
                case '$': tok.bytes.append('$'); break;
                case 'x': {
                    const int hi = i < n ? hexValue(line[i]) : -1;
                    const int lo = i + 1 < n ? hexValue(line[i + 1]) : -1;
                    if (hi < 0 || lo < 0) {
                        *error = QStringLiteral("\\x needs two hex digits");
                        return false;
                    }
                    tok.bytes.append(char(hi * 16 + lo));
                    i += 2;
                    break;
                }
                default:
                    *error = QStringLiteral("unknown escape \\%1").arg(QChar::fromLatin1(e));
                    return false;
                }
            }
            if (!closed) {
                *error = QStringLiteral("a quoted word isn't closed");
                return false;
            }
            if (i < n && !isBlank(line[i]) && line[i] != '#') {
                *error = QStringLiteral("a blank must follow a closing quote");
                return false;
            }
        } else {
            while (i < n && !isBlank(line[i])) {
                if (line[i] == '"') {
                    *error = QStringLiteral("a quote inside an unquoted word");
                    return false;
                }
                if (line[i] == '$') {
                    if (!expandVariable(line, i, vars, tok.bytes, error))
                        return false;
                    continue;
                }
                tok.bytes.append(line[i]);
                ++i;
            }
        }
        out->append(tok);
    }
    return true;
}

QString quoteText(const QString& text)
{
    QString out = QStringLiteral("\"");
    for (const QChar ch : text) {
        const QString esc = escapeChar(ch.unicode(), false);
        if (esc.isEmpty())
            out.append(ch);
        else
            out.append(esc);
    }
    out.append(QLatin1Char('"'));
    return out;
}

QString quoteBytes(const QByteArray& bytes)
{
    QString out = QStringLiteral("\"");
    for (const char c : bytes) {
        const uint u = static_cast<unsigned char>(c);
        const QString esc = escapeChar(u, true);
        if (esc.isEmpty())
            out.append(QChar::fromLatin1(c));
        else
            out.append(esc);
    }
    out.append(QLatin1Char('"'));
    return out;
}

namespace {

// The line (with its line end) around a byte offset.
QByteArray lineAround(const QByteArray& data, qsizetype at)
{
    if (at >= data.size())
        at = data.size();
    const qsizetype start = at > 0 ? data.lastIndexOf('\n', at - 1) + 1 : 0;
    qsizetype end = data.indexOf('\n', start);
    end = end < 0 ? data.size() : end + 1;
    return data.mid(start, end - start);
}

} // namespace

QString describeByteDifference(const QByteArray& expected, const QByteArray& found)
{
    if (expected == found)
        return QString();
    qsizetype at = 0;
    const qsizetype common = qMin(expected.size(), found.size());
    while (at < common && expected[at] == found[at])
        ++at;
    const qsizetype line = expected.left(at).count('\n') + 1;
    QString where = QStringLiteral("first difference at byte %1, line %2").arg(at).arg(line);
    if (expected.size() <= 200 && found.size() <= 200)
        return QStringLiteral("%1 / found %2 (%3)").arg(quoteBytes(expected), quoteBytes(found), where);
    return QStringLiteral("line %1 %2 / found line %3 (%4; %5 bytes expected, %6 found)")
        .arg(line)
        .arg(quoteBytes(lineAround(expected, at)), quoteBytes(lineAround(found, at)), where)
        .arg(expected.size())
        .arg(found.size());
}

} // namespace harness
