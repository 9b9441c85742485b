#include "playback/speed.h"
#include "qstringprint.h"

#include <gtest/gtest.h>

using namespace quorvel::playback;

namespace {
using Enables = QList<QPair<QString, bool>>;
}

TEST(Speed, IncreaseDoublesToSixteenThenDoesNothing)
{
    SpeedControl speed;
    speed.setMenuItemsEnabled(true);
    QList<double> seen;
    for (int i = 0; i < 4; ++i) {
        const SpeedOutcome o = speed.IncreaseRate(true);
        EXPECT_TRUE(o.changed);
        EXPECT_EQ(o.engineRate, speed.Rate());
        EXPECT_EQ(o.rateText, RateText(speed.Rate()));
        // The step that reaches 16 also disables its own item.
        const Enables expected = i < 3 ? Enables{{"DecreaseSpeed", true}}
                                       : Enables{{"DecreaseSpeed", true}, {"IncreaseSpeed", false}};
        EXPECT_EQ(o.menuEnables, expected) << i;
        seen << speed.Rate();
    }
    EXPECT_EQ(seen, (QList<double>{2, 4, 8, 16}));
    EXPECT_FALSE(speed.isEnabled("IncreaseSpeed")); // the last step reached the limit
    EXPECT_TRUE(speed.isEnabled("DecreaseSpeed"));
    EXPECT_EQ(speed.IncreaseRate(true), SpeedOutcome{});
    EXPECT_EQ(speed.Rate(), 16);
    EXPECT_EQ(RateText(16), "Playing rate:16x");
}

TEST(Speed, DecreaseHalvesToAnEighthThenDoesNothing)
{
    SpeedControl speed;
    speed.setMenuItemsEnabled(true);
    QStringList texts;
    for (int i = 0; i < 3; ++i) {
        const SpeedOutcome o = speed.DecreaseRate(true);
        texts << *o.rateText;
    }
    EXPECT_EQ(texts, (QStringList{"Playing rate:0.5x", "Playing rate:0.25x", "Playing rate:0.125x"}));
    EXPECT_EQ(speed.Rate(), 0.125);
    EXPECT_FALSE(speed.isEnabled("DecreaseSpeed"));
    EXPECT_TRUE(speed.isEnabled("IncreaseSpeed"));
    EXPECT_FALSE(speed.DecreaseRate(true).changed);
    EXPECT_EQ(speed.Rate(), 0.125);

    // Back up: the decrease item comes back with the first step.
    const SpeedOutcome up = speed.IncreaseRate(true);
    EXPECT_EQ(speed.Rate(), 0.25);
    EXPECT_EQ(up.menuEnables, (Enables{{"DecreaseSpeed", true}}));
    EXPECT_TRUE(speed.isEnabled("DecreaseSpeed"));
}

TEST(Speed, ResetRoundingAndStepsWhileNothingIsLoaded)
{
    SpeedControl speed;
    // Not loaded: the factor moves but nothing reaches the engine or the menu.
    SpeedOutcome o = speed.IncreaseRate(false);
    EXPECT_TRUE(o.changed);
    EXPECT_FALSE(o.engineRate.has_value());
    EXPECT_FALSE(o.rateText.has_value());
    EXPECT_TRUE(o.menuEnables.isEmpty());
    EXPECT_EQ(speed.Rate(), 2);
    EXPECT_FALSE(speed.ResetRate(false).changed);
    EXPECT_EQ(speed.Rate(), 2);

    speed.setMenuItemsEnabled(true);
    speed.IncreaseRate(true);
    speed.IncreaseRate(true);
    speed.IncreaseRate(true);
    EXPECT_FALSE(speed.isEnabled("IncreaseSpeed"));
    o = speed.ResetRate(true);
    EXPECT_EQ(speed.Rate(), 1);
    EXPECT_EQ(o.engineRate, 1.0);
    EXPECT_EQ(o.rateText, "Playing rate:1x");
    EXPECT_EQ(o.menuEnables, (Enables{{"IncreaseSpeed", true}, {"DecreaseSpeed", true}}));
    EXPECT_TRUE(speed.isEnabled("IncreaseSpeed"));

    // The stopped state disables both; an item start resets the factor.
    speed.setMenuItemsEnabled(false);
    EXPECT_FALSE(speed.isEnabled("IncreaseSpeed"));
    EXPECT_FALSE(speed.isEnabled("DecreaseSpeed"));
    EXPECT_FALSE(speed.isEnabled("ResetSpeed"));
    speed.DecreaseRate(false);
    speed.itemStarted();
    EXPECT_EQ(speed.Rate(), 1);

    // Above 1 the fraction goes; up to 1 three decimals stay.
    EXPECT_EQ(TidyRate(2.75), 2);
    EXPECT_EQ(TidyRate(0.0625), 0.062);
    EXPECT_EQ(TidyRate(0.125), 0.125);
    EXPECT_EQ(TidyRate(1), 1);
}

TEST(Speed, FastForwardKeepsRate)
{
    SpeedControl speed;
    speed.setMenuItemsEnabled(true);
    speed.IncreaseRate(true);
    speed.IncreaseRate(true);
    ASSERT_EQ(speed.Rate(), 4);
    EXPECT_EQ(FastForwardRate(true, true), 10.0);   // held
    EXPECT_EQ(FastForwardRate(false, true), 1.0);   // released: the chosen 4 is lost on the engine
    EXPECT_EQ(speed.Rate(), 4);                     // but the factor is kept
    EXPECT_EQ(speed.IncreaseRate(true).engineRate, 8.0);
    EXPECT_FALSE(FastForwardRate(true, false).has_value());
    EXPECT_FALSE(FastForwardRate(false, false).has_value());
}

TEST(TransportTables, PauseAndPlayTables)
{
    // Pause: playing -> paused; paused or stopped -> playing; ended -> nothing.
    EXPECT_EQ(DecidePause(true, false), PauseDecision::TogglePauseThenPaused);
    EXPECT_EQ(DecidePause(false, true), PauseDecision::TogglePauseThenPlaying);
    EXPECT_EQ(DecidePause(false, false), PauseDecision::Ignore);

    // Play: empty list opens the dialog; halted resumes; otherwise the selection starts.
    EXPECT_EQ(DecidePlay(0, true, -1), (PlayDecision{PlayDecision::OpenFiles, -1}));
    EXPECT_EQ(DecidePlay(0, false, 3), (PlayDecision{PlayDecision::OpenFiles, -1}));
    EXPECT_EQ(DecidePlay(3, true, 1), (PlayDecision{PlayDecision::ResumeEngine, -1}));
    EXPECT_EQ(DecidePlay(3, false, 1), (PlayDecision{PlayDecision::StartSelected, 1}));
    EXPECT_EQ(DecidePlay(3, false, -1), (PlayDecision{PlayDecision::StartSelected, -1}));

    EXPECT_FALSE(StopActs(0));
    EXPECT_TRUE(StopActs(1));
}
