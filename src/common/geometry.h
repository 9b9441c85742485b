#pragma once
// Scaling and hit-rectangle helpers shared by the playlist, the probe and
// the skinned windows.

#include <QPoint>
#include <QRect>
#include <cstdint>

namespace quorvel {

// Rounds to the nearest whole number, halves to the even one.
int RoundHalfEven(double value);

// The factor that fits a source size into a box keeping its aspect; 1 when
// the source has no size.
double FitScale(double srcW, double srcH, double dstW, double dstH);

// A rectangle in client pixels with exclusive right and bottom edges, as the
// skin's button table stores them. An empty rectangle contains no point.
struct HitRect {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool isEmpty() const { return right <= left || bottom <= top; }
    bool contains(QPoint p) const
    {
        return !isEmpty() && p.x() >= left && p.x() < right && p.y() >= top && p.y() < bottom;
    }
    int width() const { return right - left; }
    int height() const { return bottom - top; }
    QRect toQRect() const { return QRect(left, top, width(), height()); }
    static HitRect fromQRect(const QRect &r) { return {r.left(), r.top(), r.left() + r.width(), r.top() + r.height()}; }
    bool operator==(const HitRect &) const = default;
};

} // namespace quorvel
