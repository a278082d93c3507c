#pragma once
#include "platform/NumericBox.h"

class QLineEdit;

namespace platform {

// Makes a text box follow the number rule on every change of its text,
// typed or set from code.
void AttachNumericBox(QLineEdit* box, NumericRule rule);

// The rule of a box with fixed bounds and the usual all-zero texts.
NumericRule FixedRule(double lower, double upper, const char* reset,
                      QStringList allZero = {QStringLiteral("000"), QStringLiteral("00")});

} // namespace platform
