#include "platform/NumericBox.h"

#include <QRegularExpression>

namespace platform {
namespace {

const QRegularExpression& decimalPattern()
{
    static const QRegularExpression re(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eEdD][+-]?\\d+)?$"));
    return re;
}

const QRegularExpression& radixPattern()
{
    static const QRegularExpression re(QStringLiteral("^&([hH][0-9a-fA-F]+|[oO][0-7]+)$"));
    return re;
}

} // namespace

bool isNumericText(const QString& text)
{
    const QString t = text.trimmed();
    return decimalPattern().match(t).hasMatch() || radixPattern().match(t).hasMatch();
}

double numericValue(const QString& text)
{
    QString t = text.trimmed();
    if (radixPattern().match(t).hasMatch()) {
        const int base = t[1].toUpper() == QLatin1Char('H') ? 16 : 8;
        return static_cast<double>(t.mid(2).toLongLong(nullptr, base));
    }
    t.replace(QLatin1Char('d'), QLatin1Char('e')).replace(QLatin1Char('D'), QLatin1Char('e'));
    return t.toDouble();
}

double leadingValue(const QString& text)
{
    static const QRegularExpression lead(QStringLiteral("^\\s*[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?"));
    const QRegularExpressionMatch m = lead.match(text);
    return m.hasMatch() ? m.captured(0).trimmed().toDouble() : 0.0;
}

QString validateNumeric(const QString& text, const NumericRule& rule)
{
    if (text.isEmpty())
        return text;
    if (!isNumericText(text))
        return rule.reset;
    QString working = text;
    if (text == QLatin1String("00") || text == QLatin1String(".") || text == QLatin1String("-")
        || text == QLatin1String("+"))
        working = rule.reset == QLatin1String("1") ? rule.reset : QStringLiteral("0");
    static const QString edges = QStringLiteral(".-+");
    if (edges.contains(text.front()) || edges.contains(text.back()))
        return rule.reset;
    if (rule.allZero.contains(text))
        return rule.reset;
    const double value = numericValue(working);
    const double upper = rule.upper ? rule.upper() : 0.0;
    if (value > upper || value < rule.lower)
        return rule.reset;
    return text;
}

} // namespace platform
