#pragma once
// The words of a scenario line, and the way texts and bytes are shown back in
// reports so that a stray CR or blank can be seen.
#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

namespace harness {

struct Token {
    QByteArray bytes; // exact bytes after escapes and variables
    bool quoted = false;
    QString text() const { return QString::fromUtf8(bytes); }
};

// Splits one line into words: blanks separate; "#" at the start of a word
// begins a comment; double-quoted words take the escapes \" \\ \r \n \t \$ and
// \xHH; $NAME is replaced by vars[NAME] inside and outside quotes. On a
// mistake returns false with the reason in error.
bool tokenizeLine(const QByteArray& line, const QMap<QString, QByteArray>& vars, QList<Token>* out,
                  QString* error);

// A text in double quotes with the escapes above for quotes, backslashes and
// control characters.
QString quoteText(const QString& text);
// The same for bytes; bytes outside printable ASCII are shown as \xHH.
QString quoteBytes(const QByteArray& bytes);

// Where two byte strings first differ, told readably (line, byte offset and
// both lines with escapes). Empty when they are equal.
QString describeByteDifference(const QByteArray& expected, const QByteArray& found);

} // namespace harness
