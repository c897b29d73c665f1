#pragma once

#include <QString>
#include <cstdint>

// The numeric value of a text: that of its leading digits, 0 when it has none.
long leadingDigitsValue(const QString& text);

// Floating point to whole number: nearest, ties to the even number.
long roundHalfEven(double value);

// A number as it stands in a message: one blank in front of a number that isn't negative.
QString numberForMessage(long value);
