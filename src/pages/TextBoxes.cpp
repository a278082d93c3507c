#include "pages/TextBoxes.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace pages {
namespace {

bool isKept(QChar c, const QString& dropped) { return c.unicode() <= 0xff && !dropped.contains(c); }

class TypingFilter : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() != QEvent::KeyPress)
            return false;
        const QString typed = static_cast<QKeyEvent*>(event)->text();
        return !typed.isEmpty() && keptText(typed) != typed;
    }
};

} // namespace

QString keptText(const QString& text, const QString& dropped)
{
    QString kept;
    kept.reserve(text.size());
    for (const QChar c : text)
        if (isKept(c, dropped))
            kept += c;
    return kept;
}

void keepLatin1(QLineEdit* box, const QString& dropped)
{
    QObject::connect(box, &QLineEdit::textChanged, box, [box, dropped](const QString& text) {
        const QString kept = keptText(text, dropped);
        if (kept == text)
            return;
        const int cursor = box->cursorPosition();
        const int before = int(keptText(text.left(cursor), dropped).size());
        box->setText(kept);
        box->setCursorPosition(before);
    });
}

void keepLatin1Typing(QPlainTextEdit* box)
{
    box->installEventFilter(new TypingFilter(box));
}

} // namespace pages
