// Paints the whole skin offscreen with the committed pictures and checks
// what a user would notice: buttons that are not drawn, states that look
// alike, missing pictures, a volume number over the window's edge.
#include "skintestdata.h"

#include "skin/skinbuttons.h"
#include "skin/skinpainter.h"

#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

const SkinImages &Skin()
{
    return test::CommittedSkin();
}

struct Painted {
    QImage image;
    SkinRects rects;
};

Painted PaintSkin(const SkinPaintState &state)
{
    QImage img(state.size, QImage::Format_RGB32);
    img.fill(Qt::magenta);
    QPainter p(&img);
    SkinPainter painter(Skin());
    const SkinRects rects = painter.paint(p, state);
    p.end();
    return {img, rects};
}

SkinPaintState StateAt(QSize size, int buttonState)
{
    SkinPaintState s;
    s.size = size;
    s.buttonStates.fill(buttonState);
    s.fillWidth = (size.width() - 112) * 2 / 5;
    s.knobLeft = 30;
    s.captionText = QStringLiteral("Quorvel - (clip.avi)");
    s.timeText = QStringLiteral("00:01:23 / 00:03:45");
    s.rateText = QStringLiteral("1.0x");
    s.volumeText = QStringLiteral("100"); // the widest the number gets
    s.menuCaptions = {QStringLiteral("File"), QStringLiteral("Play"), QStringLiteral("Playlist"),
                      QStringLiteral("Tools"), QStringLiteral("Help")};
    return s;
}

// Spread of luminance inside a rectangle: a blank area has none.
int Spread(const QImage &img, const QRect &r)
{
    int lo = 255, hi = 0;
    for (int y = r.top(); y <= r.bottom(); ++y)
        for (int x = r.left(); x <= r.right(); ++x) {
            const int g = qGray(img.pixel(x, y));
            lo = std::min(lo, g);
            hi = std::max(hi, g);
        }
    return hi - lo;
}

const int kDrawnButtons[] = {BtnClose,    BtnMaxmize, BtnMinimize, BtnPlay, BtnPause,     BtnStop,
                             BtnPrevious, BtnRewind,  BtnNext,     BtnFF,   BtnSnapShoot, BtnFullScreen,
                             BtnPlayList, BtnDvd,     BtnOpen,     BtnSound};

} // namespace

// At both sizes and in every state: nothing left unpainted, no button blank,
// the four states of a button tell apart, and mute swaps the sound picture.
TEST(SkinPainter, PaintsEveryButtonInEveryStateAtBothSizes)
{
    ASSERT_TRUE(Skin().isComplete()) << "loaded " << Skin().loadedCount();
    ASSERT_FALSE(Skin().progressBack().isNull());
    for (QSize size : {QSize(388, 515), QSize(1920, 1080)}) {
        const SkinLayout layout = SkinLayout::Compute(size);
        std::array<QImage, kSkinStateCount> shots;
        for (int st = 0; st < kSkinStateCount; ++st) {
            SCOPED_TRACE(testing::Message() << size.width() << "x" << size.height() << " state " << st);
            const Painted painted = PaintSkin(StateAt(size, st));
            shots[st] = painted.image;
            for (int y = 0; y < size.height(); y += 3)
                for (int x = 0; x < size.width(); x += 3)
                    ASSERT_NE(painted.image.pixel(x, y), QColor(Qt::magenta).rgb()) << x << "," << y;
            for (int i : kDrawnButtons) {
                EXPECT_FALSE(painted.rects[i].isEmpty()) << "button " << i;
                EXPECT_GT(Spread(painted.image, layout.buttons[i].toQRect()), 40) << "button " << i << " looks blank";
            }
            // the volume number ("100" at its widest) keeps clear of the window's edge
            SkinPaintState silent = StateAt(size, st);
            silent.volumeText.clear();
            const QImage without = PaintSkin(silent).image;
            for (int x = size.width() - 4; x < size.width(); ++x)
                for (int y = size.height() - 60; y < size.height(); ++y)
                    ASSERT_EQ(painted.image.pixel(x, y), without.pixel(x, y)) << "edge " << x << "," << y;
        }
        SkinPaintState muted = StateAt(size, StateNormal);
        muted.isMuted = true;
        const QImage mutedShot = PaintSkin(muted).image;
        ASSERT_TRUE(mutedShot.save(test::SkinOutputFolder() + u"skin-%1-muted.png"_qs.arg(size.width())));
        for (int i : kDrawnButtons) {
            const QRect r = layout.buttons[i].toQRect();
            for (int a = 0; a < kSkinStateCount; ++a)
                for (int b = a + 1; b < kSkinStateCount; ++b)
                    EXPECT_NE(shots[a].copy(r), shots[b].copy(r)) << "button " << i << " states " << a << "/" << b;
            EXPECT_EQ(mutedShot.copy(r) != shots[StateNormal].copy(r), i == BtnSound) << "button " << i;
        }
    }
}
