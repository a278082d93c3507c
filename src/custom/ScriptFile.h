#pragma once
// Script.TK, the user's own game switches: one quoted line a node, parents
// before their children, fields between literal braces. Plain functions over
// bytes.
#include <QByteArray>
#include <QList>
#include <QString>

namespace custom {

struct ScriptNode {
    QString parent; // empty at the top level
    QString name;
    int depth = 0;  // 0 at the top level
    bool flag = false;
    QString command;
    QString value;
    bool defaultOn = false; // the flag's state as the script keeps it
};

// Reads to the end or to the first line that can't stand: one whose parent
// is no category read before it, whose name is taken already without regard
// to case, or whose braces are missing. The nodes before it stay; lines of
// another kind are passed over. whole, when given, tells whether the reading
// went to the end.
QList<ScriptNode> readScript(const QByteArray& bytes, bool* whole = nullptr);
// The nodes in the order given, each with its kind: 1 and 3 categories at
// the top and below, 0, 2 and 4 flags at the top, one down and deeper.
QByteArray writeScript(const QList<ScriptNode>& nodes);

} // namespace custom
