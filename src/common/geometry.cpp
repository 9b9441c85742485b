#include "geometry.h"

namespace quorvel {

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
