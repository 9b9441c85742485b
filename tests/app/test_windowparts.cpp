// The main window's full-screen and maximised states, without a window.
#include "app/windowstates.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(WindowStates, FullScreenAndMaximiseReturnToWhereTheyLeft)
{
    const QRect normal(10, 20, 400, 300), screen(0, 0, 1280, 1024), available(0, 0, 1280, 1000);
    WindowStates w;
    auto step = w.setFullScreen(true, normal, screen, true);
    ASSERT_TRUE(step);
    EXPECT_EQ(step->show, WindowStates::Show::FullScreen);
    EXPECT_EQ(step->geometry, screen);
    EXPECT_FALSE(step->listVisible);
    EXPECT_FALSE(w.isNormal());
    EXPECT_FALSE(w.setFullScreen(true, screen, screen, false)); // already there: nothing moves
    step = w.setFullScreen(false, screen, screen, false);
    ASSERT_TRUE(step);
    EXPECT_EQ(step->geometry, normal);
    EXPECT_TRUE(step->listVisible);
    EXPECT_FALSE(w.setFullScreen(false, normal, screen, true));

    EXPECT_EQ(w.toggleMaximize(normal, available).geometry, available);
    EXPECT_TRUE(w.isMaximized() && !w.isNormal());
    const WindowStates::Step back = w.toggleMaximize(available, available);
    EXPECT_EQ(back.show, WindowStates::Show::Normal);
    EXPECT_EQ(back.geometry, normal);
    EXPECT_TRUE(w.isNormal());
}
