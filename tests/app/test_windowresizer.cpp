#include "app/windowresizer.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {
QSize px(int w, int h) { return QSize(w * 15, h * 15); }
} // namespace

TEST(WindowResizer, TheBandIsAboutFourPixelsAndShapesThePointer)
{
    WindowResizer r;
    EXPECT_EQ(r.move(10, 10, px(400, 400)).cursor, Qt::ArrowCursor);
    EXPECT_EQ(r.move(396, 10, px(400, 400)).cursor, Qt::SizeHorCursor);
    EXPECT_EQ(r.move(10, 396, px(400, 400)).cursor, Qt::SizeVerCursor);
    EXPECT_EQ(r.move(397, 397, px(400, 400)).cursor, Qt::SizeFDiagCursor);
    r.press(395, 10, px(400, 400)); // five pixels in: no resize
    EXPECT_FALSE(r.isResizing());
    r.press(396, 10, px(400, 400));
    EXPECT_TRUE(r.resizingWidth());
}

TEST(WindowResizer, AWidthDragStopsAtTheMinimumForGood)
{
    WindowResizer r;
    QSize size = px(400, 400);
    r.move(398, 100, size);
    r.press(398, 100, size);
    size = r.move(420, 100, size).outerTwips; // 22 pixels wider
    EXPECT_EQ(size, px(422, 400));
    size = r.move(300, 100, size).outerTwips; // far left: clamped at 370
    EXPECT_EQ(size.width(), 370 * 15);
    EXPECT_FALSE(r.isResizing());
    size = r.move(500, 100, size).outerTwips; // no longer follows
    EXPECT_EQ(size.width(), 370 * 15);
}

TEST(WindowResizer, AHeightDragOfAWideWindowSurvivesTheMinimum)
{
    WindowResizer r;
    QSize size = px(600, 400);
    r.move(300, 398, size);
    r.press(300, 398, size);
    EXPECT_TRUE(r.resizingHeight());
    size = r.move(300, 100, size).outerTwips;
    EXPECT_EQ(size.height(), 370 * 15);
    EXPECT_TRUE(r.resizingHeight()); // the width is above its minimum
    size = r.move(300, 420, size).outerTwips;
    EXPECT_GT(size.height(), 370 * 15);
    // Past the left edge of the window the width snaps to the minimum.
    WindowResizer corner;
    QSize c = px(600, 600);
    corner.move(598, 598, c);
    corner.press(598, 598, c);
    EXPECT_TRUE(corner.resizingCorner());
    c = corner.move(0, 598, c).outerTwips;
    EXPECT_EQ(c.width(), 370 * 15);
    corner.release();
    EXPECT_FALSE(corner.isResizing());
}
