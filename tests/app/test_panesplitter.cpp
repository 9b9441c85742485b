#include "app/panesplitter.h"

#include <QCoreApplication>
#include <QLabel>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(PlaylistLayout, EachCodePutsThePlaylistInItsPaneWithAThird)
{
    PlaylistLayout l = PlaylistLayout::forCode(0, 600, 300);
    EXPECT_TRUE(l.applies && l.contentsChange);
    EXPECT_DOUBLE_EQ(l.sizes[0], 200);
    EXPECT_EQ(l.holder, 0);
    EXPECT_EQ(l.locks, (std::array<bool, 4>{false, true, true, true}));

    l = PlaylistLayout::forCode(2, 600, 300);
    EXPECT_DOUBLE_EQ(l.sizes[1], 100);
    EXPECT_EQ(l.holder, 1);
    EXPECT_EQ(l.locks, (std::array<bool, 4>{true, true, false, true}));

    l = PlaylistLayout::forCode(1, 500, 300);
    EXPECT_DOUBLE_EQ(l.sizes[3], 500.0 / 3);
    EXPECT_EQ(l.holder, 4);
    l = PlaylistLayout::forCode(3, 500, 301);
    EXPECT_DOUBLE_EQ(l.sizes[2], 301.0 / 3);
    EXPECT_EQ(l.holder, 3);

    l = PlaylistLayout::forCode(4, 500, 300);
    EXPECT_TRUE(l.fill);
    EXPECT_EQ(l.holder, -1);
    EXPECT_EQ(l.sizes, (std::array<double, 4>{0, 0, 0, 0}));

    l = PlaylistLayout::forCode(5, 500, 300);
    EXPECT_TRUE(l.applies);
    EXPECT_FALSE(l.contentsChange);
    EXPECT_EQ(l.locks, (std::array<bool, 4>{true, true, true, true}));

    EXPECT_FALSE(PlaylistLayout::forCode(6, 500, 300).applies);
    EXPECT_FALSE(PlaylistLayout::forCode(-1, 500, 300).applies);
}

TEST(PaneSplitter, SidePanesTakeTheirSizeAndTheCentreTheRest)
{
    PaneSplitter s;
    s.resize(604, 400);
    auto *centre = new QLabel(u"video"_qs);
    auto *list = new QLabel(u"list"_qs);
    s.setPaneContent(PaneSplitter::kCentre, centre);
    s.setPaneContent(0, list);
    s.show();
    QCoreApplication::processEvents();
    s.setPaneSize(0, 200);
    EXPECT_EQ(s.paneSize(0), 200);
    EXPECT_EQ(s.paneContent(0), list);
    EXPECT_EQ(list->parentWidget() != nullptr, true);
    // Moving the content to another pane takes it out of the first.
    s.setPaneContent(4, list);
    EXPECT_EQ(s.paneContent(0), nullptr);
    EXPECT_EQ(s.paneContent(4), list);
    s.setPaneSize(0, 0);
    s.setPaneSize(4, 150);
    EXPECT_EQ(s.paneSize(0), 0);
    EXPECT_EQ(s.paneSize(4), 150);
    EXPECT_GT(centre->width(), 400);
}
