#include "equalizer.h"

#include "common/logging.h"

#include <QSettings>
#include <QStringList>
#include <algorithm>
#include <cmath>

namespace quorvel {

namespace {
const QString kGroup = QStringLiteral("Equalizer");
const QString kEnabled = QStringLiteral("Enabled");
const QString kPreset = QStringLiteral("Preset");
const QString kPreamp = QStringLiteral("Preamp");
const QString kBands = QStringLiteral("Bands");
// The preset word of a setting the user made with the sliders.
const QString kCustom = QStringLiteral("custom");

QString DecibelText(double dB)
{
    return QString::number(dB, 'g', 4);
}

// A level as written, or nothing when it is no number of the engine's range.
std::optional<double> ReadDecibels(const QString &text)
{
    bool ok = false;
    const double dB = text.trimmed().toDouble(&ok);
    if (!ok || !(dB >= kEqualizerMinDb && dB <= kEqualizerMaxDb))
        return std::nullopt;
    return SnapDecibels(dB);
}

// The group as written, or nothing when any of it cannot be read.
std::optional<EqualizerSettings> ReadGroup(QSettings &file)
{
    EqualizerSettings s;
    const QString enabled = file.value(kEnabled).toString().trimmed().toLower();
    if (enabled != u"true" && enabled != u"false" && enabled != u"1" && enabled != u"0")
        return std::nullopt;
    s.enabled = enabled == u"true" || enabled == u"1";
    s.preset = file.value(kPreset).toString().trimmed();
    if (s.preset.isEmpty())
        return std::nullopt;
    if (s.preset.compare(kCustom, Qt::CaseInsensitive) == 0)
        s.preset.clear();
    const std::optional<double> preamp = ReadDecibels(file.value(kPreamp).toString());
    // QSettings reads an unquoted "1, 2, 3" as a list and a quoted one as text.
    const QStringList bands = file.value(kBands).toStringList().join(QLatin1Char(',')).split(QLatin1Char(','));
    if (!preamp || bands.size() != kEqualizerBandCount)
        return std::nullopt;
    s.bands.preamp = *preamp;
    for (int i = 0; i < kEqualizerBandCount; ++i) {
        const std::optional<double> amp = ReadDecibels(bands[i]);
        if (!amp)
            return std::nullopt;
        s.bands.amps[size_t(i)] = *amp;
    }
    return s;
}
} // namespace

double SnapDecibels(double dB)
{
    const double snapped = std::round(std::clamp(dB, kEqualizerMinDb, kEqualizerMaxDb) * 10.0) / 10.0;
    return snapped == 0.0 ? 0.0 : snapped; // no "-0" in the file or on the labels
}

QString BandLabel(double hz)
{
    if (hz < 1000.0)
        return QString::number(std::lround(hz));
    return QString::number(std::round(hz / 100.0) / 10.0) + u'K';
}

EqualizerSettings LoadEqualizerSettings(const QString &path)
{
    QSettings file(path, QSettings::IniFormat);
    file.beginGroup(kGroup);
    if (file.childKeys().isEmpty())
        return {};
    const std::optional<EqualizerSettings> read = ReadGroup(file);
    if (!read)
        qCWarning(lcApp) << "the equalizer in" << path << "is damaged: it is off";
    return read.value_or(EqualizerSettings{});
}

bool SaveEqualizerSettings(const QString &path, const EqualizerSettings &settings)
{
    QSettings file(path, QSettings::IniFormat);
    file.beginGroup(kGroup);
    file.setValue(kEnabled, settings.enabled);
    file.setValue(kPreset, settings.preset.isEmpty() ? kCustom : settings.preset);
    file.setValue(kPreamp, DecibelText(settings.bands.preamp));
    QStringList bands;
    for (double amp : settings.bands.amps)
        bands << DecibelText(amp);
    file.setValue(kBands, bands);
    file.endGroup();
    file.sync();
    return file.status() == QSettings::NoError;
}

} // namespace quorvel
