#include "base/Text.h"

#include <cmath>

namespace Text {

double Val(const QString &typed)
{
    QString text = typed;
    text.remove(QLatin1Char(' ')).remove(QLatin1Char('\t')).remove(QLatin1Char('\n'));
    int i = 0;
    const int n = text.size();
    if (i < n && (text[i] == QLatin1Char('+') || text[i] == QLatin1Char('-')))
        ++i;
    bool digits = false, point = false;
    while (i < n) {
        const QChar c = text[i];
        if (c.isDigit() && c.unicode() < 128)
            digits = true;
        else if (c == QLatin1Char('.') && !point)
            point = true;
        else
            break;
        ++i;
    }
    if (!digits)
        return 0.0;
    int end = i;
    if (i < n && (text[i] == QLatin1Char('e') || text[i] == QLatin1Char('E'))) {
        int j = i + 1;
        if (j < n && (text[j] == QLatin1Char('+') || text[j] == QLatin1Char('-')))
            ++j;
        const int expStart = j;
        while (j < n && text[j].isDigit() && text[j].unicode() < 128 && j - expStart < 4)
            ++j;
        if (j > expStart)
            end = j;
    }
    bool ok = false;
    const double v = text.left(end).toDouble(&ok);
    return ok && std::isfinite(v) ? v : 0.0;
}

long long RoundHalfEven(double value)
{
    if (!std::isfinite(value))
        return 0;
    if (value > 9e15)
        return 9000000000000000LL;
    if (value < -9e15)
        return -9000000000000000LL;
    return static_cast<long long>(std::nearbyint(value)); // default rounding mode: ties to even
}

} // namespace Text
