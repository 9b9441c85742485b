#pragma once
// Rounding the playback logic shares: whole numbers with halves to the even
// neighbour (what the time text, the progress bar and the shuffle draw use),
// and decimals for the speed factor.

namespace quorvel::playback {

// Nearest whole number, halves to the even one: 0.5 -> 0, 1.5 -> 2, 2.5 -> 2.
// Values beyond the int range are clamped; NaN gives 0, so a confused engine
// reading never turns into undefined behaviour.
int RoundHalfEven(double value);

// `value` rounded to `decimals` places, halves to even.
double RoundToDecimals(double value, int decimals);

} // namespace quorvel::playback
