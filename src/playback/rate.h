#pragma once
// The speed steps: the factor doubles or halves between 0.125 and 16.

#include <QString>

namespace quorvel {

struct RateChange {
    bool changed = false;
    double rate = 1.0;
};

// `IncreaseRate` / `DecreaseRate` on a factor: unchanged at the limits.
RateChange IncreasedRate(double rate);
RateChange DecreasedRate(double rate);
// "Playing rate:2x", "Playing rate:0.5x".
QString RateText(double rate);

inline constexpr double kMaxRate = 16.0;
inline constexpr double kMinRate = 0.125;

} // namespace quorvel
