// The window-side flow: paint, then mouse events at client positions, as
// the main window forwards them, with the committed skin.
#include "skintestdata.h"

#include "skin/skincontroller.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

const SkinImages &Skin()
{
    return test::CommittedSkin();
}

void Paint(SkinController &c)
{
    QImage img(c.state().size, QImage::Format_RGB32);
    QPainter p(&img);
    c.paint(p);
}

QPoint Centre(const HitRect &r)
{
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

} // namespace

TEST(SkinController, ClickRunsTheButtonUnderThePointerAtRelease)
{
    SkinController c(Skin());
    Paint(c);
    const QPoint play = Centre(c.hitRects()[BtnPlay]);
    auto r = c.mousePress(play, Qt::LeftButton);
    EXPECT_TRUE(r.repaint && r.commands.empty() && c.buttons().state(BtnPlay) == StatePressed);
    EXPECT_EQ(c.mouseRelease(play).commands, std::vector{SkinCommand::Play});

    // pressed on Play, released on Stop: Stop runs
    c.mousePress(play, Qt::LeftButton);
    r = c.mouseRelease(Centre(c.hitRects()[BtnStop]));
    EXPECT_TRUE(r.has(SkinCommand::Stop));
    EXPECT_FALSE(r.has(SkinCommand::Play));

    // a disabled button neither lights nor clicks
    c.buttons().setEnabled(BtnNext, false);
    const QPoint next = Centre(c.hitRects()[BtnNext]);
    c.mouseMove(next, Qt::NoButton);
    EXPECT_EQ(c.buttons().state(BtnNext), StateDisabled);
    c.mousePress(next, Qt::LeftButton);
    EXPECT_TRUE(c.mouseRelease(next).commands.empty());
}

TEST(SkinController, HoverRewindTitleBarAndMute)
{
    SkinController c(Skin());
    Paint(c);
    const QPoint open = Centre(c.hitRects()[BtnOpen]);
    EXPECT_TRUE(c.mouseMove(open, Qt::NoButton).repaint);
    Paint(c);
    EXPECT_EQ(c.state().buttonStates[BtnOpen], StateOver);

    // holding rewind and releasing elsewhere leaves it running
    const QPoint rewind = Centre(c.hitRects()[BtnRewind]);
    EXPECT_TRUE(c.mousePress(rewind, Qt::LeftButton).has(SkinCommand::StartRewind));
    EXPECT_FALSE(c.mouseRelease(open).has(SkinCommand::StopRewind));

    // fast forward stops on release even when it was disabled meanwhile
    const QPoint ff = Centre(c.hitRects()[BtnFF]);
    EXPECT_TRUE(c.mousePress(ff, Qt::LeftButton).has(SkinCommand::FastForwardDown));
    c.buttons().setEnabled(BtnFF, false);
    EXPECT_TRUE(c.mouseRelease(ff).has(SkinCommand::FastForwardUp));

    // the window icon lies in the title bar, so a press there moves the window
    EXPECT_TRUE(c.mousePress({10, 10}, Qt::LeftButton).has(SkinCommand::DragWindow));
    c.mouseRelease({10, 10});
    EXPECT_TRUE(c.doubleClick({200, 15}).has(SkinCommand::MaximizeOrRestore));

    c.state().isMuted = true;
    Paint(c);
    const QPoint sound = Centre(c.hitRects()[BtnSound]);
    c.mousePress(sound, Qt::LeftButton);
    EXPECT_TRUE(c.mouseRelease(sound).has(SkinCommand::Mute));
}

TEST(SkinController, SeekBarAndVolumeDrags)
{
    SkinController c(Skin());
    Paint(c);
    const SkinLayout l = c.layout();
    const QPoint onBar(l.seekBar.left() + 100, l.seekBar.top() + 6);

    // nothing loaded: the bar does nothing
    auto r = c.mousePress(onBar, Qt::LeftButton);
    c.mouseRelease(onBar);
    EXPECT_TRUE(!r.seekTo && c.state().fillWidth == 0);

    c.setMediaLoaded(true);
    r = c.mousePress(onBar, Qt::LeftButton);
    ASSERT_TRUE(r.seekTo);
    EXPECT_DOUBLE_EQ(*r.seekTo, 100.0 / l.seekBar.width());
    EXPECT_EQ(c.state().fillWidth, 100);
    // the drag goes on outside the bar's height, and stops short of its end
    r = c.mouseMove({l.seekBar.left() + 150, l.seekBar.top() - 30}, Qt::LeftButton);
    ASSERT_TRUE(r.seekTo);
    EXPECT_EQ(c.state().fillWidth, 150);
    EXPECT_FALSE(c.mouseMove({l.seekBar.right(), l.seekBar.top() + 6}, Qt::LeftButton).seekTo);
    EXPECT_FALSE(c.mouseMove({l.seekBar.left() - 20, l.seekBar.top() + 6}, Qt::LeftButton).seekTo);
    EXPECT_EQ(c.state().fillWidth, 150);
    c.mouseRelease({0, 0});
    // after release, moves over the bar change nothing
    EXPECT_FALSE(c.mouseMove(onBar, Qt::LeftButton).seekTo);

    // a right press on the bar re-sends the position the fill shows
    r = c.mousePress({l.seekBar.left() + 200, l.seekBar.top() + 1}, Qt::RightButton);
    ASSERT_TRUE(r.seekTo);
    EXPECT_DOUBLE_EQ(*r.seekTo, 150.0 / l.seekBar.width());
    c.mouseRelease({0, 0});

    c.SetProgressPercent(50);
    EXPECT_EQ(c.state().fillWidth, RoundHalfEven(l.seekBar.width() / 2.0));

    // volume: a press on the track (the knob's drag runs end to end)
    r = c.mousePress({l.volumeTrack.left() + 28, l.volumeTrack.top() + 6}, Qt::LeftButton);
    EXPECT_EQ(r.volume, 49);
    EXPECT_EQ(std::pair(c.state().volumeText, c.state().knobLeft), std::pair(QString("49"), 25));
    c.mouseRelease({0, 0});
    // button states were not touched by the slider work
    for (int s : c.buttons().states())
        EXPECT_NE(s, StatePressed);
}
