#include "equalizerpresets.h"

#include <algorithm>
#include <vlc/vlc.h>

namespace quorvel {

std::vector<EqualizerPreset> EngineEqualizerPresets()
{
    std::vector<EqualizerPreset> presets;
    const unsigned count = libvlc_audio_equalizer_get_preset_count();
    const unsigned bands = std::min(libvlc_audio_equalizer_get_band_count(), unsigned(kEqualizerBandCount));
    for (unsigned i = 0; i < count; ++i) {
        libvlc_equalizer_t *levels = libvlc_audio_equalizer_new_from_preset(i);
        if (!levels)
            continue;
        EqualizerPreset preset{QString::fromUtf8(libvlc_audio_equalizer_get_preset_name(i)), {}};
        preset.bands.preamp = SnapDecibels(libvlc_audio_equalizer_get_preamp(levels));
        for (unsigned b = 0; b < bands; ++b)
            preset.bands.amps[b] = SnapDecibels(libvlc_audio_equalizer_get_amp_at_index(levels, b));
        libvlc_audio_equalizer_release(levels);
        presets.push_back(preset);
    }
    return presets;
}

std::array<double, kEqualizerBandCount> EngineEqualizerFrequencies()
{
    std::array<double, kEqualizerBandCount> hz{};
    for (unsigned b = 0; b < hz.size(); ++b)
        hz[b] = std::max(0.0f, libvlc_audio_equalizer_get_band_frequency(b));
    return hz;
}

} // namespace quorvel
