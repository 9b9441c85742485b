// The skinned window as a user drives it: clicks on the painted buttons,
// drags on the seek bar, the volume knob and the right edge, the list over
// the video and stored sizes, with pictures of the window for a reviewer.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

namespace {

class SkinTest : public E2eTest {
protected:
    // Long enough that it does not end while the test works the window.
    QString clip()
    {
        return copyOf(makeClip(QStringLiteral("e2e-skin.mp4"), 30, QStringLiteral("480x270")),
                      QStringLiteral("skin clip.mp4"));
    }
    static QString control(int action)
    {
        return QString::fromLatin1(trace::kMediaControl) + u' ' + QString::number(action);
    }
    // A picture of the window once the video has moved on by a tick or two.
    QImage shootPlaying(QuorvelProcess &q, const QString &name)
    {
        const QString tick = QString::fromLatin1(trace::kTick);
        EXPECT_TRUE(q.waitForCount(tick, q.count(tick) + 2));
        return shoot(name, windowSize());
    }
};

} // namespace

// At 388 x 515: Play (160, 428, 69, 83), Pause (229, 458, 35, 44), Stop (124,
// 458, 36, 47), seek bar (56, 406, 276, 14), volume track (308, 488, 61, 12).
TEST_F(SkinTest, ButtonsSeekBarVolumeKnobAndRightEdge)
{
    auto q = launchInstance({clip()});
    ASSERT_TRUE(q->waitForLog(traced(trace::kTick, u"3 time=\\d+ length=30"_qs)).hasMatch());
    EXPECT_EQ(windowSize(), QSize(388, 515));
    clickAt(246, 470); // Pause
    ASSERT_TRUE(q->waitForLog(control(2)).hasMatch()) << q->log().toStdString();
    clickAt(194, 500); // the lower 2/7 of Play: nothing
    clickAt(142, 470); // Stop
    ASSERT_TRUE(q->waitForLog(control(1)).hasMatch());
    EXPECT_EQ(q->count(control(0)), 1) << "only the start so far";
    clickAt(194, 450); // Play starts the stopped item again
    ASSERT_TRUE(q->waitForCount(control(0), 2));

    drag(70, 413, 250, 413); // to about 70 %
    ASSERT_TRUE(q->waitForLog(traced(trace::kSeek, u" 0\\.[6-7]"_qs)).hasMatch()) << q->log().toStdString();
    EXPECT_TRUE(q->waitForLog(traced(trace::kTick, u"3 time=(19|2\\d)\\d{3} "_qs)).hasMatch());
    drag(308 + 56, 494, 308 + 20, 494); // the knob from its right end to x = 20 in the track
    EXPECT_TRUE(q->waitForLog(traced(trace::kVolume, u" 33"_qs)).hasMatch()) << q->log().toStdString();

    // The right edge: wider, then never below 370.
    drag(386, 200, 486, 200);
    ASSERT_TRUE(waitForSize([](QSize s) { return s.width() > 388; }));
    EXPECT_LE(windowSize().width(), 488);
    drag(windowSize().width() - 2, 200, 100, 200);
    EXPECT_TRUE(waitForSize([](QSize s) { return s == QSize(370, 515); })) << windowSize().width();
}

// Over the video (playlist position 4) the list is seen and takes clicks,
// although the engine draws into a window of its own under it.
TEST_F(SkinTest, ListOverTheVideoShowsAndTakesClicks)
{
    setConfigLine(45, " 4 ");
    auto q = launchInstance({clip()});
    ASSERT_TRUE(q->waitForLog(traced(trace::kTick, u"3 time=[1-9]"_qs)).hasMatch()) << q->log().toStdString();
    const QImage shot = shootPlaying(*q, QStringLiteral("skin-playing-388x515-playlist4.png"));
    // Below the only row the list's own dark background shows, not the video;
    // the menu strip right of the captions keeps the skin's dark picture.
    const QColor below = shot.pixelColor(190, 300);
    EXPECT_LT(qAbs(below.red() - 0x1b) + qAbs(below.green() - 0x20) + qAbs(below.blue() - 0x27), 24)
        << below.name().toStdString();
    EXPECT_LT(shot.pixelColor(330, 43).lightness(), 60);
    const QString chosen = QString::fromLatin1(trace::kRowChosen);
    clickAt(100, 56 + 40); // row 0
    EXPECT_TRUE(q->waitForLog(chosen + u" 0"_qs).hasMatch()) << q->log().toStdString();
    clickAt(100, 56 + 200); // below the last row
    EXPECT_TRUE(q->waitForLog(chosen + u" -1"_qs).hasMatch()) << q->log().toStdString();
    // Hidden and shown again by the PlayList button, it is still on top.
    clickAt(20, 490);
    clickAt(20, 490);
    clickAt(100, 56 + 40);
    EXPECT_TRUE(q->waitForCount(chosen + u" 0"_qs, 2)) << q->log().toStdString();
    clickAt(20, 408); // the SnapShoot button: the media information of the row
    ASSERT_TRUE(q->waitForLog(traced(trace::kMediaInfoShown)).hasMatch());
    shootPlaying(*q, QStringLiteral("media-information.png"));
}

// A stored size no screen can hold (2000000000 twips) and a position on a
// monitor no longer attached: the window comes up on the screen, and the size
// saved at exit is one the screen can hold. A size it can hold is kept, and
// Maximize goes there and back.
TEST_F(SkinTest, StoredGeometryIsKeptOnTheScreenAndMaximizeGoesBack)
{
    setConfigLine(8, "-1 "); // remember the position
    setConfigLine(9, "-1 "); // remember the size
    for (int line : {41, 42})
        setConfigLine(line, " 90000 "); // 6000 pixels right and down
    for (int line : {43, 44})
        setConfigLine(line, " 2000000000 ");
    auto q = launchInstance({});
    EXPECT_TRUE(waitForSize([](QSize s) { return s == QSize(1280, 1024); })) << windowSize().width();
    ASSERT_TRUE(q->close());
    const QList<QByteArray> lines = configLines();
    ASSERT_GE(lines.size(), 46);
    EXPECT_EQ(lines[41].toInt(), 0);
    EXPECT_EQ(std::pair(lines[43].toInt(), lines[44].toInt()), std::pair(1280 * 15, 1024 * 15));

    setConfigLine(43, " 12000 "); // 800 x 600 pixels
    setConfigLine(44, " 9000 ");
    q = launchInstance({clip()});
    ASSERT_TRUE(q->waitForLog(traced(trace::kTick, u"3 time=[1-9]"_qs)).hasMatch());
    EXPECT_TRUE(waitForSize([](QSize s) { return s == QSize(800, 600); })) << windowSize().width();
    shootPlaying(*q, QStringLiteral("skin-playing-800x600.png"));
    clickAt(800 - 53 + 11, 12); // Maximize
    EXPECT_TRUE(waitForSize([](QSize s) { return s.width() == 1280; }));
    shootPlaying(*q, QStringLiteral("skin-playing-maximised.png"));
    clickAt(1280 - 53 + 11, 12); // and back
    EXPECT_TRUE(waitForSize([](QSize s) { return s == QSize(800, 600); }));
}
