// The preview over the seek bar with the real program: it shows while the
// pointer rests on the bar of a playing video, never shows a frame for a
// place the pointer has left, and goes when the pointer leaves or presses.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

namespace {

class SeekPreviewTest : public E2eTest {
protected:
    void pointTo(int x, int y)
    {
        xdo({u"mousemove"_qs, u"--window"_qs, u"W"_qs, u"--sync"_qs, QString::number(x), QString::number(y)});
    }
};

} // namespace

TEST_F(SeekPreviewTest, TheBoxFollowsThePointerWithNoFrameForAPlaceLeft)
{
    // Full HD with every frame a key frame: each place on the bar needs a
    // decode of its own, slow enough for the pointer to move on meanwhile.
    const QString film = copyOf(makeMedia(u"e2e-preview-intra.mp4"_qs,
                                          u"-f lavfi -i testsrc2=size=1920x1080:rate=5:duration=30 -c:v libx264 "
                                          u"-preset veryfast -g 1 -pix_fmt yuv420p"_qs),
                                u"film.mp4"_qs);
    auto q = launchInstance({film});
    ASSERT_TRUE(q->waitForLog(traced(trace::kTick, u"3 time=[1-9]"_qs)).hasMatch()) << q->log().toStdString();
    // The seek bar of the 388 x 515 window: x 56 to 332 at y 406 to 420.
    pointTo(150, 413);
    ASSERT_TRUE(q->waitForLog(traced(trace::kPreviewShown, u" \\d+ frame=\\d+"_qs)).hasMatch())
        << q->log().toStdString();
    shoot(u"seek-preview.png"_qs, QSize(388, 515));

    // Along the bar in one quick sweep, then rest near its end.
    QStringList sweep;
    for (int x = 70; x <= 320; x += 10)
        sweep << u"mousemove"_qs << u"--window"_qs << u"W"_qs << QString::number(x) << u"413"_qs << u"sleep"_qs
              << u"0.005"_qs;
    xdo(sweep);
    const qint64 length
        = q->waitForLog(traced(trace::kTick, u"3 time=\\d+ length=([1-9]\\d*)"_qs)).captured(1).toLongLong();
    const qint64 rest = qRound64((320 - 56) / 276.0 * double(length));
    ASSERT_TRUE(q->waitForLog(traced(trace::kPreviewShown, u" %1 frame=\\d+ for=%1\\n"_qs.arg(rest))).hasMatch())
        << q->log().toStdString();
    EXPECT_GE(q->count(QString::fromLatin1(trace::kPreviewHover)), 3);
    // Every frame shown was asked for where the pointer was at that moment.
    qint64 pointer = -1;
    int shown = 0;
    for (auto it
         = QRegularExpression(u"preview (hover|shown) (\\d+)(?: frame=\\S+ for=(\\d+))?"_qs).globalMatch(q->log());
         it.hasNext();) {
        const auto m = it.next();
        if (m.captured(1) == u"hover") {
            pointer = m.captured(2).toLongLong();
            continue;
        }
        ++shown;
        EXPECT_EQ(m.captured(2).toLongLong(), pointer) << m.captured(0).toStdString();
        EXPECT_EQ(m.captured(3).toLongLong(), pointer) << m.captured(0).toStdString();
    }

    // Off the bar it goes; a press on the bar hides it and seeks.
    pointTo(200, 300);
    ASSERT_TRUE(q->waitForCount(QString::fromLatin1(trace::kPreviewHidden), 1));
    pointTo(200, 413);
    ASSERT_TRUE(q->waitForCount(QString::fromLatin1(trace::kPreviewShown), shown + 1));
    xdo({u"click"_qs, u"1"_qs});
    ASSERT_TRUE(q->waitForCount(QString::fromLatin1(trace::kPreviewHidden), 2));
    EXPECT_TRUE(q->waitForLog(traced(trace::kSeek)).hasMatch());
}
