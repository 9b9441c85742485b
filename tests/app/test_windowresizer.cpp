#include "app/windowplacement.h"
#include "app/windowresizer.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {
QSize px(int w, int h)
{
    return QSize(w, h);
}
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
    size = r.move(420, 100, size).outer; // 22 pixels wider
    EXPECT_EQ(size, px(422, 400));
    size = r.move(300, 100, size).outer; // far left: clamped at 370
    EXPECT_EQ(size.width(), 370);
    EXPECT_FALSE(r.isResizing());
    size = r.move(500, 100, size).outer; // no longer follows
    EXPECT_EQ(size.width(), 370);
}

TEST(WindowResizer, AHeightDragOfAWideWindowSurvivesTheMinimum)
{
    WindowResizer r;
    QSize size = px(600, 400);
    r.move(300, 398, size);
    r.press(300, 398, size);
    EXPECT_TRUE(r.resizingHeight());
    size = r.move(300, 100, size).outer;
    EXPECT_EQ(size.height(), 370);
    EXPECT_TRUE(r.resizingHeight()); // the width is above its minimum
    size = r.move(300, 420, size).outer;
    EXPECT_GT(size.height(), 370);
    // Past the left edge of the window the width snaps to the minimum.
    WindowResizer corner;
    QSize c = px(600, 600);
    corner.move(598, 598, c);
    corner.press(598, 598, c);
    EXPECT_TRUE(corner.resizingCorner());
    c = corner.move(0, 598, c).outer;
    EXPECT_EQ(c.width(), 370);
    corner.release();
    EXPECT_FALSE(corner.isResizing());
}

TEST(WindowPlacement, StoredGeometryIsBroughtOntoTheScreens)
{
    const QList<QRect> one{QRect(0, 0, 1280, 1024)};
    // Two monitors side by side; the right one has a panel at its top.
    const QList<QRect> two{QRect(0, 0, 1920, 1080), QRect(1920, 30, 1280, 994)};
    const QSize minimum(370, 370);
    struct Case {
        QRect wanted;
        QList<QRect> screens;
        QRect expected;
    } const cases[] = {
        {QRect(100, 100, 388, 515), one, QRect(100, 100, 388, 515)},       // fits: unchanged
        {QRect(0, 0, 133333333, 133333333), one, QRect(0, 0, 1280, 1024)}, // 2000000000 twips
        {QRect(50, 60, 100, 0), one, QRect(50, 60, 370, 370)},             // below the minimum
        {QRect(5000, 3000, 388, 515), one, QRect(892, 509, 388, 515)},     // monitor gone
        {QRect(-900, -400, 388, 515), one, QRect(0, 0, 388, 515)},
        {QRect(100, 800, 388, 515), one, QRect(100, 800, 388, 515)},             // only the bottom hangs off
        {QRect(100, 1000, 388, 515), one, QRect(100, 509, 388, 515)},            // title bar off the screen
        {QRect(1700, 100, 388, 515), two, QRect(1700, 100, 388, 515)},           // across two monitors
        {QRect(2000, 10, 388, 515), two, QRect(2000, 30, 388, 515)},             // title bar under the panel
        {QRect(2500, 0, 2000, 2000), two, QRect(1920, 30, 1280, 994)},           // larger than its monitor
        {QRect(0, 0, 100, 100), {QRect(0, 0, 320, 240)}, QRect(0, 0, 370, 370)}, // minimum beats a tiny screen
    };
    for (const Case &c : cases)
        EXPECT_EQ(ClampToScreens(c.wanted, c.screens, minimum, 31), c.expected) << c.wanted.x() << "," << c.wanted.y();
}
