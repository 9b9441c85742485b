// The button state machine: hover, press, release, click and double-click,
// with disabled buttons that the mouse never wakes.
#include "skin/skinbuttons.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(SkinButtons, HoverAndPressStatesAndTheirActions)
{
    SkinButtons b;
    EXPECT_TRUE(b.mouseMove(BtnPlay, false));
    EXPECT_TRUE(b.mouseMove(BtnStop, false));
    EXPECT_EQ(b.state(BtnPlay), StateNormal);
    EXPECT_EQ(b.state(BtnStop), StateOver);
    EXPECT_TRUE(b.mouseMove(-1, false));
    EXPECT_EQ(b.state(BtnStop), StateNormal);
    // while a button is held nothing changes and no repaint is asked for
    b.mouseMove(BtnNext, false);
    EXPECT_FALSE(b.mouseMove(BtnPrevious, true));
    EXPECT_EQ(b.state(BtnNext), StateOver);
    EXPECT_EQ(b.state(BtnPrevious), StateNormal);

    EXPECT_EQ(b.mousePress(BtnPlay), SkinCommand::None);
    EXPECT_EQ(b.state(BtnPlay), StatePressed);
    b.mouseMove(BtnPlay, false); // a move over the pressed button makes it "over"
    EXPECT_EQ(b.state(BtnPlay), StateOver);
    EXPECT_EQ(b.mousePress(BtnRewind), SkinCommand::StartRewind);
    EXPECT_EQ(b.state(BtnPlay), StateNormal);
    EXPECT_EQ(b.mousePress(BtnFF), SkinCommand::FastForwardDown);
    EXPECT_EQ(b.mousePress(BtnTitleBar), SkinCommand::DragWindow);
    EXPECT_EQ(b.mousePress(-1), SkinCommand::None);
    // releases end rewind and fast forward only over their own buttons
    EXPECT_EQ(b.mouseRelease(BtnRewind), SkinCommand::StopRewind);
    EXPECT_EQ(b.mouseRelease(BtnPlay), SkinCommand::None);
    // a release over fast forward stops it even when it has been disabled since
    b.setEnabled(BtnFF, false);
    EXPECT_EQ(b.mouseRelease(BtnFF), SkinCommand::FastForwardUp);
}

TEST(SkinButtons, DisabledButtonsStayDeadAndOnlyTheTitleBarTakesADoubleClick)
{
    SkinButtons b;
    for (int index : {int(BtnTitleBar), int(BtnPlay), -1, 99}) {
        EXPECT_EQ(b.doubleClick(index), index == BtnTitleBar ? SkinCommand::MaximizeOrRestore : SkinCommand::None);
        EXPECT_EQ(b.click(index), index == BtnPlay ? SkinCommand::Play : SkinCommand::None) << index;
    }
    b.setEnabled(BtnMinimize, false); // maximised by the Maximize button
    EXPECT_EQ(b.click(BtnMinimize), SkinCommand::None);
    b.mouseMove(BtnMinimize, false);
    EXPECT_EQ(b.mousePress(BtnMinimize), SkinCommand::None);
    EXPECT_EQ(b.state(BtnMinimize), StateDisabled);
    b.setEnabled(BtnMinimize, true);
    EXPECT_EQ(b.click(BtnMinimize), SkinCommand::Minimize);
    b.setState(BtnPlay, 7); // out-of-range states and indices are ignored
    b.setState(40, StateDisabled);
    EXPECT_EQ(std::pair(b.state(BtnPlay), b.state(40)), std::pair(int(StateNormal), int(StateNormal)));
}
