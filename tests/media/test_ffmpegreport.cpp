// ffmpeg's and mpgtx's reports, in today's and the older format, read into
// the media record, and refusals.
#include "media/ffmpegreport.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

MediaTables tables()
{
    MediaTables t;
    t.audioCodecMap = ParseMapText(
        u"mp3, MPEG Layer 3\naac, AAC\nwmapro, Windows Media Audio Professional v9\n42, numbers never match\nno comma here\n"_qs);
    t.videoCodecMap = ParseMapText(u"h264 , H.264\n"_qs);
    return t;
}

// The figures of a stream in one line.
QString figures(const StreamEntry &e)
{
    if (e.isVideo())
        return u"V %1x%2 %3fps %4kb %5 "_qs.arg(e.Width).arg(e.Height).arg(e.FPS).arg(e.BitRate).arg(e.Compression)
               + QString::number(e.DisplayAR, 'f', 3);
    return u"A%1 %2Hz %3ch %4kb %5"_qs.arg(e.Index).arg(e.SampleRate).arg(e.Channels).arg(e.BitRate).arg(e.Compression);
}

QStringList streams(const ReportParse &r)
{
    QStringList s;
    for (const StreamEntry &e : r.source.Streams)
        s << figures(e);
    return s;
}

ReportParse parse(const QString &report, const QString &name = u"/m/x"_qs)
{
    return ParseFfmpegReport(report, name, tables());
}

} // namespace

TEST(FfmpegReport, ReadsBothFormats)
{
    const ReportParse old = parse(u"ffmpeg.exe -i \"c:\\v\\a.avi\"\r\nInput #0, avi, from 'c:\\v\\a.avi':\r\n"
                                  "  Duration: 00:01:23.45, start: 0.000000, bitrate: 1000 kb/s\r\n"
                                  "    Stream #0.0: Video: mpeg4, yuv420p, 640x480, 25.00 fps\r\n"
                                  "    Stream #0.1: Audio: mp3, 44100 Hz, stereo, 128 kb/s\r\n"
                                  "    Stream #0.2: Audio: ac3, 48000 Hz, 5:1, 448 kb/s\r\n"_qs);
    ASSERT_TRUE(old.ok) << old.reason.toStdString();
    EXPECT_FLOAT_EQ(old.source.Duration, 83.4f);
    EXPECT_EQ(streams(old), (QStringList{u"V 640x480 25fps 0kb mpeg4 0.000"_qs, u"A1 44100Hz 2ch 128kb MPEG Layer 3"_qs,
                                         u"A2 48000Hz 6ch 448kb ac3"_qs}));

    // Today's: details in parentheses, comma lists inside fields, bit rates
    // anywhere; the attached picture is no stream.
    const ReportParse today = parse(
        u"ffmpeg -hide_banner -i file:/m/clip.mp4\r\nInput #0, mov,mp4,m4a,3gp,3g2,mj2, from 'file:/m/clip.mp4':\n"
        "  Metadata:\n    encoder         : Lavf59.27.100\n  Duration: 00:00:05.00, start: 0.021333, bitrate: 355 kb/s\n"
        "  Stream #0:0[0x1](und): Video: h264 (High) (avc1 / 0x31637661), yuv420p(tv, bt709, progressive), 1280x720 [SAR 1:1 DAR 16:9], 276 kb/s, 29.97 fps, 29.97 tbr, 12800 tbn (default)\n"
        "  Stream #0:1[0x2](und): Audio: aac (LC) (mp4a / 0x6134706D), 44100 Hz, mono, fltp, 127 kb/s (default)\n"
        "  Stream #0:2[0x3](und): Audio: ac3 ([0] [0][0] / 0x2000), 48000 Hz, 5.1(side), fltp, 448 kb/s\n"
        "  Stream #0:3: Video: mjpeg (Baseline), yuvj420p(pc, bt470bg/unknown/unknown), 0x0, 90k tbr (attached pic)\n"
        "At least one output file must be specified\n"_qs);
    ASSERT_TRUE(today.ok) << today.reason.toStdString();
    EXPECT_TRUE(today.notices.isEmpty()) << today.notices.join(u'|').toStdString();
    EXPECT_FLOAT_EQ(today.source.StartTime, 0.021333f);
    EXPECT_EQ(streams(today), (QStringList{u"V 1280x720 29.97fps 276kb H.264 1.778"_qs, u"A1 44100Hz 1ch 127kb AAC"_qs,
                                           u"A2 48000Hz 6ch 448kb ac3"_qs}));
}

// One stream line each and the channels or frame rate it must give.
TEST(FfmpegReport, StreamLineFigures)
{
    const struct {
        const char *line;
        int channels = -1;
        float fps = -1;
    } cases[] = {
        {"    Stream #0.2: Audio: ac3, 48000 Hz, 5:1, 448 kb/s", 6}, // older: five means six
        {"  Stream #0:0: Audio: pcm_s16le, 48000 Hz, 5 channels, s16", 5},
        {"  Stream #0:0: Audio: ac3, 48000 Hz, 4.1, fltp", 5},
        {"  Stream #0:0: Audio: pcm_s16le, 48000 Hz, quad, s16", 4},
        {"  Stream #0:0: Audio: pcm_s16le, 48000 Hz, octagonal, s16", 8},
        {"  Stream #0:0: Video: h264, yuv420p, 64x48, 1k fps, 1k tbr, 16k tbn", -1, 1000},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.line);
        const ReportParse r = parse(u"Input #0\n"_qs + QString::fromUtf8(c.line));
        ASSERT_TRUE(r.ok);
        ASSERT_EQ(r.source.StreamCount(), 1);
        EXPECT_EQ(r.source.Streams[0].Channels, c.channels >= 0 ? c.channels : 0);
        EXPECT_FLOAT_EQ(r.source.Streams[0].FPS, c.fps >= 0 ? c.fps : 0);
    }
}

TEST(FfmpegReport, RefusalsAndRefusedAudio)
{
    // File name, report, reason (empty: accepted).
    const std::tuple<QString, QString, QString> cases[] = {
        {u"x"_qs, u"ffmpeg -i x\n/x: Invalid data found when processing input\n"_qs, kUnsupportedFormat},
        {u"x"_qs, u"Input #0\n  Duration: N/A, start: 0.000000\n"_qs, kIncompleteFile},
        {u"x"_qs, u"Input #0\n[mov] could not find codec parameters\n"_qs, kUnsupportedFormat},
        // The file's name never changes the verdict, whatever words it holds.
        {u"/Inputs/Input #0.mp4"_qs,
         u"ffmpeg -i file:/Inputs/Input #0.mp4\r\nfile:/Inputs/Input #0.mp4: Invalid data found when processing input\n"_qs,
         kUnsupportedFormat},
        // Figures that are no numbers.
        {u"x"_qs, u"Input #0\n  Stream #0:0: Audio: mp3, many Hz, stereo\n"_qs, kUnsupportedFormat},
        {u"x"_qs, u"Input #0\n  Stream #0:0: Audio: mp3, 44100 Hz, surround\n"_qs, kUnsupportedFormat},
        {u"/m/Unknown format.mp3"_qs,
         u"ffmpeg -i file:/m/Unknown format.mp3\nInput #0, mp3, from 'file:/m/Unknown format.mp3':\n  Duration: 00:00:02.00, start: 0\n  Stream #0:0: Audio: mp3, 44100 Hz, stereo, fltp, 128 kb/s\n"_qs,
         {}},
    };
    for (const auto &[name, report, reason] : cases) {
        const ReportParse r = parse(report, name);
        EXPECT_EQ(r.ok, reason.isEmpty()) << name.toStdString();
        EXPECT_EQ(r.reason, reason) << name.toStdString();
    }
    // A refused codec drops its stream with a message; the file goes on.
    const ReportParse r = parse(
        u"Input #0\n  Duration: 00:00:02.00, start: 0\n    Stream #0:1: Audio: wmapro, 44100 Hz, stereo, 128 kb/s\n"_qs,
        u"/a.wma"_qs);
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.source.StreamCount(), 0);
    const QString notice
        = u"The audio format Windows Media Audio Professional v9 in file /a.wma is currently unsupported. It will not be added to the project."_qs;
    EXPECT_EQ(r.notices, QStringList{notice});
    EXPECT_TRUE(IsUnsupportedAudio(u"something / 0x1234"_qs));
}

TEST(FfmpegReport, DurationsFieldListsAndMpgtxDetails)
{
    for (auto [text, seconds] : {std::pair{"00:01:23.45", 83.4f}, {"N/A", 0.f}, {"02:00:00.00", 7200.f}, {"x", 0.f}})
        EXPECT_FLOAT_EQ(ParseDuration(QString::fromLatin1(text)), seconds) << text;
    EXPECT_EQ(
        SplitStreamFields(u"h264 (High), yuv420p(tv, bt709), 320x240 [SAR 1:1 DAR 4:3], 25 fps"_qs),
        (QStringList{u"h264 (High)"_qs, u"yuv420p(tv, bt709)"_qs, u"320x240 [SAR 1:1 DAR 4:3]"_qs, u"25 fps"_qs}));
    const MpgtxDetails d = ParseMpgtxReport(
        u"  Aspect ratio 16/9 (TV)\n  Interlaced, chroma\n  Size [720 x 576]     25.00 fps    9.80 Mbps\n"_qs);
    EXPECT_EQ(std::tuple(d.aspectRatio, d.fps, d.interlaced), std::tuple(16.0f / 9.0f, 25.0f, true));
    EXPECT_FLOAT_EQ(ParseMpgtxReport(u"  Aspect ratio 2.21/1\n"_qs).aspectRatio, 2.21f);
    EXPECT_FALSE(ParseMpgtxReport(u"  Not interlaced, chroma format: 4:2:0\n"_qs).interlaced);
}
