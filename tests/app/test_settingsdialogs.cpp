// The two small skinned settings dialogs: what they show is what they give
// back, and the equalizer is heard while it is set and taken back by Cancel.
#include "app/equalizerdialog.h"
#include "app/playbackprefsdialog.h"
#include "playback/equalizerpresets.h"
#include "skin/skinimages.h"
#include "support/qstringprint.h"

#include <QComboBox>
#include <QLineEdit>
#include <QSlider>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(PlaybackPrefsDialog, GivesBackWhatItShowsAndReadsTypedLanguages)
{
    const SkinImages noSkin;
    const PlaybackPrefs all[] = {
        {},
        {ResumeMode::Never, true, true, {u"ja"_qs, u"en"_qs}, {u"fre"_qs}, false, HearingImpaired::Yes},
        {ResumeMode::Always, false, true, {}, {u"de"_qs}, true, HearingImpaired::No},
    };
    for (const PlaybackPrefs &prefs : all) {
        PlaybackPrefsDialog dialog(noSkin, prefs);
        EXPECT_EQ(dialog.prefs(), prefs) << int(prefs.resume);
    }
    PlaybackPrefsDialog dialog(noSkin, {});
    const auto fields = dialog.findChildren<QLineEdit *>();
    ASSERT_EQ(fields.size(), 2);
    fields[0]->setText(u" JA, en,,ja"_qs);
    EXPECT_EQ(dialog.prefs().audioLanguages, QStringList({u"ja"_qs, u"en"_qs}));
}

TEST(EqualizerDialog, APresetSetsTheSlidersLiveAndCancelTakesItBack)
{
    const SkinImages noSkin;
    QList<std::optional<EqualizerBands>> heard;
    const std::vector<EqualizerPreset> presets = EngineEqualizerPresets();
    EqualizerModel model(presets, {}, [&](const auto &bands) { heard << bands; });
    EqualizerDialog dialog(noSkin, model, EngineEqualizerFrequencies(), nullptr);
    auto *chooser = dialog.findChild<QComboBox *>();
    const auto sliders = dialog.findChildren<QSlider *>();
    ASSERT_EQ(sliders.size(), kEqualizerBandCount + 1);

    const int rock = chooser->findText(u"Rock"_qs);
    ASSERT_GE(rock, 0);
    chooser->setCurrentIndex(rock);
    const EqualizerBands &levels = presets[size_t(rock)].bands;
    EXPECT_EQ(sliders[0]->value(), qRound(levels.preamp * 10));
    EXPECT_EQ(sliders[10]->value(), qRound(levels.amps[9] * 10));
    ASSERT_EQ(heard.size(), 1);
    EXPECT_EQ(heard.last(), levels);

    sliders[3]->setValue(-55);              // the third band to -5.5 dB
    EXPECT_EQ(chooser->currentIndex(), -1); // shown as "Custom"
    EXPECT_DOUBLE_EQ(heard.last()->amps[2], -5.5);

    dialog.reject();
    EXPECT_EQ(heard.last(), std::nullopt); // it was off when the dialog opened
    EXPECT_EQ(model.settings(), EqualizerSettings{});
}
