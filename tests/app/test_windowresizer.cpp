#include "app/windowplacement.h"
#include "app/windowresizer.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(WindowResizer, TheBandShapesThePointerAndDragsStopAtTheMinimum)
{
    WindowResizer r;
    const QSize square(400, 400);
    for (auto [x, y, cursor] : {std::tuple{10, 10, Qt::ArrowCursor},
                                {396, 10, Qt::SizeHorCursor},
                                {10, 396, Qt::SizeVerCursor},
                                {397, 397, Qt::SizeFDiagCursor}})
        EXPECT_EQ(r.move(x, y, square).cursor, cursor) << x << "," << y;
    r.press(395, 10, square); // five pixels in: no resize
    EXPECT_FALSE(r.isResizing());

    // From a press at (x, y) in `size`, each move's x and y and the size after it.
    struct Step {
        int x, y;
        QSize after;
        bool resizing;
    };
    const struct {
        QSize size;
        int x, y;
        std::vector<Step> moves;
    } drags[] = {
        // Wider, then clamped at the minimum width: the drag ends for good.
        {{400, 400},
         398,
         100,
         {{420, 100, {422, 400}, true}, {300, 100, {370, 400}, false}, {500, 100, {370, 400}, false}}},
        // A height drag of a wide window goes on past the minimum height.
        {{600, 400}, 300, 398, {{300, 100, {600, 370}, true}, {300, 420, {600, 690}, true}}},
        // Past the left edge a corner drag snaps the width to the minimum.
        {{600, 600}, 598, 598, {{0, 598, {370, 600}, true}}},
    };
    for (const auto &d : drags) {
        WindowResizer drag;
        QSize size = d.size;
        drag.move(d.x, d.y, size);
        drag.press(d.x, d.y, size);
        for (const Step &m : d.moves) {
            size = drag.move(m.x, m.y, size).outer;
            EXPECT_EQ(std::pair(size, drag.isResizing()), std::pair(m.after, m.resizing)) << m.x << "," << m.y;
        }
        drag.release();
        EXPECT_FALSE(drag.isResizing());
    }
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
        // (A size no screen holds and a monitor gone are checked end to end.)
        {QRect(100, 100, 388, 515), one, QRect(100, 100, 388, 515)}, // fits: unchanged
        {QRect(50, 60, 100, 0), one, QRect(50, 60, 370, 370)},       // below the minimum
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
