// The button state machine below the skin controller: what a held button,
// a disabled one and out-of-range values do.
#include "skin/skinbuttons.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(SkinButtons, HeldDisabledAndOutOfRange)
{
    SkinButtons b;
    EXPECT_TRUE(b.mouseMove(BtnStop, false));
    EXPECT_EQ(b.state(BtnStop), StateOver);
    // while a button is held nothing changes and no repaint is asked for
    b.mouseMove(BtnNext, false);
    EXPECT_FALSE(b.mouseMove(BtnPrevious, true));
    EXPECT_EQ(std::pair(b.state(BtnNext), b.state(BtnPrevious)), std::pair(int(StateOver), int(StateNormal)));
    EXPECT_EQ(b.mousePress(BtnPlay), SkinCommand::None);
    b.mouseMove(BtnPlay, false); // a move over the pressed button makes it "over"
    EXPECT_EQ(b.state(BtnPlay), StateOver);
    // a release over fast forward stops it even when it has been disabled since
    EXPECT_EQ(b.mousePress(BtnFF), SkinCommand::FastForwardDown);
    b.setEnabled(BtnFF, false);
    EXPECT_EQ(b.mouseRelease(BtnFF), SkinCommand::FastForwardUp);
    for (int index : {int(BtnTitleBar), int(BtnPlay), -1, 99})
        EXPECT_EQ(b.doubleClick(index), index == BtnTitleBar ? SkinCommand::MaximizeOrRestore : SkinCommand::None);
    b.setEnabled(BtnMinimize, false); // maximised by the Maximize button
    b.mouseMove(BtnMinimize, false);
    EXPECT_EQ(std::pair(b.mousePress(BtnMinimize), b.state(BtnMinimize)),
              std::pair(SkinCommand::None, int(StateDisabled)));
    b.setEnabled(BtnMinimize, true);
    EXPECT_EQ(b.click(BtnMinimize), SkinCommand::Minimize);
    b.setState(BtnPlay, 7); // out-of-range states and indices are ignored
    b.setState(40, StateDisabled);
    EXPECT_EQ(std::pair(b.state(BtnPlay), b.state(40)), std::pair(int(StateNormal), int(StateNormal)));
}
