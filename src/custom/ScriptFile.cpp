#include "custom/ScriptFile.h"

#include <QHash>

namespace custom {
namespace {

// The text up to the stop character from pos on; pos moves past the stop.
// False when the stop never comes.
bool gather(const QString& line, qsizetype& pos, QChar stop, QString* out)
{
    const qsizetype end = line.indexOf(stop, pos);
    if (end < 0)
        return false;
    *out = line.mid(pos, end - pos);
    pos = end + 1;
    return true;
}

// A flag's fields behind its parent: name{}command{}value{}state.
bool readFlag(const QString& body, qsizetype pos, ScriptNode* node)
{
    if (!gather(body, pos, QLatin1Char('{'), &node->name) || body.mid(pos, 1) != QLatin1String("}"))
        return false;
    ++pos;
    if (!gather(body, pos, QLatin1Char('{'), &node->command) || body.mid(pos, 1) != QLatin1String("}"))
        return false;
    ++pos;
    if (!gather(body, pos, QLatin1Char('{'), &node->value) || body.mid(pos, 1) != QLatin1String("}"))
        return false;
    const QString state = body.mid(pos + 1);
    if (state != QLatin1String("0") && state != QLatin1String("1"))
        return false;
    node->defaultOn = state == QLatin1String("1");
    node->flag = true;
    return true;
}

} // namespace

QList<ScriptNode> readScript(const QByteArray& bytes, bool* whole)
{
    QList<ScriptNode> nodes;
    if (whole)
        *whole = false;
    QHash<QString, int> depthOfCategory; // upper-cased names
    QHash<QString, bool> taken;
    for (QByteArray raw : bytes.split('\n')) {
        if (raw.endsWith('\r'))
            raw.chop(1);
        const QString line = QString::fromLatin1(raw);
        if (line.size() < 2 || line[1] < QLatin1Char('0') || line[1] > QLatin1Char('4'))
            continue;
        // Between the opening quote with the kind and the closing quote.
        if (!line.startsWith(QLatin1Char('"')) || !line.endsWith(QLatin1Char('"')) || line.size() < 4)
            return nodes;
        const QString body = line.mid(2, line.size() - 3);
        const char kind = char(line[1].unicode());
        ScriptNode node;
        qsizetype pos = 1;
        if (!body.startsWith(QLatin1Char('{')))
            return nodes;
        if (kind == '1' || kind == '0') {
            if (body.mid(1, 1) != QLatin1String("}"))
                return nodes;
            pos = 2;
        } else if (!gather(body, pos, QLatin1Char('}'), &node.parent) || node.parent.isEmpty()) {
            return nodes;
        }
        if (kind == '1' || kind == '3')
            node.name = body.mid(pos);
        else if (!readFlag(body, pos, &node))
            return nodes;
        if (node.name.isEmpty() || taken.contains(node.name.toUpper()))
            return nodes;
        if (!node.parent.isEmpty()) {
            const auto parent = depthOfCategory.constFind(node.parent.toUpper());
            if (parent == depthOfCategory.constEnd())
                return nodes;
            node.depth = *parent + 1;
        }
        taken.insert(node.name.toUpper(), true);
        if (!node.flag)
            depthOfCategory.insert(node.name.toUpper(), node.depth);
        nodes << node;
    }
    if (whole)
        *whole = true;
    return nodes;
}

QByteArray writeScript(const QList<ScriptNode>& nodes)
{
    QByteArray out;
    for (const ScriptNode& n : nodes) {
        QString line;
        if (!n.flag)
            line = n.depth == 0 ? QStringLiteral("1{}") + n.name : QStringLiteral("3{%1}%2").arg(n.parent, n.name);
        else
            line = (n.depth == 0 ? QStringLiteral("0{}") : QStringLiteral("%1{%2}").arg(n.depth == 1 ? 2 : 4).arg(n.parent))
                   + n.name + QStringLiteral("{}") + n.command + QStringLiteral("{}") + n.value + QStringLiteral("{}")
                   + (n.defaultOn ? QLatin1Char('1') : QLatin1Char('0'));
        out += '"' + line.toLatin1() + "\"\r\n";
    }
    return out;
}

} // namespace custom
