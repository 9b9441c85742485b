// The probe on media made at test time, both ways of reading a file (the
// ffmpeg tool and ffmpeg's libraries in the process): each agrees with what
// ffprobe says of the file, and the two give the same report, refusals and
// frame.
#include "media/ffmpegprobe.h"
#include "media/ffmpegreport.h"
#include "media/libavreader.h"
#include "media/thumbnail.h"
#include "support/files.h"
#include "support/mediagen.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QtConcurrent/QtConcurrentMap>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace quorvel;

namespace {

QStringList words(const QString &line)
{
    return line.split(u' ');
}

const QStringList kA = words(u"-f lavfi -i sine=frequency=330:sample_rate=44100:duration=2"_qs);
const QStringList kAV = words(u"-f lavfi -i testsrc2=size=176x144:rate=25:duration=2"_qs) + kA + words(u"-shortest"_qs);

const QList<std::pair<QString, QStringList>> kSamples{
    {u"probe-h264-aac.mp4"_qs, kAV + words(u"-c:v libx264 -pix_fmt yuv420p"_qs)},
    {u"probe-mpeg4-mp3.avi"_qs, kAV + words(u"-c:v mpeg4 -c:a libmp3lame"_qs)},
    {u"probe-mpeg4-ac3.avi"_qs, kAV + words(u"-c:v mpeg4 -c:a ac3 -ac 6"_qs)},
    {u"probe-mpeg2-mp2.mpg"_qs, kAV + words(u"-c:v mpeg2video -c:a mp2"_qs)},
    {u"probe-pcm.wav"_qs, kA},
    // Cover art, which ffmpeg shows as a video stream.
    {u"probe-cover.mp3"_qs, words(u"-f lavfi -i testsrc2=size=120x90:rate=1:duration=1"_qs) + kA
                                + words(u"-map 1:a -map 0:v -frames:v 1 -c:v png -disposition:v attached_pic"_qs)},
};

QString sample(int i)
{
    return test::makeMedia(kSamples[i].first, kSamples[i].second);
}

// The streams as ffprobe sees them, in the probe's words.
QStringList ffprobeStreams(const QString &path, double *duration)
{
    QString out;
    test::runTool(u"ffprobe"_qs, words(u"-v error -of json -show_streams -show_format"_qs) << path, &out);
    const QJsonObject truth = QJsonDocument::fromJson(out.toUtf8()).object();
    *duration = truth[u"format"_qs][u"duration"_qs].toString().toDouble();
    QStringList streams;
    for (const QJsonValue &v : truth[u"streams"_qs].toArray()) {
        const QJsonObject st = v.toObject();
        const QStringList rate = st[u"avg_frame_rate"_qs].toString().split(u'/');
        if (st[u"disposition"_qs][u"attached_pic"_qs].toInt() == 1)
            continue; // cover art, not a video
        streams << (st[u"codec_type"_qs] == u"video"_qs
                        ? u"%1x%2 %3"_qs.arg(st[u"width"_qs].toInt())
                              .arg(st[u"height"_qs].toInt())
                              .arg(rate.value(0).toDouble() / rate.value(1).toDouble(), 0, 'f', 1)
                        : u"%1 Hz %2 ch"_qs.arg(st[u"sample_rate"_qs].toString()).arg(st[u"channels"_qs].toInt()));
    }
    return streams;
}

MediaTables programTables()
{
    return LoadMediaTables(test::programDir() + u'/');
}

// Mean difference per channel of two pictures of one size, 0..255.
double meanDifference(const QImage &a, const QImage &b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGB32), y = b.convertToFormat(QImage::Format_RGB32);
    double sum = 0;
    for (int r = 0; r < x.height(); ++r) {
        for (int c = 0; c < x.width(); ++c) {
            const QRgb p = x.pixel(c, r), q = y.pixel(c, r);
            sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
        }
    }
    return sum / (3.0 * x.width() * x.height());
}

const ProbeEngine kEngines[] = {ProbeEngine::Tools, ProbeEngine::Libraries};

} // namespace

TEST(Probe, BothWaysAgreeWithFfprobeAndWithEachOther)
{
    const MediaTables tables = programTables();
    ASSERT_FALSE(tables.defaultAudioThumb.isNull()) << "Audio.JPG beside the program";
    for (int i = 0; i < kSamples.size(); ++i) {
        const QString &name = kSamples[i].first, path = sample(i);
        SCOPED_TRACE(name.toStdString());
        double duration = 0;
        const QStringList want = ffprobeStreams(path, &duration);
        QList<ProbeResult> results;
        for (const ProbeEngine engine : kEngines) {
            FfmpegProbe probe(tables, engine);
            clsSource src;
            ProbeResult result;
            ASSERT_TRUE(probe.GetVideoInformation(path, src, result)) << result.error.toStdString();
            EXPECT_NEAR(src.Duration, duration, 0.11);
            QStringList got;
            for (const StreamEntry &e : src.Streams)
                got << (e.isVideo() ? u"%1x%2 %3"_qs.arg(e.Width).arg(e.Height).arg(e.FPS, 0, 'f', 1)
                                    : u"%1 Hz %2 ch"_qs.arg(e.SampleRate).arg(e.Channels));
            EXPECT_EQ(got, want);
            EXPECT_EQ(src.IsAVI, name.endsWith(u"ac3.avi"_qs)); // a constant byte rate lets the delays be read
            results << probe.probe(path);
            EXPECT_TRUE(results.last().ok && results.last().notices.isEmpty()) << results.last().error.toStdString();
            EXPECT_TRUE(results.last().mediaInfo.startsWith(u"Stream information of "_qs + path));
            // A video's own frame; a sound's cover art, or else the default picture.
            const QSize size = name.contains(u"cover"_qs)     ? FfmpegProbe::ThumbnailSize(120, 90)
                               : want.value(0).contains(u'x') ? FfmpegProbe::ThumbnailSize(176, 144)
                                                              : QSize();
            EXPECT_TRUE(size.isValid() ? results.last().thumb.size() == size
                                       : results.last().thumb == tables.defaultAudioThumb);
        }
        EXPECT_EQ(results[1].mediaInfo, results[0].mediaInfo);
        // The tool's frame went through JPEG; a frame from another moment of
        // the moving test picture differs far more.
        EXPECT_LT(meanDifference(results[1].thumb, results[0].thumb), 12.0);
    }
    EXPECT_GT(meanDifference(LibavFrame(sample(0), 90, 72, 0.4f, 10000), LibavFrame(sample(0), 90, 72, 1.6f, 10000)),
              12.0);
}

TEST(Probe, MpegFilesGetMpgtxDetailsOrKeepFfmpegsFigures)
{
    const QString path = test::makeMedia(u"probe-mpeg2-4x3.mpg"_qs,
                                         words(u"-f lavfi -i testsrc2=size=320x240:rate=25:duration=2"_qs) + kA
                                             + words(u"-c:v mpeg2video -aspect 4:3 -c:a mp2 -shortest"_qs));
    for (const ProbeEngine engine : kEngines) {
        clsSource src;
        ProbeResult result;
        ASSERT_TRUE(FfmpegProbe(programTables(), engine).GetVideoInformation(path, src, result));
        ASSERT_TRUE(src.Streams.value(0).isVideo());
        EXPECT_FLOAT_EQ(src.Streams[0].DisplayAR, 4.0f / 3.0f); // from mpgtx ("Aspect ratio 4/3")
        EXPECT_GT(src.Streams[0].BitRate, 0);
    }
    // mpgtx only adds details: without it an MPEG file keeps ffmpeg's figures.
    const QString mpg = sample(3); // made before the tools are out of reach
    QTemporaryDir noTools;
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(noTools.path()));
    clsSource src;
    ProbeResult result;
    const bool ok = FfmpegProbe(programTables(), ProbeEngine::Libraries).GetVideoInformation(mpg, src, result);
    qputenv("PATH", oldPath);
    ASSERT_TRUE(ok) << result.error.toStdString();
    EXPECT_EQ(std::pair(src.Streams.value(0).Width, src.Streams.value(0).FPS), std::pair(176, 25.0f));
}

TEST(Probe, RefusesWhatIsNotMediaWithAReason)
{
    QTemporaryDir dir;
    const auto write = [&dir](const QString &name, const QByteArray &bytes) {
        return test::writeFile(dir.filePath(name), bytes) ? dir.filePath(name) : QString();
    };
    const QByteArray whole = test::readFile(sample(0));
    ASSERT_TRUE(QDir(dir.path()).mkpath(u"Inputs/folder.mp4"_qs));
    const QString fifo = dir.filePath(u"Inputs/clip.mp3"_qs);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const std::pair<QString, QString> cases[] = {
        {write(u"empty.mkv"_qs, {}), kUnsupportedFormat},
        {write(u"-notes, \"v\" é.mp4"_qs, "These are my notes, not a film.\n"), kUnsupportedFormat},
        {write(u"cut.mp4"_qs, whole.left(whole.size() / 3)), QString()},
        // The word "Input" in the path must not let junk through.
        {write(u"Inputs/notes.mp4"_qs, "Input #0, mp4, from 'x':\n"), kUnsupportedFormat},
        {dir.filePath(u"missing.mp4"_qs), kFileNotFound},
        // A pipe would block the reader for ever; a folder is no file.
        {fifo, kNotAFile},
        {dir.filePath(u"Inputs/folder.mp4"_qs), kNotAFile},
    };
    for (const auto &[path, reason] : cases) {
        const ProbeResult tools = FfmpegProbe(programTables(), ProbeEngine::Tools).probe(path);
        const ProbeResult libs = FfmpegProbe(programTables(), ProbeEngine::Libraries).probe(path);
        EXPECT_FALSE(tools.ok || tools.error.isEmpty()) << path.toStdString();
        EXPECT_EQ(tools.error, reason.isEmpty() ? tools.error : reason) << path.toStdString();
        EXPECT_EQ(std::pair(libs.ok, libs.error), std::pair(tools.ok, tools.error)) << path.toStdString();
    }
    EXPECT_TRUE(LibavFrame(cases[1].first, 90, 68, 1, 10000).isNull());

    // A file the libraries cannot finish in time has its own reason; the next is probed as usual.
    FfmpegProbe probe(programTables(), ProbeEngine::Libraries);
    probe.setDeadline(0);
    EXPECT_EQ(probe.probe(sample(0)).error, ProbeTimeoutText(0));
    probe.setDeadline(10000);
    EXPECT_TRUE(probe.probe(sample(0)).ok);
}

// Names the tool or the library could misread still name files, and
// probes on many threads at once keep their own reports (the libraries' log
// capture is per thread).
TEST(Probe, OddPathsAndParallelProbesKeepTheirOwnReports)
{
    QTemporaryDir dir;
    QStringList paths;
    for (const QString &name : {u"-dash first.mp4"_qs, u"file:x ünï.mp4"_qs}) {
        paths << dir.filePath(name);
        ASSERT_TRUE(QFile::copy(sample(0), paths.last()));
    }
    for (int i = 1; i < 4; ++i)
        paths << sample(i);
    for (const ProbeEngine engine : kEngines) {
        QStringList many;
        for (int round = engine == ProbeEngine::Tools ? 3 : 0; round < 4; ++round)
            many << paths;
        FfmpegProbe probe(programTables(), engine);
        QStringList alone;
        for (const QString &p : paths)
            alone << probe.probe(p).mediaInfo;
        const QList<ProbeResult> results = QtConcurrent::blockingMapped(
            many, [&probe](const QString &p) { return probe.probe(p); });
        for (int i = 0; i < many.size(); ++i) {
            EXPECT_TRUE(results[i].ok && !results[i].thumb.isNull()) << many[i].toStdString();
            EXPECT_EQ(results[i].mediaInfo, alone[i % paths.size()]) << many[i].toStdString();
        }
        const QString before = QDir::currentPath(); // a name relative to the current folder
        QDir::setCurrent(dir.path());
        EXPECT_TRUE(probe.probe(u"file:x ünï.mp4"_qs).ok);
        QDir::setCurrent(before);
    }
}

TEST(Probe, NoFrameNoPictureAndNeverAStaleOne)
{
    QTemporaryDir dir;
    const QString work = dir.filePath(u"img.jpg"_qs);
    QImage(8, 8, QImage::Format_RGB32).save(work, "JPG");
    EXPECT_TRUE(ExtractThumbnail(dir.filePath(u"missing.mp4"_qs), 90, 68, 1, work).isNull());
    EXPECT_FALSE(QFile::exists(work));
}
