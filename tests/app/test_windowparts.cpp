// The window-free rules the main window follows: which controls each
// media-control state leaves usable, and the full-screen and maximised states.
#include "app/mediacontrols.h"
#include "app/windowstates.h"
#include "skin/skinlayout.h"

#include <gtest/gtest.h>
#include <map>

using namespace quorvel;

TEST(MediaControls, EachStateLeavesTheRightControlsUsable)
{
    struct Case {
        MediaAction action;
        bool play, pause, stop, seek, stopItem;
    };
    for (const Case &c : {Case{MediaAction::Playing, false, true, true, true, true},
                          Case{MediaAction::Paused, true, false, true, false, true},
                          Case{MediaAction::Stopped, true, false, false, false, false}}) {
        const ControlEnables controls = ControlsFor(c.action);
        const std::map<int, bool> buttons(controls.buttons.begin(), controls.buttons.end());
        const std::map<QString, bool> items(controls.menuItems.begin(), controls.menuItems.end());
        SCOPED_TRACE(int(c.action));
        EXPECT_EQ(buttons.at(BtnPlay), c.play);
        EXPECT_EQ(buttons.at(BtnPause), c.pause);
        EXPECT_EQ(buttons.at(BtnStop), c.stop);
        for (int seeking : {BtnPrevious, BtnRewind, BtnNext, BtnFF, BtnFullScreen})
            EXPECT_EQ(buttons.at(seeking), c.seek) << seeking;
        for (const char *key : {"Stop", "FullScreen", "IncreaseSpeed"})
            EXPECT_EQ(items.at(QLatin1String(key)), c.stopItem) << key;
        EXPECT_FALSE(buttons.count(BtnOpen) || buttons.count(BtnPlayList)); // always usable
    }
    for (bool filled : {false, true}) {
        for (const auto &[key, on] : PlaylistControls(filled).menuItems)
            EXPECT_EQ(on, filled) << key.toStdString();
    }
}

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
