#include "platform/NumericBoxes.h"

#include <QLineEdit>

namespace platform {

void AttachNumericBox(QLineEdit* box, NumericRule rule)
{
    QObject::connect(box, &QLineEdit::textChanged, box, [box, rule](const QString& text) {
        const QString fixed = validateNumeric(text, rule);
        if (fixed != text)
            box->setText(fixed);
    });
}

NumericRule FixedRule(double lower, double upper, const char* reset, QStringList allZero)
{
    return {lower, [upper] { return upper; }, QString::fromLatin1(reset), std::move(allZero)};
}

} // namespace platform
