#pragma once
// The equalizer as the engine defines it: its presets with their levels and
// the centre frequency of each band. libVLC keeps these as fixed tables, so
// reading them starts nothing and loads no plugins.

#include "settings/equalizer.h"

#include <vector>

namespace quorvel {

// In the engine's order; levels rounded to the sliders' tenth of a dB.
std::vector<EqualizerPreset> EngineEqualizerPresets();
// The bands' centre frequencies in Hz, kEqualizerBandCount of them.
std::array<double, kEqualizerBandCount> EngineEqualizerFrequencies();

} // namespace quorvel
