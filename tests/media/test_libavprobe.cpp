// The in-process probe must give what the tool way gives: the same report
// text, the same refusals and a frame from the same moment.
#include "media/ffmpegprobe.h"
#include "media/libavreader.h"
#include "support/mediagen.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtConcurrent/QtConcurrentMap>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

QStringList lavfiArgs(bool video, const QStringList &codecs)
{
    QStringList a;
    if (video)
        a << u"-f"_qs << u"lavfi"_qs << u"-i"_qs << u"testsrc2=size=320x240:rate=25:duration=4"_qs;
    a << u"-f"_qs << u"lavfi"_qs << u"-i"_qs << u"sine=frequency=330:sample_rate=44100:duration=4"_qs;
    return a + codecs + QStringList{u"-shortest"_qs};
}

QStringList clips()
{
    const QList<std::pair<QString, QStringList>> specs{
        {u"libav-h264-aac.mp4"_qs, lavfiArgs(true, {u"-c:v"_qs, u"libx264"_qs, u"-pix_fmt"_qs, u"yuv420p"_qs, u"-c:a"_qs, u"aac"_qs})},
        {u"libav-vp9-opus.mkv"_qs, lavfiArgs(true, {u"-c:v"_qs, u"libvpx-vp9"_qs, u"-deadline"_qs, u"realtime"_qs, u"-cpu-used"_qs, u"8"_qs, u"-c:a"_qs, u"libopus"_qs})},
        {u"libav-mpeg4-ac3.avi"_qs, lavfiArgs(true, {u"-c:v"_qs, u"mpeg4"_qs, u"-c:a"_qs, u"ac3"_qs})},
        {u"libav-mpeg2-mp2.mpg"_qs, lavfiArgs(true, {u"-c:v"_qs, u"mpeg2video"_qs, u"-c:a"_qs, u"mp2"_qs})},
        {u"libav-theora-vorbis.ogg"_qs, lavfiArgs(true, {u"-c:v"_qs, u"libtheora"_qs, u"-c:a"_qs, u"libvorbis"_qs})},
        {u"libav-wmv2-wmav2.wmv"_qs, lavfiArgs(true, {u"-c:v"_qs, u"wmv2"_qs, u"-c:a"_qs, u"wmav2"_qs})},
        {u"libav-audio.mp3"_qs, lavfiArgs(false, {u"-ac"_qs, u"2"_qs})},
    };
    QStringList paths;
    for (const auto &[name, args] : specs)
        paths << test::makeMedia(name, args);
    return paths;
}

// Mean difference per channel of two pictures of one size, 0..255.
double meanDifference(const QImage &a, const QImage &b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGB32);
    const QImage y = b.convertToFormat(QImage::Format_RGB32);
    double sum = 0;
    for (int r = 0; r < x.height(); ++r) {
        for (int c = 0; c < x.width(); ++c) {
            const QRgb p = x.pixel(c, r), q = y.pixel(c, r);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * x.width() * x.height());
}

} // namespace

TEST(LibavProbe, SameReportRefusalsAndFrameAsTheTools)
{
    const MediaTables tables = LoadMediaTables(test::programDir() + u'/');
    FfmpegProbe tools(tables, ProbeEngine::Tools);
    FfmpegProbe libs(tables, ProbeEngine::Libraries);
    for (const QString &path : clips()) {
        SCOPED_TRACE(path.toStdString());
        ASSERT_FALSE(path.isEmpty());
        const ProbeResult t = tools.probe(path);
        const ProbeResult l = libs.probe(path);
        ASSERT_TRUE(t.ok) << t.error.toStdString();
        ASSERT_TRUE(l.ok) << l.error.toStdString();
        EXPECT_EQ(l.mediaInfo, t.mediaInfo);
        EXPECT_EQ(l.notices, t.notices);
        ASSERT_EQ(l.thumb.size(), t.thumb.size());
        // The tool's frame went through JPEG; a frame from another moment of
        // the moving test picture differs far more than that.
        EXPECT_LT(meanDifference(l.thumb, t.thumb), 12.0);
    }

    // A frame from a later moment must not pass as the right one: the check
    // above would catch a decoder that ignores the offset.
    const QString mp4 = clips().first();
    const QImage early = LibavFrame(mp4, 90, 68, 0.4f, 10000);
    const QImage late = LibavFrame(mp4, 90, 68, 3.0f, 10000);
    ASSERT_FALSE(early.isNull());
    ASSERT_FALSE(late.isNull());
    EXPECT_GT(meanDifference(early, late), 12.0);

    // Refusals come out the same: not media, nothing at all, cut short.
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString text = dir.filePath(u"-notes, \"v\" é.mp4"_qs);
    QFile f(text);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("just some words, not a movie\n");
    f.close();
    const QString empty = dir.filePath(u"empty.mkv"_qs);
    QFile(empty).open(QIODevice::WriteOnly);
    const QString cut = dir.filePath(u"cut.mp4"_qs);
    {
        QFile src(mp4), dst(cut);
        ASSERT_TRUE(src.open(QIODevice::ReadOnly) && dst.open(QIODevice::WriteOnly));
        dst.write(src.read(src.size() / 3));
    }
    for (const QString &bad : {text, empty, cut}) {
        SCOPED_TRACE(bad.toStdString());
        const ProbeResult t = tools.probe(bad);
        const ProbeResult l = libs.probe(bad);
        EXPECT_EQ(l.ok, t.ok);
        EXPECT_EQ(l.error, t.error);
        EXPECT_EQ(l.mediaInfo, t.mediaInfo);
    }
    EXPECT_TRUE(LibavFrame(text, 90, 68, 1, 10000).isNull());
}

TEST(LibavProbe, ParallelProbesKeepTheirOwnReports)
{
    const QStringList paths = clips();
    FfmpegProbe libs(MediaTables{}, ProbeEngine::Libraries);
    QStringList alone;
    for (const QString &p : paths)
        alone << libs.probe(p).mediaInfo;
    // Eight rounds of every clip on four threads: the per-thread log capture
    // must never mix lines of two files.
    QStringList many;
    for (int i = 0; i < 8; ++i)
        many << paths;
    const QStringList together = QtConcurrent::blockingMapped<QStringList>(many, [&libs](const QString &p) {
        return libs.probe(p).mediaInfo;
    });
    for (int i = 0; i < many.size(); ++i)
        EXPECT_EQ(together[i], alone[i % paths.size()]) << many[i].toStdString();

    // Names the library could read as a protocol or an option still name files.
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString before = QDir::currentPath();
    for (const QString &name : {u"-dash.mp4"_qs, u"a:b.mp4"_qs, u"file:x, \"q\" ü.mp4"_qs}) {
        const QString odd = dir.filePath(name);
        ASSERT_TRUE(QFile::copy(paths.first(), odd));
        const ProbeResult r = libs.probe(odd);
        EXPECT_TRUE(r.ok) << name.toStdString() << " " << r.error.toStdString();
        EXPECT_FALSE(r.thumb.isNull()) << name.toStdString();
        QDir::setCurrent(dir.path()); // and relative to the current folder
        EXPECT_TRUE(libs.probe(name).ok) << name.toStdString();
        QDir::setCurrent(before);
    }
}
