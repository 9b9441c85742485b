#include "playback/rounding.h"

#include <cmath>
#include <limits>

namespace quorvel::playback {

namespace {
// std::nearbyint follows the current rounding mode; the program never
// changes it, but the rounding must not depend on that, so it is explicit.
double nearestEven(double value)
{
    const double floor = std::floor(value);
    const double diff = value - floor;
    if (diff < 0.5)
        return floor;
    if (diff > 0.5)
        return floor + 1;
    return std::fmod(floor, 2.0) == 0 ? floor : floor + 1;
}
} // namespace

int RoundHalfEven(double value)
{
    if (std::isnan(value))
        return 0;
    const double r = nearestEven(value);
    if (r >= static_cast<double>(std::numeric_limits<int>::max()))
        return std::numeric_limits<int>::max();
    if (r <= static_cast<double>(std::numeric_limits<int>::min()))
        return std::numeric_limits<int>::min();
    return static_cast<int>(r);
}

double RoundToDecimals(double value, int decimals)
{
    const double scale = std::pow(10.0, decimals);
    return nearestEven(value * scale) / scale;
}

} // namespace quorvel::playback
