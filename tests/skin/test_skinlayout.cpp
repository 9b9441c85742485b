// The main window's layout at the start size, a middle size and full HD,
// for every playlist layout code.
#include "skin/skinimages.h"
#include "skin/skinlayout.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

HitRect R(int x, int y, int w, int h) { return {x, y, x + w, y + h}; }

void ExpectTable(const SkinLayout &l)
{
    const int W = l.width, H = l.height;
    const int px = RoundHalfEven((W - 69) / 2.0);
    EXPECT_EQ(l.px, px);
    EXPECT_EQ(l.titleBar, QRect(0, 0, W, 31));
    EXPECT_EQ(l.menuStrip, QRect(15, 31, W - 15, 26));
    EXPECT_EQ(l.leftBorder, QRect(0, 31, 15, H - 166));
    EXPECT_EQ(l.rightBorder, QRect(W - 16, 31, 16, H - 166));
    EXPECT_EQ(l.videoArea, QRect(15, 56, W - 30, H - 203));
    EXPECT_EQ(l.controlLeft, QRect(0, H - 147, 58, 147));
    EXPECT_EQ(l.controlCentre, QRect(58, H - 147, W - 110, 147));
    EXPECT_EQ(l.controlRight, QRect(W - 58, H - 147, 58, 147));
    // the pieces tile the window edge to edge
    EXPECT_EQ(l.controlLeft.right() + 1, l.controlCentre.left());
    EXPECT_GE(l.controlCentre.right() + 1, l.controlRight.left()); // the right piece covers the rest
    EXPECT_EQ(l.videoArea.bottom() + 1, l.controlLeft.top());

    EXPECT_EQ(l.buttons[BtnClose], R(W - 30, 1, 23, 24));
    EXPECT_EQ(l.buttons[BtnMaxmize], R(W - 53, 1, 23, 24));
    EXPECT_EQ(l.buttons[BtnMinimize], R(W - 76, 1, 22, 24));
    EXPECT_EQ(l.buttons[BtnTitleBar], R(0, 0, W, 31));
    EXPECT_EQ(l.buttons[BtnPlay], R(px, H - 87, 69, 83));
    EXPECT_EQ(l.buttons[BtnPause], R(px + 69, H - 57, 35, 44));
    EXPECT_EQ(l.buttons[BtnStop], R(px - 36, H - 57, 36, 47));
    EXPECT_EQ(l.buttons[BtnPrevious], R(42, H - 84, 29, 37));
    EXPECT_EQ(l.buttons[BtnRewind], R(71, H - 82, 30, 37));
    EXPECT_EQ(l.buttons[BtnNext], R(W - 66, H - 84, 28, 34));
    EXPECT_EQ(l.buttons[BtnFF], R(W - 95, H - 83, 29, 37));
    EXPECT_EQ(l.buttons[BtnSnapShoot], R(6, H - 115, 29, 39));
    EXPECT_EQ(l.buttons[BtnFullScreen], R(W - 38, H - 115, 30, 39));
    EXPECT_EQ(l.buttons[BtnPlayList], R(8, H - 33, 25, 31));
    EXPECT_EQ(l.buttons[BtnDvd], R(45, H - 34, 25, 32));
    EXPECT_EQ(l.buttons[BtnOpen], R(85, H - 33, 26, 30));
    EXPECT_EQ(l.buttons[BtnSound], R(W - 104, H - 32, 23, 31));
    EXPECT_EQ(l.buttons[BtnWindowIcon], R(3, 3, 24, 24));
    for (int i : {3, 4, 5, 6, 21, 22})
        EXPECT_TRUE(l.buttons[i].isEmpty());

    EXPECT_EQ(l.caption, QRect(30, 8, W - 110, 14));
    EXPECT_EQ(l.rateLabel, QPoint(60, H - 132));
    EXPECT_EQ(l.timeLabelTop, H - 132);
    EXPECT_EQ(l.timeLabelLeft(127), (W - 127) / 2);
    EXPECT_EQ(l.volumeLabel.right(), l.volumeTrack.right());
    EXPECT_LT(l.volumeLabel.bottom(), l.volumeTrack.top());
    EXPECT_EQ(l.seekBar, QRect(56, H - 109, W - 112, 14));
    EXPECT_EQ(l.volumeTrack, QRect(W - 80, H - 27, 61, 12));
    EXPECT_EQ(l.menuCaptions[0], QRect(17, 35, 45, 13));
    EXPECT_EQ(l.menuCaptions[4], QRect(195, 35, 45, 13));
}

} // namespace

TEST(SkinLayout, BandsButtonsAndPlacesAtThreeSizesAndEveryCode)
{
    for (QSize size : {QSize(388, 515), QSize(800, 600), QSize(1920, 1080)}) {
        for (int code = 0; code <= 6; ++code) {
            SCOPED_TRACE(testing::Message() << size.width() << "x" << size.height() << " code " << code);
            const SkinLayout l = SkinLayout::Compute(size, code);
            ExpectTable(l);
            const QRect v = l.videoArea;
            const double third = v.width() / 3.0, thirdH = v.height() / 3.0;
            switch (code) {
            case 0:
                EXPECT_EQ(l.playlist, QRect(15, 56, RoundHalfEven(third), v.height()));
                break;
            case 1:
                EXPECT_EQ(l.playlist.right(), v.right());
                EXPECT_EQ(l.playlist.width(), RoundHalfEven(third));
                break;
            case 2:
                EXPECT_EQ(l.playlist, QRect(15, 56, v.width(), RoundHalfEven(thirdH)));
                break;
            case 3:
                EXPECT_EQ(l.playlist.bottom(), v.bottom());
                EXPECT_EQ(l.playlist.height(), RoundHalfEven(thirdH));
                break;
            case 4:
                EXPECT_EQ(l.playlist, v);
                break;
            default:
                EXPECT_TRUE(l.playlist.isNull());
            }
            if (code <= 3) { // playlist and video share the area without gap or overlap
                EXPECT_EQ(l.playlist.united(l.video), v);
                EXPECT_FALSE(l.playlist.intersects(l.video));
            } else {
                EXPECT_EQ(l.video, v);
            }
        }
    }
}

TEST(SkinLayout, PlayButtonPlaceRoundsHalvesToEven)
{
    EXPECT_EQ(SkinLayout::Compute({388, 515}).px, 160); // 159.5
    EXPECT_EQ(SkinLayout::Compute({389, 515}).px, 160); // 160
    EXPECT_EQ(SkinLayout::Compute({390, 515}).px, 160); // 160.5
    EXPECT_EQ(SkinLayout::Compute({392, 515}).px, 162); // 161.5
    const SkinLayout l = SkinLayout::Compute({388, 515});
    EXPECT_EQ(l.buttons[BtnPlay].left, 160);
    EXPECT_EQ(l.buttons[BtnPause].left, 229);
}

TEST(SkinLayout, HitRectanglesOfControlButtonsEndAboveTheirDrawnBottom)
{
    const SkinLayout l = SkinLayout::Compute({388, 515});
    const SkinRects hit = RaiseHitBottoms(l.buttons);
    // window buttons and the title bar keep their full height
    for (int i : {BtnClose, BtnMaxmize, BtnMinimize, BtnTitleBar})
        EXPECT_EQ(hit[i], l.buttons[i]);
    // Play: 83 high, drawn from 428 to 511, reacts only down to 487
    EXPECT_EQ(hit[BtnPlay], (HitRect{160, 428, 229, 487}));
    EXPECT_TRUE(hit[BtnPlay].contains({194, 486}));
    EXPECT_FALSE(hit[BtnPlay].contains({194, 487}));
    EXPECT_FALSE(hit[BtnPlay].contains({194, 500})); // lower 2/7 of the picture
    // a 37-high button at top 100 ends at 126 instead of 137
    SkinRects one{};
    one[BtnRewind] = {0, 100, 30, 137};
    one[BtnSound] = {5, 5, 5, 40}; // empty stays empty
    const SkinRects raised = RaiseHitBottoms(one);
    EXPECT_EQ(raised[BtnRewind].bottom, 126);
    EXPECT_TRUE(raised[BtnSound].isEmpty());
    // the window icon lies inside the title bar, which wins as the lower index
    EXPECT_EQ(HitTestButtons(hit, QPoint(10, 10)), BtnTitleBar);
    EXPECT_EQ(HitTestButtons(hit, QPoint(388 - 20, 10)), BtnClose);
    EXPECT_EQ(HitTestButtons(hit, QPoint(200, 300)), -1);
}

TEST(SkinLayout, PlaylistPanesForEachCode)
{
    auto p0 = PlaylistPanesFor(0, {600, 300});
    ASSERT_TRUE(p0);
    EXPECT_DOUBLE_EQ(p0->pane0Width, 200);
    EXPECT_EQ(p0->holder, 0);
    EXPECT_FALSE(p0->lock0W);
    EXPECT_TRUE(p0->lock4W && p0->lock1H && p0->lock3H);
    auto p2 = PlaylistPanesFor(2, {600, 300});
    ASSERT_TRUE(p2);
    EXPECT_DOUBLE_EQ(p2->pane1Height, 100);
    EXPECT_EQ(p2->holder, 1);
    EXPECT_FALSE(p2->lock1H);
    auto p1 = PlaylistPanesFor(1, {358, 312});
    ASSERT_TRUE(p1);
    EXPECT_DOUBLE_EQ(p1->pane4Width, 358 / 3.0); // exact, not rounded
    EXPECT_EQ(p1->holder, 4);
    auto p3 = PlaylistPanesFor(3, {358, 312});
    EXPECT_DOUBLE_EQ(p3->pane3Height, 104);
    EXPECT_EQ(p3->holder, 3);
    EXPECT_FALSE(p3->lock3H);
    auto p4 = PlaylistPanesFor(4, {358, 312});
    EXPECT_TRUE(p4->fillsVideo);
    EXPECT_EQ(p4->holder, -1);
    EXPECT_TRUE(p4->lock0W && p4->lock4W && p4->lock1H && p4->lock3H);
    auto p5 = PlaylistPanesFor(5, {358, 312});
    EXPECT_TRUE(p5->keepContents);
    EXPECT_FALSE(p5->fillsVideo);
    EXPECT_EQ(p5->pane0Width + p5->pane1Height + p5->pane3Height + p5->pane4Width, 0);
    EXPECT_FALSE(PlaylistPanesFor(6, {358, 312}));
    EXPECT_FALSE(PlaylistPanesFor(-1, {358, 312}));
}
