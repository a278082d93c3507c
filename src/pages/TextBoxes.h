#pragma once
// Text the user types for the game's configuration. asdf.cfg is 8-bit text,
// so a character Latin-1 can't hold is refused as it is typed, the way the
// number boxes refuse letters.
#include <QString>

class QLineEdit;
class QPlainTextEdit;

namespace pages {

// What a box keeps of a text: Latin-1 characters other than `dropped`.
QString keptText(const QString& text, const QString& dropped = QString());

// The box drops such characters whenever its text changes, typed, pasted or
// set from a data file, and keeps the caret where the user left it.
void keepLatin1(QLineEdit* box, const QString& dropped = QString());
// A command box holds map names too, which keep their own characters: only
// keys typed into it are refused.
void keepLatin1Typing(QPlainTextEdit* box);

} // namespace pages
