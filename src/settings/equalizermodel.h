#pragma once
// What the "Equalizer" dialog holds, without a window: the engine's presets,
// the setting being edited and the one the dialog opened with. Every change
// reaches the playing item at once through `apply`; Cancel puts back, and
// applies again, what was set when the dialog opened.

#include "settings/equalizer.h"

#include <functional>
#include <optional>
#include <vector>

namespace quorvel {

class EqualizerModel {
public:
    // Gives the engine the equalizer to play with (nothing: off).
    using Apply = std::function<void(const std::optional<EqualizerBands> &)>;

    // `opened` is what plays now. A preset the engine no longer has is a
    // custom setting of the same levels.
    EqualizerModel(std::vector<EqualizerPreset> presets, EqualizerSettings opened, Apply apply);

    const std::vector<EqualizerPreset> &presets() const { return m_presets; }
    const EqualizerSettings &settings() const { return m_settings; }
    // The chosen preset's index in presets(), -1 for a custom setting.
    int presetIndex() const;

    void setEnabled(bool on);
    // The preset's levels. Choosing a preset or moving a slider turns the
    // equalizer on: the user wants to hear what they chose.
    void choosePreset(int index);
    // A moved slider makes the setting custom; a level it already has changes nothing.
    void setPreamp(double dB);
    void setBand(int band, double dB);
    // Back to what was set when the dialog opened.
    void cancel();

private:
    void setLevel(double &level, double dB);
    void changed();

    std::vector<EqualizerPreset> m_presets;
    EqualizerSettings m_opened;
    EqualizerSettings m_settings;
    Apply m_apply;
    std::optional<EqualizerBands> m_applied; // what the engine plays with now
};

} // namespace quorvel
