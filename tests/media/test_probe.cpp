// The probe with the real ffmpeg and mpgtx on media made at test time,
// checked against what ffprobe says of the same files.
#include "media/ffmpegprobe.h"
#include "media/ffmpegreport.h"
#include "media/thumbnail.h"
#include "support/mediagen.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtConcurrent/QtConcurrentMap>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace quorvel;

namespace {

QStringList lavfi(const QString &video, const QString &audio)
{
    QStringList a;
    if (!video.isEmpty())
        a << u"-f"_qs << u"lavfi"_qs << u"-i"_qs << video;
    if (!audio.isEmpty())
        a << u"-f"_qs << u"lavfi"_qs << u"-i"_qs << audio;
    return a;
}

const QString kVideo = u"testsrc2=size=176x144:rate=25:duration=2"_qs;
const QString kAudio = u"sine=frequency=330:sample_rate=44100:duration=2"_qs;

// Sound with a picture attached as cover art (shown by ffmpeg as a video stream).
QStringList coverArtArgs()
{
    return lavfi(u"testsrc2=size=120x90:rate=1:duration=1"_qs, kAudio)
        + QStringList{u"-map"_qs, u"1:a"_qs, u"-map"_qs, u"0:v"_qs, u"-frames:v"_qs, u"1"_qs, u"-c:v"_qs, u"png"_qs,
                      u"-disposition:v"_qs, u"attached_pic"_qs, u"-ac"_qs, u"2"_qs};
}

struct Sample {
    QString name;
    QStringList args;
    bool video;
};

QList<Sample> samples()
{
    const QString pix = u"-pix_fmt"_qs;
    return {
        {u"probe-h264-aac.mp4"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"libx264"_qs, pix, u"yuv420p"_qs, u"-c:a"_qs, u"aac"_qs, u"-shortest"_qs}, true},
        {u"probe-vp9-opus.mkv"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"libvpx-vp9"_qs, u"-deadline"_qs, u"realtime"_qs, u"-cpu-used"_qs, u"8"_qs, u"-c:a"_qs, u"libopus"_qs, u"-shortest"_qs}, true},
        {u"probe-mpeg4-mp3.avi"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"mpeg4"_qs, u"-c:a"_qs, u"libmp3lame"_qs, u"-shortest"_qs}, true},
        {u"probe-mpeg4-ac3.avi"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"mpeg4"_qs, u"-c:a"_qs, u"ac3"_qs, u"-ac"_qs, u"6"_qs, u"-shortest"_qs}, true},
        {u"probe-mpeg2-mp2.mpg"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"mpeg2video"_qs, u"-c:a"_qs, u"mp2"_qs, u"-shortest"_qs}, true},
        {u"probe-theora-vorbis.ogg"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"libtheora"_qs, u"-c:a"_qs, u"libvorbis"_qs, u"-shortest"_qs}, true},
        {u"probe-flv1.flv"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"flv1"_qs, u"-c:a"_qs, u"libmp3lame"_qs, u"-shortest"_qs}, true},
        {u"probe-mpeg4-aac.mov"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"mpeg4"_qs, u"-c:a"_qs, u"aac"_qs, u"-shortest"_qs}, true},
        {u"probe-wmv2-wmav2.wmv"_qs, lavfi(kVideo, kAudio) + QStringList{u"-c:v"_qs, u"wmv2"_qs, u"-c:a"_qs, u"wmav2"_qs, u"-shortest"_qs}, true},
        {u"probe-pcm.wav"_qs, lavfi(QString(), kAudio), false},
        {u"probe-audio.mp3"_qs, lavfi(QString(), kAudio) + QStringList{u"-ac"_qs, u"2"_qs}, false},
        {u"probe-audio-only.m4a"_qs, lavfi(QString(), kAudio) + QStringList{u"-c:a"_qs, u"aac"_qs}, false},
        {u"probe-five.flac"_qs, lavfi(QString(), kAudio) + QStringList{u"-af"_qs, u"aformat=channel_layouts=5.0"_qs}, false},
        {u"probe-cover.mp3"_qs, coverArtArgs(), false},
    };
}

QJsonObject ffprobe(const QString &path)
{
    QProcess p;
    p.start(u"ffprobe"_qs, {u"-v"_qs, u"error"_qs, u"-of"_qs, u"json"_qs, u"-show_streams"_qs, u"-show_format"_qs, path});
    p.waitForFinished(60000);
    return QJsonDocument::fromJson(p.readAllStandardOutput()).object();
}

double rate(const QString &fraction)
{
    const QStringList p = fraction.split(u'/');
    return p.size() == 2 && p[1].toDouble() > 0 ? p[0].toDouble() / p[1].toDouble() : 0;
}

MediaTables programTables()
{
    return LoadMediaTables(test::programDir() + u'/');
}

} // namespace

void checkAgreesWithFfprobeOnEveryKindOfFile(ProbeEngine engine)
{
    const MediaTables tables = programTables();
    ASSERT_FALSE(tables.defaultAudioThumb.isNull()) << "Audio.JPG beside the program";
    FfmpegProbe probe(tables, engine);
    for (const Sample &s : samples()) {
        SCOPED_TRACE(s.name.toStdString());
        const QString path = test::makeMedia(s.name, s.args);
        ASSERT_FALSE(path.isEmpty());
        clsSource src;
        ProbeResult result;
        ASSERT_TRUE(probe.GetVideoInformation(path, src, result)) << result.error.toStdString();
        EXPECT_TRUE(result.notices.isEmpty()) << result.notices.join(u'|').toStdString();
        const QJsonObject truth = ffprobe(path);
        EXPECT_NEAR(src.Duration, truth[u"format"_qs][u"duration"_qs].toString().toDouble(), 0.11);
        int audio = 0, video = 0;
        for (const QJsonValue &v : truth[u"streams"_qs].toArray()) {
            const QJsonObject st = v.toObject();
            if (st[u"disposition"_qs][u"attached_pic"_qs].toInt() == 1)
                continue; // cover art, not a video
            if (st[u"codec_type"_qs] == u"video"_qs) {
                ASSERT_LT(video, src.StreamCount());
                auto it = std::find_if(src.Streams.begin(), src.Streams.end(), [](const StreamEntry &e) { return e.isVideo(); });
                ASSERT_NE(it, src.Streams.end());
                EXPECT_EQ(it->Width, st[u"width"_qs].toInt());
                EXPECT_EQ(it->Height, st[u"height"_qs].toInt());
                EXPECT_NEAR(it->FPS, rate(st[u"avg_frame_rate"_qs].toString()), 0.05);
                EXPECT_FALSE(it->Image.isNull());
                EXPECT_EQ(it->Image.size(), FfmpegProbe::ThumbnailSize(it->Width, it->Height));
                ++video;
            } else if (st[u"codec_type"_qs] == u"audio"_qs) {
                auto it = std::find_if(src.Streams.begin(), src.Streams.end(), [](const StreamEntry &e) { return e.isAudio(); });
                ASSERT_NE(it, src.Streams.end());
                EXPECT_EQ(it->SampleRate, st[u"sample_rate"_qs].toString().toInt());
                EXPECT_EQ(it->Channels, st[u"channels"_qs].toInt());
                ++audio;
            }
        }
        EXPECT_EQ(video > 0, s.video);
        if (!s.video) {
            ASSERT_EQ(src.StreamCount(), 1);
            if (s.name.contains(u"cover"_qs)) {
                EXPECT_EQ(src.Streams[0].Image.size(), FfmpegProbe::ThumbnailSize(120, 90)); // its own picture
            } else {
                EXPECT_EQ(src.Streams[0].Image, tables.defaultAudioThumb);
            }
        }
        if (!s.name.endsWith(u".avi"_qs))
            EXPECT_FALSE(src.IsAVI);
        else if (s.name.contains(u"ac3"_qs))
            EXPECT_TRUE(src.IsAVI); // a constant byte rate: the delays can be read
        const ProbeResult whole = probe.probe(path);
        EXPECT_TRUE(whole.ok);
        EXPECT_TRUE(whole.mediaInfo.startsWith(u"Stream information of "_qs + path));
        EXPECT_FALSE(whole.thumb.isNull());
    }
}

// Both ways of reading a file, the tools and the libraries, must pass.
TEST(Probe, AgreesWithFfprobeOnEveryKindOfFile)
{
    for (const ProbeEngine engine : {ProbeEngine::Tools, ProbeEngine::Libraries}) {
        SCOPED_TRACE(engine == ProbeEngine::Tools ? "tools" : "libraries");
        checkAgreesWithFfprobeOnEveryKindOfFile(engine);
    }
}

void checkMpegFilesGetMpgtxDetailsAndAnEstimatedBitRate(ProbeEngine engine)
{
    FfmpegProbe probe(programTables(), engine);
    const QString path = test::makeMedia(
        u"probe-mpeg2-4x3.mpg"_qs,
        lavfi(u"testsrc2=size=320x240:rate=25:duration=2"_qs, kAudio)
            + QStringList{u"-c:v"_qs, u"mpeg2video"_qs, u"-aspect"_qs, u"4:3"_qs, u"-c:a"_qs, u"mp2"_qs, u"-shortest"_qs});
    clsSource src;
    ProbeResult result;
    ASSERT_TRUE(probe.GetVideoInformation(path, src, result));
    ASSERT_GE(src.StreamCount(), 1);
    const StreamEntry &v = src.Streams[0];
    ASSERT_TRUE(v.isVideo());
    EXPECT_FLOAT_EQ(v.DisplayAR, 4.0f / 3.0f); // from mpgtx ("Aspect ratio 4/3")
    EXPECT_GT(v.BitRate, 0);
}

// Both ways of reading a file, the tools and the libraries, must pass.
TEST(Probe, MpegFilesGetMpgtxDetailsAndAnEstimatedBitRate)
{
    for (const ProbeEngine engine : {ProbeEngine::Tools, ProbeEngine::Libraries}) {
        SCOPED_TRACE(engine == ProbeEngine::Tools ? "tools" : "libraries");
        checkMpegFilesGetMpgtxDetailsAndAnEstimatedBitRate(engine);
    }
}

void checkRefusesWhatIsNotMediaWithAReason(ProbeEngine engine)
{
    FfmpegProbe probe(programTables(), engine);
    QTemporaryDir dir;
    const auto write = [&dir](const QString &name, const QByteArray &bytes) {
        QFile f(dir.filePath(name));
        f.open(QIODevice::WriteOnly);
        f.write(bytes);
        return f.fileName();
    };
    QByteArray noise(64 * 1024, 0);
    for (char &c : noise)
        c = char(QRandomGenerator::global()->bounded(256));
    QByteArray cut;
    {
        QFile whole(test::makeMedia(samples()[0].name, samples()[0].args));
        whole.open(QIODevice::ReadOnly);
        cut = whole.read(whole.size() / 3);
    }
    ASSERT_TRUE(QDir(dir.path()).mkpath(u"Inputs/folder.mp4"_qs));
    const QString fifo = dir.filePath(u"Inputs/clip.mp3"_qs);
    ASSERT_EQ(mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const struct {
        QString path;
        QString reason;
    } cases[] = {
        {write(u"empty.mp4"_qs, {}), kUnsupportedFormat},
        {write(u"notes.mp4"_qs, "These are my notes, not a film.\n"), kUnsupportedFormat},
        {write(u"cut.mp4"_qs, cut), QString()},
        // The word "Input" in the path must not let junk through.
        {write(u"Inputs/junk.mp4"_qs, noise), kUnsupportedFormat},
        {write(u"Inputs/notes.mp4"_qs, "Input #0, mp4, from 'x':\n"), kUnsupportedFormat},
        {dir.filePath(u"missing.mp4"_qs), kFileNotFound},
        // A pipe would block the reader for ever; a folder is no file.
        {fifo, kNotAFile},
        {dir.filePath(u"Inputs/folder.mp4"_qs), kNotAFile},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.path.toStdString());
        const ProbeResult r = probe.probe(c.path);
        EXPECT_FALSE(r.ok);
        EXPECT_FALSE(r.error.isEmpty());
        if (!c.reason.isEmpty())
            EXPECT_EQ(r.error, c.reason);
    }
}

// Both ways of reading a file, the tools and the libraries, must pass.
TEST(Probe, RefusesWhatIsNotMediaWithAReason)
{
    for (const ProbeEngine engine : {ProbeEngine::Tools, ProbeEngine::Libraries}) {
        SCOPED_TRACE(engine == ProbeEngine::Tools ? "tools" : "libraries");
        checkRefusesWhatIsNotMediaWithAReason(engine);
    }
}

// A file the libraries cannot finish in time is refused with its own reason,
// and the next file is probed as usual.
TEST(Probe, AFileThatPassesTheDeadlineIsRefused)
{
    const QString clip = test::makeMedia(samples()[0].name, samples()[0].args);
    FfmpegProbe probe(programTables(), ProbeEngine::Libraries);
    probe.setDeadline(0);
    const ProbeResult late = probe.probe(clip);
    EXPECT_FALSE(late.ok);
    EXPECT_EQ(late.error, ProbeTimeoutText(0));
    probe.setDeadline(10000);
    EXPECT_TRUE(probe.probe(clip).ok);
}

// mpgtx only adds details: without it an MPEG file keeps ffmpeg's figures.
TEST(Probe, MpegFilesWithoutMpgtxKeepFfmpegsFigures)
{
    const QString path = test::makeMedia(samples()[4].name, samples()[4].args);
    ASSERT_TRUE(path.endsWith(u".mpg"_qs));
    QTemporaryDir noTools;
    const QByteArray oldPath = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(noTools.path()));
    clsSource src;
    ProbeResult result;
    const bool ok = FfmpegProbe(programTables(), ProbeEngine::Libraries).GetVideoInformation(path, src, result);
    qputenv("PATH", oldPath);
    ASSERT_TRUE(ok) << result.error.toStdString();
    ASSERT_TRUE(src.Streams.value(0).isVideo());
    EXPECT_EQ(src.Streams[0].Width, 176);
    EXPECT_FLOAT_EQ(src.Streams[0].FPS, 25);
}

void checkOddPathsWorkAndParallelProbesKeepTheirOwnFrames(ProbeEngine engine)
{
    FfmpegProbe probe(programTables(), engine);
    QTemporaryDir dir;
    const QString source = test::makeMedia(samples()[0].name, samples()[0].args);
    QStringList paths;
    for (const QString &name : {u"-dash first.mp4"_qs, u"with \"quotes\", commas.mp4"_qs, u"ünïcödé ñame.mp4"_qs,
                                u"file:colon.mp4"_qs, u"$(touch pwned).mp4"_qs}) {
        paths << dir.filePath(name);
        ASSERT_TRUE(QFile::copy(source, paths.last()));
    }
    const QList<ProbeResult> results = QtConcurrent::blockingMapped(paths, [&probe](const QString &p) { return probe.probe(p); });
    for (int i = 0; i < paths.size(); ++i) {
        EXPECT_TRUE(results[i].ok) << paths[i].toStdString() << " " << results[i].error.toStdString();
        EXPECT_FALSE(results[i].thumb.isNull());
        EXPECT_TRUE(results[i].mediaInfo.contains(paths[i]));
    }
    EXPECT_FALSE(QFile::exists(dir.filePath(u"pwned"_qs)));
}

// Both ways of reading a file, the tools and the libraries, must pass.
TEST(Probe, OddPathsWorkAndParallelProbesKeepTheirOwnFrames)
{
    for (const ProbeEngine engine : {ProbeEngine::Tools, ProbeEngine::Libraries}) {
        SCOPED_TRACE(engine == ProbeEngine::Tools ? "tools" : "libraries");
        checkOddPathsWorkAndParallelProbesKeepTheirOwnFrames(engine);
    }
}

TEST(Probe, ThumbnailSizesOffsetsAndArguments)
{
    EXPECT_EQ(FfmpegProbe::ThumbnailSize(720, 576), QSize(90, 72));
    EXPECT_EQ(FfmpegProbe::ThumbnailSize(640, 480), QSize(90, 68));
    EXPECT_EQ(FfmpegProbe::ThumbnailSize(1280, 720), QSize(90, 52));
    EXPECT_FLOAT_EQ(FfmpegProbe::ThumbnailOffset(10), 1);
    EXPECT_FLOAT_EQ(FfmpegProbe::ThumbnailOffset(1.5f), 1);
    EXPECT_FLOAT_EQ(FfmpegProbe::ThumbnailOffset(100), 10);
    const QStringList a = ThumbnailArguments(u"/m/a.avi"_qs, 90, 68, 0.3f, u"/w/img.jpg"_qs);
    // Input options before -i, output options after it.
    EXPECT_LT(a.indexOf(u"-ss"_qs), a.indexOf(u"-i"_qs));
    EXPECT_GT(a.indexOf(u"-vframes"_qs), a.indexOf(u"-i"_qs));
    EXPECT_EQ(a[a.indexOf(u"-ss"_qs) + 1], u"0.3"_qs);
    EXPECT_EQ(a[a.indexOf(u"-s"_qs) + 1], u"90x68"_qs);
    EXPECT_EQ(a.last(), u"/w/img.jpg"_qs);
    // No frame, no picture, and never an old one.
    QTemporaryDir dir;
    const QString work = dir.filePath(u"img.jpg"_qs);
    QImage(8, 8, QImage::Format_RGB32).save(work, "JPG");
    EXPECT_TRUE(ExtractThumbnail(dir.filePath(u"missing.mp4"_qs), 90, 68, 1, work).isNull());
    EXPECT_FALSE(QFile::exists(work));
}
