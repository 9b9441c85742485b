#include "geometry.h"

#include <cmath>

namespace quorvel {

int RoundHalfEven(double value)
{
    return static_cast<int>(std::nearbyint(value)); // the default rounding mode: to nearest, ties to even
}

double FitScale(double srcW, double srcH, double dstW, double dstH)
{
    if (srcW == 0 || srcH == 0)
        return 1.0;
    // Height decides when the source is relatively taller than the box.
    if (srcH / dstH >= srcW / dstW)
        return dstH / srcH;
    return dstW / srcW;
}

} // namespace quorvel
