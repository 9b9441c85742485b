#pragma once
// The equalizer the user set: on or off, the preset it came from (or a
// custom setting), the preamplification and the ten band levels in dB. It
// lives in "quorvel.conf" beside the playback preferences, in its own
// [Equalizer] group; a missing or damaged group reads as the equalizer off,
// so a hand-edited file never plays anything louder than meant.

#include <QString>
#include <array>
#include <optional>

namespace quorvel {

inline constexpr int kEqualizerBandCount = 10;
// The engine's range for the preamplification and every band.
inline constexpr double kEqualizerMinDb = -20.0;
inline constexpr double kEqualizerMaxDb = 20.0;

// The levels the engine applies.
struct EqualizerBands {
    double preamp = 0;
    std::array<double, kEqualizerBandCount> amps{};

    bool operator==(const EqualizerBands &) const = default;
};

struct EqualizerSettings {
    bool enabled = false;
    // The preset's name as the engine gives it; empty for a custom setting.
    QString preset;
    EqualizerBands bands;

    // What the engine plays with: the levels while on, nothing while off.
    std::optional<EqualizerBands> active() const
    {
        return enabled ? std::optional<EqualizerBands>(bands) : std::nullopt;
    }
    bool operator==(const EqualizerSettings &) const = default;
};

// One of the engine's presets.
struct EqualizerPreset {
    QString name;
    EqualizerBands bands;
};

// `dB` kept in the engine's range and rounded to a tenth, the step of the
// sliders (the engine's presets hold values such as -1.1e-15 for 0).
double SnapDecibels(double dB);
// A band's frequency as its slider's label: "31", "63", "125", "1K", "16K".
QString BandLabel(double hz);

EqualizerSettings LoadEqualizerSettings(const QString &path);
// False when the file could not be written.
bool SaveEqualizerSettings(const QString &path, const EqualizerSettings &settings);

} // namespace quorvel
