#include "rate.h"

#include <cmath>

namespace quorvel {

namespace {
// Above 1 the factor is whole; up to 1 it keeps three decimals.
double tidy(double rate)
{
    return rate > 1 ? std::trunc(rate) : std::round(rate * 1000) / 1000;
}
} // namespace

RateChange IncreasedRate(double rate)
{
    if (rate >= kMaxRate)
        return {false, rate};
    return {true, tidy(rate * 2)};
}

RateChange DecreasedRate(double rate)
{
    if (rate <= kMinRate)
        return {false, rate};
    return {true, tidy(rate / 2)};
}

QString RateText(double rate)
{
    return QStringLiteral("Playing rate:") + QString::number(rate, 'g', 6) + u'x';
}

} // namespace quorvel
