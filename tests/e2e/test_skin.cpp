// The skinned window as a user drives it: clicks on the painted buttons,
// drags on the seek bar, the volume knob and the right edge, and pictures of
// the window at several sizes and playlist places for a reviewer.
#include "e2efixture.h"

#include <QImage>
#include <QRegularExpression>

using namespace quorvel::test;

namespace {

class SkinTest : public E2eTest {
protected:
    QString windowId()
    {
        QProcess p;
        p.setProcessEnvironment(x().environment());
        p.start(QStringLiteral("xdotool"),
                {QStringLiteral("search"), QStringLiteral("--name"), QStringLiteral("^Quorvel")});
        p.waitForFinished(10000);
        return QString::fromLatin1(p.readAll()).split(u'\n').value(0).trimmed();
    }
    // Runs xdotool with the window id put in for "W".
    void xdo(QStringList args)
    {
        const QString wid = windowId();
        for (QString &a : args) {
            if (a == u"W")
                a = wid;
        }
        QProcess p;
        p.setProcessEnvironment(x().environment());
        p.start(QStringLiteral("xdotool"), args);
        p.waitForFinished(10000);
        QThread::msleep(300);
    }
    void clickAt(int px, int py)
    {
        // A user's pointer arrives before the click does.
        xdo({QStringLiteral("mousemove"), QStringLiteral("--window"), QStringLiteral("W"), QString::number(px),
             QString::number(py)});
        xdo({QStringLiteral("click"), QStringLiteral("1")});
    }
    void drag(int x1, int y1, int x2, int y2)
    {
        xdo({QStringLiteral("mousemove"), QStringLiteral("--window"), QStringLiteral("W"), QString::number(x1),
             QString::number(y1)});
        xdo({QStringLiteral("mousedown"), QStringLiteral("1")});
        const int steps = 6;
        for (int i = 1; i <= steps; ++i) {
            xdo({QStringLiteral("mousemove"), QStringLiteral("--window"), QStringLiteral("W"),
                 QString::number(x1 + (x2 - x1) * i / steps), QString::number(y1 + (y2 - y1) * i / steps)});
        }
        xdo({QStringLiteral("mouseup"), QStringLiteral("1")});
    }
    QSize windowSize()
    {
        QProcess p;
        p.setProcessEnvironment(x().environment());
        p.start(QStringLiteral("xdotool"), {QStringLiteral("getwindowgeometry"), windowId()});
        p.waitForFinished(10000);
        const auto m
            = QRegularExpression(QStringLiteral("Geometry: (\\d+)x(\\d+)")).match(QString::fromLatin1(p.readAll()));
        return m.hasMatch() ? QSize(m.captured(1).toInt(), m.captured(2).toInt()) : QSize();
    }
    // The size once the window has taken every request still on its way.
    QSize settledSize()
    {
        QSize last = windowSize();
        for (int i = 0; i < 40; ++i) {
            QThread::msleep(250);
            const QSize now = windowSize();
            if (now == last)
                return now;
            last = now;
        }
        return last;
    }
    int countOf(QuorvelProcess &q, const QString &text) { return static_cast<int>(q.log().count(text)); }
    // Long enough that it does not end while the test works the window.
    QString clip()
    {
        return copyOf(makeClip(QStringLiteral("e2e-skin.mp4"), 30, QStringLiteral("480x270")),
                      QStringLiteral("skin clip.mp4"));
    }
    void shoot(const QString &name)
    {
        QThread::msleep(400);
        const QString full = outputDir() + QStringLiteral("/screen.png");
        ASSERT_TRUE(x().screenshot(full));
        // Keep the window's part of the screen.
        const QSize s = windowSize();
        QImage(full).copy(0, 0, qMax(s.width(), 1), qMax(s.height(), 1)).save(outputDir() + u'/' + name);
    }
};

} // namespace

// At 388 x 515: Play (160, 428, 69, 83), Pause (229, 458, 35, 44), Stop (124, 458, 36, 47).
TEST_F(SkinTest, ButtonsPlayPauseAndStop)
{
    auto q = launchInstance({clip()});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3")).hasMatch());
    EXPECT_EQ(windowSize(), QSize(388, 515));

    clickAt(246, 470); // Pause
    ASSERT_TRUE(q->waitForLog(QStringLiteral("media control 2")).hasMatch()) << q->log().toStdString();
    clickAt(194, 500); // the lower 2/7 of Play: nothing
    QThread::msleep(700);
    EXPECT_EQ(countOf(*q, QStringLiteral("media control 0")), 1) << "only the start so far";
    clickAt(194, 450); // Play resumes
    ASSERT_TRUE(waitForCount(*q, QStringLiteral("media control 0"), 2));
    clickAt(142, 470); // Stop
    ASSERT_TRUE(q->waitForLog(QStringLiteral("media control 1")).hasMatch());
    const int ticksBefore = countOf(*q, QStringLiteral("tick state=3"));
    clickAt(194, 450); // Play starts the stopped item again
    ASSERT_TRUE(waitForCount(*q, QStringLiteral("media control 0"), 3));
    EXPECT_TRUE(waitForCount(*q, QStringLiteral("tick state=3"), ticksBefore + 2));
}

TEST_F(SkinTest, SeekBarVolumeKnobAndRightEdge)
{
    auto q = launchInstance({clip()});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=\\d+ length=30")).hasMatch());
    // Seek bar: (56, 406, 276, 14). Drag to about 70 %.
    drag(70, 413, 250, 413);
    ASSERT_TRUE(q->waitForLog(QStringLiteral("seek 0\\.[6-7]")).hasMatch()) << q->log().toStdString();
    EXPECT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=(19|2\\d)\\d{3} ")).hasMatch())
        << q->log().toStdString();

    // Volume track (308, 488, 61, 12): drag the knob from its right end to x = 20 in the track.
    drag(308 + 56, 494, 308 + 20, 494);
    EXPECT_TRUE(q->waitForLog(QStringLiteral("volume 33")).hasMatch()) << q->log().toStdString();

    // The right edge: wider, then never below 370.
    drag(386, 200, 486, 200);
    const int wider = settledSize().width();
    EXPECT_GT(wider, 388);
    EXPECT_LE(wider, 488);
    drag(wider - 2, 200, 100, 200);
    EXPECT_EQ(settledSize(), QSize(370, 515));
}

// Over the video (playlist position 4) the list is seen and takes clicks,
// although the engine draws into a window of its own under it.
TEST_F(SkinTest, ListOverTheVideoShowsAndTakesClicks)
{
    setConfigLine(45, " 4 ");
    auto q = launchInstance({clip()});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]")).hasMatch()) << q->log().toStdString();
    shoot(QStringLiteral("skin-playing-388x515-playlist4-check.png"));
    // Below the only row the list's own dark background shows, not the video.
    const QColor below
        = QImage(outputDir() + QStringLiteral("/skin-playing-388x515-playlist4-check.png")).pixelColor(190, 300);
    EXPECT_LT(qAbs(below.red() - 0x1b) + qAbs(below.green() - 0x20) + qAbs(below.blue() - 0x27), 24)
        << below.name().toStdString();
    // The menu strip right of the captions keeps the skin's dark picture.
    EXPECT_LT(QImage(outputDir() + QStringLiteral("/skin-playing-388x515-playlist4-check.png"))
                  .pixelColor(330, 43)
                  .lightness(),
              60);
    clickAt(100, 56 + 40); // row 0
    EXPECT_TRUE(q->waitForLog(QStringLiteral("playlist row chosen 0")).hasMatch()) << q->log().toStdString();
    clickAt(100, 56 + 200); // below the last row
    EXPECT_TRUE(q->waitForLog(QStringLiteral("playlist row chosen -1")).hasMatch()) << q->log().toStdString();

    // Hidden and shown again by the PlayList button, it is still on top.
    clickAt(20, 490);
    clickAt(20, 490);
    clickAt(100, 56 + 40);
    EXPECT_TRUE(waitForCount(*q, QStringLiteral("playlist row chosen 0"), 2)) << q->log().toStdString();

    // The media information of the row, for a reviewer.
    clickAt(20, 408); // the SnapShoot button
    ASSERT_TRUE(q->waitForLog(QStringLiteral("media information shown")).hasMatch());
    QThread::msleep(600);
    ASSERT_TRUE(x().screenshot(outputDir() + QStringLiteral("/media-information.png")));
}

// A stored size no screen can hold (2000000000 twips) and a position on a
// monitor no longer attached: the window comes up on the screen, and the
// size saved at exit is one the screen can hold.
TEST_F(SkinTest, StoredGeometryIsKeptOnTheScreen)
{
    setConfigLine(8, "-1 ");      // remember the position
    setConfigLine(9, "-1 ");      // remember the size
    setConfigLine(41, " 90000 "); // 6000 pixels right
    setConfigLine(42, " 90000 ");
    setConfigLine(43, " 2000000000 ");
    setConfigLine(44, " 2000000000 ");
    auto q = launchInstance({});
    EXPECT_EQ(settledSize(), QSize(1280, 1024));
    q->terminate();
    ASSERT_TRUE(q->waitForExit());
    QFile cfg(m_box.configPath());
    ASSERT_TRUE(cfg.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = cfg.readAll().split('\n');
    ASSERT_GE(lines.size(), 46);
    EXPECT_EQ(lines[41].trimmed().toInt(), 0);
    EXPECT_EQ(lines[43].trimmed().toInt(), 1280 * 15);
    EXPECT_EQ(lines[44].trimmed().toInt(), 1024 * 15);
}

TEST_F(SkinTest, PicturesForReview)
{
    {
        auto idle = launchInstance({});
        shoot(QStringLiteral("skin-idle-388x515.png"));
        idle->terminate();
        idle->waitForExit();
    }
    const QString file = clip();
    for (int code = 0; code <= 4; ++code) {
        setConfigLine(45, QByteArray(" ") + QByteArray::number(code) + ' ');
        auto q = launchInstance({file});
        ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]")).hasMatch());
        shoot(QStringLiteral("skin-playing-388x515-playlist%1.png").arg(code));
        q->terminate();
        ASSERT_TRUE(q->waitForExit());
    }
    setConfigLine(45, " 1 ");
    setConfigLine(9, "-1 ");      // remember the size
    setConfigLine(43, " 12000 "); // 800 pixels
    setConfigLine(44, " 9000 ");  // 600 pixels
    auto q = launchInstance({file});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]")).hasMatch());
    EXPECT_EQ(windowSize(), QSize(800, 600));
    shoot(QStringLiteral("skin-playing-800x600.png"));
    clickAt(800 - 53 + 11, 12); // Maximize
    QThread::msleep(500);
    EXPECT_EQ(windowSize().width(), 1280);
    shoot(QStringLiteral("skin-playing-maximised.png"));
    clickAt(1280 - 53 + 11, 12); // and back
    QThread::msleep(500);
    EXPECT_EQ(windowSize(), QSize(800, 600));
}
