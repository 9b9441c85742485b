#include "settings/equalizermodel.h"
#include "settings/playbackprefs.h"
#include "support/files.h"
#include "support/qstringprint.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

EqualizerBands levels(double preamp, double first)
{
    EqualizerBands b{preamp, {}};
    for (size_t i = 0; i < b.amps.size(); ++i)
        b.amps[i] = SnapDecibels(first - double(i));
    return b;
}

const std::vector<EqualizerPreset> kPresets{{u"Flat"_qs, levels(12, 0)}, {u"Rock"_qs, levels(5, 8)}};

struct ModelCase {
    const char *what;
    EqualizerSettings opened;
    std::function<void(EqualizerModel &)> act;
    EqualizerSettings expected;
    QList<std::optional<EqualizerBands>> applied; // what the engine was given, in order
};

} // namespace

// Each change reaches the engine once; Cancel gives it back what it had.
TEST(EqualizerModel, PresetsSlidersAndCancel)
{
    const EqualizerBands flat = levels(12, 0), rock = levels(5, 8), custom = levels(3, 1);
    EqualizerBands rockMoved = rock;
    rockMoved.amps[3] = -12.3;
    const EqualizerSettings flatOn{true, u"Flat"_qs, flat}, flatOff{false, u"Flat"_qs, flat};
    // "Gone": a preset the engine no longer has.
    const EqualizerSettings rockOn{true, u"Rock"_qs, rock}, lost{true, u"Gone"_qs, custom};
    const ModelCase cases[] = {
        {"a preset turns it on", {}, [](EqualizerModel &m) { m.choosePreset(1); }, rockOn, {rock}},
        {"a moved band is custom, snapped to a tenth",
         {},
         [](EqualizerModel &m) {
             m.choosePreset(1);
             m.setBand(3, -12.34);
         },
         {true, {}, rockMoved},
         {rock, rockMoved}},
        {"a slider left as it is keeps the preset", flatOn, [](EqualizerModel &m) { m.setPreamp(12.04); }, flatOn, {}},
        {"off keeps the levels", flatOn, [](EqualizerModel &m) { m.setEnabled(false); }, flatOff, {std::nullopt}},
        {"cancel after changes",
         flatOn,
         [](EqualizerModel &m) {
             m.choosePreset(1);
             m.setPreamp(-30); // beyond the range: its end
             m.cancel();
         },
         flatOn,
         {rock, EqualizerBands{-20, rock.amps}, flat}},
        {"cancel without changes gives the engine nothing", flatOn, [](EqualizerModel &m) { m.cancel(); }, flatOn, {}},
        {"a lost preset is custom", lost, [](EqualizerModel &m) { m.choosePreset(7); }, {true, {}, custom}, {}},
    };
    for (const ModelCase &c : cases) {
        QList<std::optional<EqualizerBands>> applied;
        EqualizerModel model(kPresets, c.opened, [&](const auto &bands) { applied << bands; });
        c.act(model);
        EXPECT_EQ(model.settings(), c.expected) << c.what;
        const int index = model.presetIndex();
        EXPECT_EQ(index == -1 ? QString() : kPresets.at(size_t(index)).name, c.expected.preset) << c.what;
        EXPECT_EQ(applied, c.applied) << c.what;
    }
}

// The equalizer shares "quorvel.conf" with the playback preferences; a
// damaged group reads as off, never as half a setting.
TEST(EqualizerSettings, RoundTripBesideThePreferencesAndDamagedReadsOff)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"quorvel.conf"_qs);
    EXPECT_EQ(LoadEqualizerSettings(path), EqualizerSettings{}); // no file yet
    PlaybackPrefs prefs;
    prefs.audioLanguages = {u"ja"_qs, u"en"_qs};
    ASSERT_TRUE(SavePlaybackPrefs(path, prefs));
    for (const EqualizerSettings &s : {EqualizerSettings{true, u"Full bass and treble"_qs, levels(4, 7.2)},
                                       EqualizerSettings{false, {}, levels(-19.9, 0.5)}}) {
        ASSERT_TRUE(SaveEqualizerSettings(path, s));
        EXPECT_EQ(LoadEqualizerSettings(path), s);
    }
    EXPECT_EQ(LoadPlaybackPrefs(path), prefs);

    ASSERT_TRUE(SaveEqualizerSettings(path, {true, u"Rock"_qs, levels(5, 8)}));
    const QByteArray good = test::readFile(path);
    ASSERT_TRUE(good.contains("Bands=8, 7, 6, 5, 4, 3, 2, 1, 0, -1")) << good.toStdString();
    const std::pair<const char *, const char *> damages[] = {
        {"Bands=8, 7, 6, 5, 4, 3, 2, 1, 0, -1", "Bands=8, 7, 6"},
        {"Bands=8, 7, 6, 5, 4, 3, 2, 1, 0, -1", "Bands=8, 7, 6, 5, 4, 3, 2, 1, 0, 25"},
        {"Preamp=5", "Preamp=loud"},
        {"Preamp=5", "Preamp=nan"},
        {"Enabled=true", "Enabled=maybe"},
        {"Preset=Rock", "Preset="},
    };
    for (const auto &[from, to] : damages) {
        ASSERT_TRUE(test::writeFile(path, QByteArray(good).replace(from, to)));
        EXPECT_EQ(LoadEqualizerSettings(path), EqualizerSettings{}) << to;
    }
}

TEST(EqualizerSettings, BandLabels)
{
    const std::pair<double, const char *> labels[] = {{31.25, "31"}, {62.5, "63"}, {1000, "1K"}, {1500, "1.5K"}};
    for (const auto &[hz, label] : labels)
        EXPECT_EQ(BandLabel(hz), QString::fromLatin1(label)) << hz;
}
