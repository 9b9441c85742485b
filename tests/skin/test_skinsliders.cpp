// Seek bar and volume slider arithmetic at the edges a user reaches.
#include "skin/skinsliders.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(SkinSliders, SeekFromFillAndBar)
{
    const int bar = 276; // bar of a 388-wide window
    auto r = SeekFromFill(Qt::LeftButton, 0, true, bar);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->fillWidth, 0);
    EXPECT_DOUBLE_EQ(r->position, 0.0);
    r = SeekFromFill(Qt::LeftButton, 138, true, bar);
    ASSERT_TRUE(r);
    EXPECT_DOUBLE_EQ(r->position, 0.5);
    EXPECT_FALSE(SeekFromFill(Qt::LeftButton, bar - 2, true, bar)); // the last two pixels never seek
    EXPECT_TRUE(SeekFromFill(Qt::LeftButton, bar - 3, true, bar));
    EXPECT_FALSE(SeekFromFill(Qt::RightButton, 50, true, bar));
    EXPECT_FALSE(SeekFromFill(Qt::LeftButton, 50, false, bar)); // nothing loaded: not even the fill moves

    // a right press on the bar re-sends what the fill shows
    r = SeekFromBarPress(Qt::RightButton, 200, true, bar, 69);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->fillWidth, 69);
    EXPECT_DOUBLE_EQ(r->position, 0.25);
    r = SeekFromBarPress(Qt::LeftButton, 200, true, bar, 69);
    ASSERT_TRUE(r);
    EXPECT_EQ(r->fillWidth, 200);
    EXPECT_FALSE(SeekFromBarPress(Qt::LeftButton, bar, true, bar, 69));
    EXPECT_FALSE(SeekFromBarPress(Qt::RightButton, 10, false, bar, 69));

    EXPECT_TRUE(SeekFromBarMove(Qt::LeftButton | Qt::RightButton, 10, true, bar));
    EXPECT_FALSE(SeekFromBarMove(Qt::RightButton, 10, true, bar));
    EXPECT_FALSE(SeekFromBarMove(Qt::NoButton, 10, true, bar));
    EXPECT_FALSE(SeekFromBarMove(Qt::LeftButton, bar - 1, true, bar));
    EXPECT_FALSE(SeekFromFill(Qt::LeftButton, 0, true, 0)); // a bar without width

    EXPECT_EQ(FillWidthForPercent(0, bar), 0);
    EXPECT_EQ(FillWidthForPercent(50, bar), 138);
    EXPECT_EQ(FillWidthForPercent(100, bar), bar);
}

TEST(SkinSliders, VolumeFromTrackAndKnob)
{
    auto v = VolumeFromTrack(28);
    ASSERT_TRUE(v);
    EXPECT_EQ(v->volume, 49);
    EXPECT_EQ(v->knobLeft, 25);
    v = VolumeFromTrack(3);
    ASSERT_TRUE(v);
    EXPECT_EQ(v->volume, 0);
    EXPECT_EQ(v->knobLeft, 0);
    v = VolumeFromTrack(54);
    ASSERT_TRUE(v);
    EXPECT_EQ(v->volume, 100);
    EXPECT_EQ(v->knobLeft, 51);
    EXPECT_FALSE(VolumeFromTrack(55));     // 101
    EXPECT_FALSE(VolumeFromTrack(2));      // -2
    EXPECT_FALSE(VolumeFromTrack(30, 10)); // track too narrow for the knob
    EXPECT_FALSE(VolumeFromTrack(30, 4));
    // dragging the knob: its left plus the pointer's x on it
    v = VolumeFromKnob(25, 3);
    ASSERT_TRUE(v);
    EXPECT_EQ(v->knobLeft, 25);
    EXPECT_EQ(v->volume, 49);
    EXPECT_FALSE(VolumeFromKnob(51, 5)); // past the right end: the knob stays where it was
}

TEST(SkinSliders, PartsUnderThePointer)
{
    const SkinLayout l = SkinLayout::Compute({388, 515});
    const int fill = 100;
    EXPECT_EQ(SliderPartAt(l, {l.seekBar.left() + 50, l.seekBar.top() + 5}, fill, 48), SliderPart::Fill);
    EXPECT_EQ(SliderPartAt(l, {l.seekBar.left() + 150, l.seekBar.top() + 5}, fill, 48), SliderPart::Bar);
    EXPECT_EQ(SliderPartAt(l, {l.seekBar.left() + 50, l.seekBar.top()}, fill, 48), SliderPart::Bar);
    EXPECT_EQ(SliderPartAt(l, {l.volumeTrack.left() + 50, l.volumeTrack.top() + 5}, fill, 48), SliderPart::Knob);
    EXPECT_EQ(SliderPartAt(l, {l.volumeTrack.left() + 10, l.volumeTrack.top() + 5}, fill, 48), SliderPart::Track);
    EXPECT_EQ(SliderPartAt(l, {5, 5}, fill, 48), SliderPart::None);
    EXPECT_EQ(SliderPartAt(l, {l.seekBar.left() + 1, l.seekBar.top() + 5}, 0, 48), SliderPart::Bar);
}
