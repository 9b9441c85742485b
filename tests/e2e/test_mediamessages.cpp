// What the probe tells a user, seen in the real program: a song with cover
// art enters as sound with its picture, and many refused files at once give
// one message.
#include "e2efixture.h"

#include <QRegularExpression>

using namespace quorvel::test;

namespace {

int countOf(QuorvelProcess &q, const QString &text)
{
    return static_cast<int>(q.log().count(text));
}

// Runs xdotool on the test's X server and returns what it printed.
QString xdo(const XvfbServer &x, const QStringList &args)
{
    QProcess p;
    p.setProcessEnvironment(x.environment());
    p.start(QStringLiteral("xdotool"), args);
    p.waitForFinished(30000);
    return QString::fromLatin1(p.readAllStandardOutput()).trimmed();
}

} // namespace

TEST_F(E2eTest, ASongWithCoverArtIsSoundWithItsPicture)
{
    const QString song = copyOf(
        makeMedia(QStringLiteral("e2e-cover.mp3"),
                  {QStringLiteral("-f"), QStringLiteral("lavfi"), QStringLiteral("-i"),
                   QStringLiteral("sine=frequency=330:duration=20"), QStringLiteral("-f"), QStringLiteral("lavfi"),
                   QStringLiteral("-i"), QStringLiteral("testsrc2=size=200x200:rate=1:duration=1"),
                   QStringLiteral("-map"), QStringLiteral("0:a"), QStringLiteral("-map"), QStringLiteral("1:v"),
                   QStringLiteral("-frames:v"), QStringLiteral("1"), QStringLiteral("-c:v"), QStringLiteral("png"),
                   QStringLiteral("-disposition:v"), QStringLiteral("attached_pic")}),
        QStringLiteral("song with cover.mp3"));
    auto q = launchInstance({song});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("added .*song with cover\\.mp3\" as entry 0")).hasMatch())
        << q->log().toStdString();
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]\\d{2,}")).hasMatch()) << q->log().toStdString();
    // No word about a video codec: there is no video.
    EXPECT_EQ(countOf(*q, QStringLiteral("message shown")), 0) << q->log().toStdString();
    ASSERT_TRUE(x().screenshot(outputDir() + QStringLiteral("/cover-art-in-playlist.png")));
    q->terminate();
    EXPECT_TRUE(q->waitForExit());
}

TEST_F(E2eTest, ManyRefusedFilesGiveOneMessage)
{
    QDir().mkpath(m_box.path(QStringLiteral("junk")));
    QStringList names;
    for (int i = 0; i < 14; ++i) {
        const QString path = m_box.path(QStringLiteral("junk/not a film %1.mp4").arg(i, 2, 10, QChar(u'0')));
        QFile f(path);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write("only words here\n");
        names << u'"' + path + u'"';
    }
    auto q = launchInstance({});
    keys({QStringLiteral("ctrl+o")});
    const QString dialog = xdo(
        x(), {QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--name"), QStringLiteral("^Open")});
    ASSERT_FALSE(dialog.isEmpty());
    xdo(x(), {QStringLiteral("windowfocus"), QStringLiteral("--sync"), dialog.split(u'\n').first()});
    xdo(x(), {QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("2"), names.join(u' ')});
    xdo(x(), {QStringLiteral("key"), QStringLiteral("Return")});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("message shown: 14 files could not be added:")).hasMatch())
        << q->log().toStdString();
    ASSERT_TRUE(waitForCount(*q, QStringLiteral("not a film 13.mp4"), 1));
    EXPECT_EQ(countOf(*q, QStringLiteral("message shown")), 1);
    // The box fits on the screen.
    const QString box = xdo(x(), {QStringLiteral("search"), QStringLiteral("--sync"), QStringLiteral("--name"),
                                  QStringLiteral("^Quorvel$")});
    ASSERT_FALSE(box.isEmpty());
    ASSERT_TRUE(x().screenshot(outputDir() + QStringLiteral("/gathered-refusals.png")));
    q->terminate();
    EXPECT_TRUE(q->waitForExit());
}
