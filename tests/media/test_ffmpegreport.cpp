#include "media/ffmpegreport.h"

#include <QRandomGenerator>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

MediaTables tables()
{
    MediaTables t;
    t.audioCodecMap = ParseMapText(u"mp3, MPEG Layer 3\naac, AAC\nwmapro, Windows Media Audio Professional v9\n42, numbers never match\nno comma here\n"_qs);
    t.videoCodecMap = ParseMapText(u"h264 , H.264\n"_qs);
    return t;
}

const QString kOld = u"ffmpeg.exe -i \"c:\\v\\a.avi\"\r\n"
                     "Input #0, avi, from 'c:\\v\\a.avi':\r\n"
                     "  Duration: 00:01:23.45, start: 0.000000, bitrate: 1000 kb/s\r\n"
                     "    Stream #0.0: Video: mpeg4, yuv420p, 640x480, 25.00 fps\r\n"
                     "    Stream #0.1: Audio: mp3, 44100 Hz, stereo, 128 kb/s\r\n"
                     "    Stream #0.2: Audio: ac3, 48000 Hz, 5:1, 448 kb/s\r\n"_qs;

const QString kToday = u"ffmpeg -hide_banner -i file:/m/clip.mp4\r\n"
                       "Input #0, mov,mp4,m4a,3gp,3g2,mj2, from 'file:/m/clip.mp4':\n"
                       "  Metadata:\n"
                       "    encoder         : Lavf59.27.100\n"
                       "  Duration: 00:00:05.00, start: 0.021333, bitrate: 355 kb/s\n"
                       "  Stream #0:0[0x1](und): Video: h264 (High) (avc1 / 0x31637661), yuv420p(tv, bt709, progressive), 1280x720 [SAR 1:1 DAR 16:9], 276 kb/s, 29.97 fps, 29.97 tbr, 12800 tbn (default)\n"
                       "  Stream #0:1[0x2](und): Audio: aac (LC) (mp4a / 0x6134706D), 44100 Hz, mono, fltp, 127 kb/s (default)\n"
                       "  Stream #0:2[0x3](und): Audio: ac3 ([0] [0][0] / 0x2000), 48000 Hz, 5.1(side), fltp, 448 kb/s\n"
                       "  Stream #0:3: Video: mjpeg (Baseline), yuvj420p(pc, bt470bg/unknown/unknown), 0x0, 90k tbr (attached pic)\n"
                       "At least one output file must be specified\n"_qs;

} // namespace

TEST(FfmpegReport, ReadsTheOlderFormatAsAlways)
{
    const ReportParse r = ParseFfmpegReport(kOld, u"c:\\v\\a.avi"_qs, tables());
    ASSERT_TRUE(r.ok) << r.reason.toStdString();
    EXPECT_FLOAT_EQ(r.source.Duration, 83.4f);
    ASSERT_EQ(r.source.StreamCount(), 3);
    const StreamEntry &v = r.source.Streams[0];
    EXPECT_TRUE(v.isVideo());
    EXPECT_EQ(v.Width, 640);
    EXPECT_EQ(v.Height, 480);
    EXPECT_FLOAT_EQ(v.FPS, 25);
    const StreamEntry &a = r.source.Streams[1];
    EXPECT_EQ(a.Index, 1);
    EXPECT_EQ(a.SampleRate, 44100);
    EXPECT_EQ(a.Channels, 2);
    EXPECT_EQ(a.BitRate, 128);
    EXPECT_EQ(a.Compression, u"MPEG Layer 3"_qs);
    EXPECT_EQ(r.source.Streams[2].Channels, 6); // "5:1": five becomes six
}

TEST(FfmpegReport, ReadsTodaysFormatWithoutRefusingPlayableStreams)
{
    const ReportParse r = ParseFfmpegReport(kToday, u"/m/clip.mp4"_qs, tables());
    ASSERT_TRUE(r.ok) << r.reason.toStdString();
    EXPECT_TRUE(r.notices.isEmpty()) << r.notices.join(u'|').toStdString();
    EXPECT_FLOAT_EQ(r.source.StartTime, 0.021333f);
    ASSERT_EQ(r.source.StreamCount(), 3); // the attached picture is no stream
    const StreamEntry &v = r.source.Streams[0];
    EXPECT_EQ(v.Compression, u"H.264"_qs);
    EXPECT_EQ(v.Width, 1280);
    EXPECT_EQ(v.Height, 720);
    EXPECT_EQ(v.BitRate, 276);
    EXPECT_FLOAT_EQ(v.FPS, 29.97f);
    EXPECT_FLOAT_EQ(v.DisplayAR, 16.0f / 9.0f);
    const StreamEntry &aac = r.source.Streams[1];
    EXPECT_EQ(aac.Compression, u"AAC"_qs);
    EXPECT_EQ(aac.Channels, 1);
    EXPECT_EQ(aac.BitRate, 127);
    EXPECT_EQ(aac.Index, 1);
    EXPECT_EQ(r.source.Streams[2].Channels, 6);
    EXPECT_EQ(r.source.Streams[2].Compression, u"ac3"_qs);
}

// One stream line each, in today's or the older format, and what it must give.
TEST(FfmpegReport, StreamLineFigures)
{
    struct Case {
        const char *line;
        int channels = -1;
        float fps = -1;
    };
    const Case cases[] = {
        {"    Stream #0.2: Audio: ac3, 48000 Hz, 5:1, 448 kb/s", 6},     // older: five means six
        {"  Stream #0:0: Audio: flac, 44100 Hz, 5.0, s16", 5},
        {"  Stream #0:0: Audio: ac3, 48000 Hz, 5.0(side), fltp, 384 kb/s", 5},
        {"  Stream #0:0: Audio: aac (LC), 48000 Hz, 5.1(side), fltp", 6},
        {"  Stream #0:0: Audio: pcm_s16le, 48000 Hz, 5 channels, s16", 5},
        {"  Stream #0:0: Audio: ac3, 48000 Hz, 4.1, fltp", 5},
        {"    Stream #0.0: Video: mpeg4, yuv420p, 640x480, 25.00 fps", -1, 25},
        {"  Stream #0:0: Video: h264, yuv420p, 64x48, 1k fps, 1k tbr, 16k tbn", -1, 1000},
        {"  Stream #0:0: Video: h264, yuv420p, 64x48, 29.97 fps, 29.97 tbr", -1, 29.97f},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.line);
        const ReportParse r = ParseFfmpegReport(u"Input #0\n"_qs + QString::fromUtf8(c.line), u"/m/x"_qs, tables());
        ASSERT_TRUE(r.ok);
        ASSERT_EQ(r.source.StreamCount(), 1);
        if (c.channels >= 0)
            EXPECT_EQ(r.source.Streams[0].Channels, c.channels);
        if (c.fps >= 0)
            EXPECT_FLOAT_EQ(r.source.Streams[0].FPS, c.fps);
    }
}

// Cover art is listed as a video stream marked "(attached pic)": it is no
// stream of the record, only remembered as a picture.
TEST(FfmpegReport, AttachedPictureIsNoVideoStream)
{
    const ReportParse r = ParseFfmpegReport(
        u"Input #0, mp3, from 'file:/m/song.mp3':\n  Duration: 00:00:02.04, start: 0.025056, bitrate: 134 kb/s\n"
        "  Stream #0:0: Audio: mp3, 44100 Hz, stereo, fltp, 128 kb/s\n"
        "  Stream #0:1: Video: png, rgb24(pc), 120x90 [SAR 1:1 DAR 4:3], 90k tbr, 90k tbn (attached pic)\n"_qs,
        u"/m/song.mp3"_qs, tables());
    ASSERT_TRUE(r.ok);
    ASSERT_EQ(r.source.StreamCount(), 1);
    EXPECT_TRUE(r.source.Streams[0].isAudio());
    EXPECT_EQ(r.coverSize, QSize(120, 90));
}

TEST(FfmpegReport, RefusalsAndRefusedAudio)
{
    MediaTables t = tables();
    ReportParse r = ParseFfmpegReport(u"ffmpeg -i x\n/x: Invalid data found when processing input\n"_qs, u"x"_qs, t);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.reason, kUnsupportedFormat);
    r = ParseFfmpegReport(u"Input #0\n  Duration: N/A, start: 0.000000\n"_qs, u"x"_qs, t);
    EXPECT_EQ(r.reason, kIncompleteFile);
    r = ParseFfmpegReport(u"Input #0\n[mov] could not find codec parameters\n"_qs, u"x"_qs, t);
    EXPECT_EQ(r.reason, kUnsupportedFormat);
    // The file's name never changes the verdict, whatever words it holds.
    for (const QString &name : {u"/Inputs/Input #0.mp4"_qs, u"/m/Input #0, Audio: mp3, 1 Hz, stereo.mp4"_qs}) {
        SCOPED_TRACE(name.toStdString());
        r = ParseFfmpegReport(u"ffmpeg -hide_banner -i file:"_qs + name + u"\r\nfile:"_qs + name
                                  + u": Invalid data found when processing input\n"_qs,
                              name, t);
        EXPECT_FALSE(r.ok);
    }
    r = ParseFfmpegReport(u"ffmpeg -i file:/m/Unknown format.mp3\nInput #0, mp3, from 'file:/m/Unknown format.mp3':\n"
                          "  Duration: 00:00:02.00, start: 0\n  Stream #0:0: Audio: mp3, 44100 Hz, stereo, fltp, 128 kb/s\n"_qs,
                          u"/m/Unknown format.mp3"_qs, t);
    EXPECT_TRUE(r.ok);
    // A refused codec drops its stream with a message; the file goes on.
    r = ParseFfmpegReport(u"Input #0\n  Duration: 00:00:02.00, start: 0\n    Stream #0:1: Audio: wmapro, 44100 Hz, stereo, 128 kb/s\n"_qs,
                          u"/a.wma"_qs, t);
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.source.StreamCount(), 0);
    ASSERT_EQ(r.notices.size(), 1);
    EXPECT_EQ(r.notices[0], u"The audio format Windows Media Audio Professional v9 in file /a.wma is currently unsupported. It will not be added to the project."_qs);
    EXPECT_TRUE(IsUnsupportedAudio(u"something / 0x1234"_qs));
    EXPECT_FALSE(IsUnsupportedAudio(u"AAC"_qs));
}

TEST(FfmpegReport, HelpersDurationAspectMapsAndFields)
{
    EXPECT_FLOAT_EQ(ParseDuration(u"00:01:23.45"_qs), 83.4f);
    EXPECT_FLOAT_EQ(ParseDuration(u"N/A"_qs), 0);
    EXPECT_FLOAT_EQ(ParseDuration(u"02:00:00.00"_qs), 7200);
    EXPECT_FLOAT_EQ(ParseDuration(u"garbage"_qs), 0);
    EXPECT_EQ(GetAspectName(16.0f / 9.0f), u"Widescreen (16:9)"_qs);
    EXPECT_EQ(GetAspectName(4.0f / 3.0f), u"Normal (4:3)"_qs);
    EXPECT_EQ(GetAspectName(2.21f), u"Panavision (2.21:1)"_qs);
    EXPECT_EQ(GetAspectName(1), u"1:1"_qs);
    EXPECT_EQ(GetAspectName(1.85f), u"1.85:1"_qs);
    const auto map = tables().audioCodecMap;
    EXPECT_FALSE(map.contains(u"42"_qs));
    EXPECT_EQ(MapCodec(map, u"opus"_qs), u"opus"_qs);
    EXPECT_EQ(SplitStreamFields(u"h264 (High), yuv420p(tv, bt709), 320x240 [SAR 1:1 DAR 4:3], 25 fps"_qs),
              (QStringList{u"h264 (High)"_qs, u"yuv420p(tv, bt709)"_qs, u"320x240 [SAR 1:1 DAR 4:3]"_qs, u"25 fps"_qs}));
    const MpgtxDetails d = ParseMpgtxReport(u"  Aspect ratio 16/9 (TV)\n  Interlaced, chroma\n  Size [720 x 576]     25.00 fps    9.80 Mbps\n"_qs);
    EXPECT_FLOAT_EQ(d.aspectRatio, 16.0f / 9.0f);
    EXPECT_FLOAT_EQ(d.fps, 25);
    EXPECT_TRUE(d.interlaced);
    EXPECT_FALSE(ParseMpgtxReport(u"  Not interlaced, chroma format: 4:2:0\n"_qs).interlaced);
}

TEST(FfmpegReport, ReportHasItsExactLabels)
{
    clsSource s;
    s.FileName = u"/m/a.avi"_qs;
    s.Duration = 83.4f;
    s.StartTime = 0;
    StreamEntry v;
    v.Type = StreamEntry::Video;
    v.Width = 640;
    v.Height = 480;
    v.FPS = 25;
    v.Compression = u"MPEG-4"_qs;
    v.SourceAR = 640.0f / 480.0f;
    v.DisplayAR = 1;
    v.BitRate = 900;
    StreamEntry a;
    a.Type = StreamEntry::Audio;
    a.Channels = 2;
    a.SampleRate = 44100;
    a.Compression = u"MP3"_qs;
    a.BitRate = 128;
    s.Streams = {v, a};
    EXPECT_EQ(BuildReport(s), u"Stream information of /m/a.avi\r\nDuration  : 83.4\r\nStarttime : 0\r\n"
                              "Stream 0 (Video)\r\nWidth       : 640 pixels\r\nHeight      : 480 pixels\r\n"
                              "Framerate   : 25\r\nCompression : MPEG-4\r\nSource AR   : Normal (4:3)\r\n"
                              "DIsplay AR  : 1:1\r\nBitRate     : 900 Kbit\\s\r\n"
                              "Stream 1 (Audio)\r\nChannels    : 2\r\nSamplerate  : 44100 Hz\r\n"
                              "Compression : MP3\r\nBitRate     : 128 Kbit\\s"_qs);
}

// Mutated real reports: the parsers must neither crash nor hang, whatever
// they are given. Runs a bounded number of rounds with a fixed seed; longer
// runs take QUORVEL_FUZZ_ROUNDS.
TEST(FfmpegReport, SurvivesMutatedReports)
{
    const int rounds = qEnvironmentVariableIntValue("QUORVEL_FUZZ_ROUNDS") > 0
                           ? qEnvironmentVariableIntValue("QUORVEL_FUZZ_ROUNDS") : 4000;
    QRandomGenerator gen(20261123);
    const QStringList seeds{kOld, kToday, u"  Aspect ratio 4/3 (TV)\n  Size [320 x 240]     25.00 fps\n"_qs};
    const MediaTables t = tables();
    for (int i = 0; i < rounds; ++i) {
        QString s = seeds[i % seeds.size()];
        const int edits = 1 + gen.bounded(8);
        for (int e = 0; e < edits && !s.isEmpty(); ++e) {
            const int at = gen.bounded(s.size());
            switch (gen.bounded(5)) {
            case 0:
                s.remove(at, gen.bounded(20));
                break;
            case 1:
                s.insert(at, QChar(char16_t(gen.bounded(0x20, 0x7f))));
                break;
            case 2:
                s[at] = QChar(char16_t(gen.bounded(0, 0xffff)));
                break;
            case 3:
                s.insert(at, s.mid(gen.bounded(s.size()), gen.bounded(40)));
                break;
            default:
                s.insert(at, QStringLiteral(", 99999999999999999999 kb/s, 5:1, x, 1x, :,(,[, fps"));
                break;
            }
        }
        const ReportParse r = ParseFfmpegReport(s, u"/f"_qs, t);
        if (r.ok)
            (void)BuildReport(r.source);
        (void)ParseMpgtxReport(s);
    }
    SUCCEED();
}
