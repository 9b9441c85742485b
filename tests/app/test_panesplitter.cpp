#include "app/panesplitter.h"

#include <QCoreApplication>
#include <QLabel>
#include <gtest/gtest.h>

using namespace quorvel;

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
