#include "common/geometry.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(Geometry, FitScaleKeepsAspectAndGuardsEmptySources)
{
    const struct {
        int w, h, boxW, boxH;
        double scale;
    } cases[] = {
        {0, 100, 64, 64, 1.0},    {100, 0, 64, 64, 1.0},   // empty sources
        {640, 480, 64, 64, 0.1},  {480, 640, 64, 64, 0.1}, // wide: width decides; tall: height
        {100, 100, 64, 32, 0.32}, {32, 32, 64, 64, 2.0},   // small sources grow
    };
    for (const auto &c : cases)
        EXPECT_DOUBLE_EQ(FitScale(c.w, c.h, c.boxW, c.boxH), c.scale) << c.w << 'x' << c.h;
}

TEST(Geometry, HitRectHasExclusiveEdges)
{
    const HitRect r{10, 20, 30, 40};
    EXPECT_TRUE(r.contains({10, 20}) && r.contains({29, 39}));
    EXPECT_FALSE(r.contains({30, 39}) || r.contains({29, 40}));
    const HitRect empty{5, 5, 5, 9};
    EXPECT_TRUE(empty.isEmpty());
    EXPECT_FALSE(empty.contains({5, 5}));
    EXPECT_EQ(HitRect::fromQRect(r.toQRect()), r);
}
