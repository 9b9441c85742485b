#include "skinlayout.h"

#include <algorithm>
#include <cmath>

namespace quorvel {

std::optional<PlaylistPanes> PlaylistPanesFor(int code, QSizeF splitter)
{
    if (code < 0 || code > 5)
        return std::nullopt;
    PlaylistPanes p;
    switch (code) {
    case 0:
        p.pane0Width = splitter.width() / 3;
        p.holder = 0;
        p.lock0W = false;
        break;
    case 1:
        p.pane4Width = splitter.width() / 3;
        p.holder = 4;
        p.lock4W = false;
        break;
    case 2:
        p.pane1Height = splitter.height() / 3;
        p.holder = 1;
        p.lock1H = false;
        break;
    case 3:
        p.pane3Height = splitter.height() / 3;
        p.holder = 3;
        p.lock3H = false;
        break;
    case 4:
        p.fillsVideo = true;
        break;
    case 5:
        p.keepContents = true;
        break;
    }
    return p;
}

SkinLayout SkinLayout::Compute(QSize client, int playlistCode)
{
    SkinLayout l;
    const int W = client.width(), H = client.height();
    l.width = W;
    l.height = H;
    l.px = RoundHalfEven((W - 69) / 2.0);
    const int px = l.px;

    l.titleBar = QRect(0, 0, W, kTitleHeight);
    l.menuStrip = QRect(15, 31, W - 15, 26);
    l.leftBorder = QRect(0, 31, 15, H - 166);
    l.rightBorder = QRect(W - 16, 31, 16, H - 166);
    l.videoArea = QRect(15, 56, W - 30, H - 203);
    l.controlCentre = QRect(58, H - 147, W - 110, 147);
    l.controlLeft = QRect(0, H - 147, 58, 147);
    l.controlRight = QRect(W - 58, H - 147, 58, 147);

    auto put = [&](int index, int x, int y, int w, int h) { l.buttons[index] = {x, y, x + w, y + h}; };
    put(BtnClose, W - 30, 1, 23, 24);
    put(BtnMaxmize, W - 53, 1, 23, 24);
    put(BtnMinimize, W - 76, 1, 22, 24);
    put(BtnTitleBar, 0, 0, W, 31);
    put(BtnPlay, px, H - 87, 69, 83);
    put(BtnPause, px + 69, H - 57, 35, 44);
    put(BtnStop, px - 36, H - 57, 36, 47);
    put(BtnPrevious, 42, H - 84, 29, 37);
    put(BtnRewind, 71, H - 82, 30, 37);
    put(BtnNext, W - 66, H - 84, 28, 34);
    put(BtnFF, W - 95, H - 83, 29, 37);
    put(BtnSnapShoot, 6, H - 115, 29, 39);
    put(BtnFullScreen, W - 38, H - 115, 30, 39);
    put(BtnPlayList, 8, H - 33, 25, 31);
    put(BtnDvd, 45, H - 34, 25, 32);
    put(BtnOpen, 85, H - 33, 26, 30);
    put(BtnSound, W - 104, H - 32, 23, 31);
    put(BtnWindowIcon, 3, 3, 24, 24);

    l.caption = QRect(30, 8, W - 110, 14);
    l.rateLabel = QPoint(60, H - 132);
    l.timeLabelTop = H - 132;
    // Beside the track, "100" would run into the window's edge: the number
    // stands over the track's right end instead, clear of edge and knob.
    l.volumeLabel = QRect(W - 80, H - 42, kTrackWidth, 13);
    l.seekBar = QRect(56, H - 109, W - 112, kSeekBarHeight);
    l.volumeTrack = QRect(W - 80, H - 27, kTrackWidth, kTrackHeight);
    const int menuX[5] = {17, 62, 106, 150, 195};
    for (int i = 0; i < 5; ++i)
        l.menuCaptions[i] = QRect(menuX[i], 35, 45, 13);

    l.video = l.videoArea;
    const QRect v = l.videoArea;
    if (auto panes = PlaylistPanesFor(playlistCode, QSizeF(v.size()))) {
        switch (playlistCode) {
        case 0: {
            const int w = RoundHalfEven(panes->pane0Width);
            l.playlist = QRect(v.left(), v.top(), w, v.height());
            l.video = QRect(v.left() + w, v.top(), v.width() - w, v.height());
            break;
        }
        case 1: {
            const int w = RoundHalfEven(panes->pane4Width);
            l.playlist = QRect(v.right() + 1 - w, v.top(), w, v.height());
            l.video = QRect(v.left(), v.top(), v.width() - w, v.height());
            break;
        }
        case 2: {
            const int h = RoundHalfEven(panes->pane1Height);
            l.playlist = QRect(v.left(), v.top(), v.width(), h);
            l.video = QRect(v.left(), v.top() + h, v.width(), v.height() - h);
            break;
        }
        case 3: {
            const int h = RoundHalfEven(panes->pane3Height);
            l.playlist = QRect(v.left(), v.bottom() + 1 - h, v.width(), h);
            l.video = QRect(v.left(), v.top(), v.width(), v.height() - h);
            break;
        }
        case 4:
            l.playlist = v;
            break;
        default:
            break;
        }
    }
    return l;
}

QRect SkinLayout::knob(int knobLeft) const
{
    // centred on the track so the knob reads as a thumb riding it
    return QRect(volumeTrack.left() + knobLeft, volumeTrack.top() - 2, kKnobWidth, kTrackHeight + 4);
}

QRect SkinLayout::fill(int fillWidth) const
{
    const int w = std::clamp(fillWidth, 0, seekBar.width());
    return QRect(seekBar.left(), seekBar.top() + kFillTop, w, kFillHeight);
}

SkinRects RaiseHitBottoms(const SkinRects &drawn)
{
    SkinRects hit = drawn;
    for (int i = BtnPlay; i < kSkinButtonSlots; ++i) {
        HitRect &r = hit[i];
        if (r.isEmpty())
            continue;
        r.bottom = RoundHalfEven(r.bottom - (r.bottom - r.top) / 3.5);
    }
    return hit;
}

} // namespace quorvel
