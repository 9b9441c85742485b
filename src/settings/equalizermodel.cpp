#include "equalizermodel.h"

#include <algorithm>

namespace quorvel {

EqualizerModel::EqualizerModel(std::vector<EqualizerPreset> presets, EqualizerSettings opened, Apply apply)
    : m_presets(std::move(presets)), m_opened(std::move(opened)), m_apply(std::move(apply))
{
    m_settings = m_opened;
    if (presetIndex() < 0)
        m_opened.preset = m_settings.preset = QString();
    m_applied = m_opened.active();
}

int EqualizerModel::presetIndex() const
{
    if (m_settings.preset.isEmpty())
        return -1;
    const auto found = std::find_if(m_presets.begin(), m_presets.end(),
                                    [this](const EqualizerPreset &p) { return p.name == m_settings.preset; });
    return found == m_presets.end() ? -1 : int(found - m_presets.begin());
}

void EqualizerModel::setEnabled(bool on)
{
    m_settings.enabled = on;
    changed();
}

void EqualizerModel::choosePreset(int index)
{
    if (index < 0 || index >= int(m_presets.size()))
        return;
    m_settings.preset = m_presets[size_t(index)].name;
    m_settings.bands = m_presets[size_t(index)].bands;
    m_settings.enabled = true;
    changed();
}

void EqualizerModel::setPreamp(double dB)
{
    setLevel(m_settings.bands.preamp, dB);
}

void EqualizerModel::setBand(int band, double dB)
{
    if (band >= 0 && band < kEqualizerBandCount)
        setLevel(m_settings.bands.amps[size_t(band)], dB);
}

void EqualizerModel::setLevel(double &level, double dB)
{
    dB = SnapDecibels(dB);
    if (dB == level)
        return;
    level = dB;
    m_settings.preset.clear();
    m_settings.enabled = true;
    changed();
}

void EqualizerModel::cancel()
{
    m_settings = m_opened;
    changed();
}

void EqualizerModel::changed()
{
    const std::optional<EqualizerBands> wanted = m_settings.active();
    if (wanted == m_applied)
        return;
    m_applied = wanted;
    if (m_apply)
        m_apply(wanted);
}

} // namespace quorvel
