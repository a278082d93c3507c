#pragma once
// The rule every number box of the wizard follows: a bad entry quietly turns
// into the box's reset text, an empty box stays empty.
#include <QString>
#include <QStringList>

#include <functional>

namespace platform {

struct NumericRule {
    double lower = 0;
    // Some boxes take their upper bound from another box at the moment of typing.
    std::function<double()> upper;
    QString reset;
    QStringList allZero;
};

// The general numeric test of the platform: a whole text that converts to a
// number, blanks around it allowed, with sign, decimals, exponent or a
// "&H"/"&O" prefix.
bool isNumericText(const QString& text);
double numericValue(const QString& text);
// The leading number of a text as the platform's Val reads it; 0 for none.
double leadingValue(const QString& text);

// The text the box must show after its text became `text`; equal to `text`
// when the entry stands.
QString validateNumeric(const QString& text, const NumericRule& rule);

} // namespace platform
