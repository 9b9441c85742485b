// The main window's layout at the start size, a middle size and full HD, for
// every playlist layout code: what must hold whatever the numbers are.
#include "skin/skinimages.h"
#include "skin/skinlayout.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {
const int kDrawnButtons[] = {BtnClose,    BtnMaxmize, BtnMinimize, BtnPlay, BtnPause,     BtnStop,
                             BtnPrevious, BtnRewind,  BtnNext,     BtnFF,   BtnSnapShoot, BtnFullScreen,
                             BtnPlayList, BtnDvd,     BtnOpen,     BtnSound};
}

TEST(SkinLayout, PiecesTileAndButtonsStayApartAtEverySizeAndCode)
{
    for (QSize size : {QSize(388, 515), QSize(800, 600), QSize(1920, 1080)}) {
        for (int code = 0; code <= 6; ++code) {
            SCOPED_TRACE(testing::Message() << size.width() << "x" << size.height() << " code " << code);
            const SkinLayout l = SkinLayout::Compute(size, code);
            const QRect window(QPoint(0, 0), size);
            // the pieces tile the window edge to edge
            EXPECT_EQ(l.controlLeft.right() + 1, l.controlCentre.left());
            EXPECT_GE(l.controlCentre.right() + 1, l.controlRight.left());
            EXPECT_EQ(l.controlRight.right() + 1, size.width());
            EXPECT_EQ(l.controlLeft.bottom() + 1, size.height());
            EXPECT_EQ(l.videoArea.bottom() + 1, l.controlLeft.top());
            EXPECT_TRUE(l.titleBar.contains(l.caption));
            const QRect controlBand(0, l.controlLeft.top(), size.width(), l.controlLeft.height());
            EXPECT_TRUE(controlBand.contains(l.seekBar));
            EXPECT_TRUE(controlBand.contains(l.volumeTrack));
            EXPECT_LT(l.volumeLabel.bottom(), l.volumeTrack.top());
            // every button lies in the window and none covers another
            for (int i : kDrawnButtons) {
                const QRect r = l.buttons[i].toQRect();
                EXPECT_TRUE(window.contains(r)) << "button " << i;
                for (int j : kDrawnButtons)
                    EXPECT_TRUE(i == j || !r.intersects(l.buttons[j].toQRect())) << i << " and " << j;
            }
            // the playlist lies in the video area, all of it for code 4, nowhere for 5 and 6
            const QRect v = l.videoArea;
            EXPECT_TRUE(code >= 5 ? l.playlist.isEmpty() : v.contains(l.playlist));
            EXPECT_EQ(code == 4, l.playlist == v);
            if (code <= 3) { // playlist and video share the area without gap or overlap
                EXPECT_EQ(l.playlist.united(l.video), v);
                EXPECT_FALSE(l.playlist.intersects(l.video));
            } else {
                EXPECT_EQ(l.video, v);
            }
        }
    }
}
