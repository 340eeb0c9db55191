#pragma once
#include <QString>

// Text pieces shared by the messages.
namespace Text {
inline const QString CRLF = QStringLiteral("\r\n");
inline const QString LFCR = QStringLiteral("\n\r");

// A number as the plain number-to-text routine writes it: a blank before a non-negative
// number, the minus sign before a negative one.
inline QString Str(long long n)
{
    return n >= 0 ? QLatin1Char(' ') + QString::number(n) : QString::number(n);
}
}

namespace Text {
// The value of the number a text begins with (a sign, digits, one decimal point, an
// exponent); 0 if it begins with none. Blanks, tabs and line feeds are skipped wherever they
// stand, so "1 000" is 1000 and " 0 7" is 7.
double Val(const QString &text);
// Rounds to the nearest whole number, ties to the even one.
long long RoundHalfEven(double value);
}
