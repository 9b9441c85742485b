// Audio start delays of AVI files: files ffmpeg writes, and hand-made files
// with a known number of bytes before the first AC-3 or MPEG frame.

#include "media/avidelay.h"
#include "support/mediagen.h"
#include "test_riffbuilder.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

using namespace quorvel;
using namespace quorvel::test;

namespace {

// Real AC-3 frames: 384 kbit/s at 48 kHz, 1536 bytes each, so 48000 bytes a second.
QByteArray ac3Frames()
{
    const QString path = makeMedia(QStringLiteral("riff-tone.ac3"),
                                   {"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=1", "-ac", "2",
                                    "-c:a", "ac3", "-b:a", "384k"});
    return path.isEmpty() ? QByteArray() : readBytes(path);
}

// Real MP3 frames without any tag in front: the data starts at a frame sync.
QByteArray mp3Frames()
{
    const QString path = makeMedia(QStringLiteral("riff-tone.mp3"),
                                   {"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=1", "-c:a",
                                    "libmp3lame", "-b:a", "128k", "-write_xing", "0", "-id3v2_version", "0"});
    return path.isEmpty() ? QByteArray() : readBytes(path);
}

QString aviClip(const QString &name, const QStringList &audioArgs, const QStringList &audioInputArgs = {})
{
    QStringList args{"-f", "lavfi", "-i", "testsrc2=size=64x48:rate=25:duration=1"};
    args << audioInputArgs << QStringList{"-f", "lavfi", "-i", "sine=frequency=440:sample_rate=48000:duration=1"};
    args << QStringList{"-c:v", "mpeg4"} << audioArgs;
    return makeMedia(name, args);
}

class AviDelayFiles : public ::testing::Test {
protected:
    // Writes `bytes` as a file and scans it.
    bool scan(const QByteArray &bytes, const QString &name = QStringLiteral("test.avi"))
    {
        const QString path = m_dir.filePath(name);
        if (!writeBytes(path, bytes)) {
            ADD_FAILURE() << "cannot write " << qPrintable(path);
            return false;
        }
        return m_delay.OpenFile(path);
    }

    QTemporaryDir m_dir;
    clsAVIDelay m_delay;
};

} // namespace

TEST_F(AviDelayFiles, FilesFromFfmpegStartTheirAudioAtAFrame)
{
    // ffmpeg puts each audio frame in a chunk of its own and writes no stream
    // start, even when the audio input starts half a second late: every audio
    // stream's delay is 0, and the video stream never gets one.
    struct Case {
        QString name;
        QStringList audioArgs;
        QStringList audioInputArgs;
    };
    const QList<Case> cases{
        {"riff-ac3.avi", {"-c:a", "ac3"}, {}},
        {"riff-mp3.avi", {"-c:a", "libmp3lame", "-b:a", "128k"}, {}},
        {"riff-ac3-late.avi", {"-c:a", "ac3"}, {"-itsoffset", "0.5"}},
        {"riff-mp3-late.avi", {"-c:a", "libmp3lame", "-b:a", "128k"}, {"-itsoffset", "0.5"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.name.toStdString());
        const QString path = aviClip(c.name, c.audioArgs, c.audioInputArgs);
        ASSERT_FALSE(path.isEmpty());
        clsAVIDelay delay;
        ASSERT_TRUE(delay.OpenFile(path)) << qPrintable(delay.ErrorText());
        EXPECT_EQ(delay.FileName(), path);
        ASSERT_EQ(delay.StreamCount(), 2);
        EXPECT_FALSE(delay.StreamIsAudio(0));
        EXPECT_TRUE(delay.StreamIsAudio(1));
        EXPECT_EQ(delay.StreamDelay(0), clsAVIDelay::kDelayUnknown);
        EXPECT_EQ(delay.StreamDelay(1), 0);
    }

    // Two audio streams: each gets its own delay, by position.
    const QString two = makeMedia(QStringLiteral("riff-two-audio.avi"),
                                  {"-f", "lavfi", "-i", "testsrc2=size=64x48:rate=25:duration=1", "-f", "lavfi", "-i",
                                   "sine=duration=1", "-f", "lavfi", "-i", "sine=frequency=880:duration=1", "-map", "0",
                                   "-map", "1", "-map", "2", "-c:v", "mpeg4", "-c:a:0", "ac3", "-c:a:1", "libmp3lame",
                                   "-b:a:1", "128k"});
    ASSERT_FALSE(two.isEmpty());
    ASSERT_TRUE(m_delay.OpenFile(two)) << qPrintable(m_delay.ErrorText());
    ASSERT_EQ(m_delay.StreamCount(), 3);
    EXPECT_FALSE(m_delay.StreamIsAudio(0));
    EXPECT_TRUE(m_delay.StreamIsAudio(1));
    EXPECT_TRUE(m_delay.StreamIsAudio(2));
    EXPECT_EQ(m_delay.Streams().at(1).wFormatTag, clsAVIDelay::kTagAC3);
    EXPECT_EQ(m_delay.Streams().at(2).wFormatTag, clsAVIDelay::kTagMpegLayer3);
    EXPECT_EQ(m_delay.StreamDelay(1), 0);
    EXPECT_EQ(m_delay.StreamDelay(2), 0);

    // Audio alone in PCM: stream 0 ("00wb"), delay from the start term only.
    const QString pcm = makeMedia(QStringLiteral("riff-pcm.avi"),
                                  {"-f", "lavfi", "-i", "sine=duration=1", "-c:a", "pcm_s16le"});
    ASSERT_TRUE(m_delay.OpenFile(pcm)) << qPrintable(m_delay.ErrorText());
    ASSERT_EQ(m_delay.StreamCount(), 1);
    EXPECT_TRUE(m_delay.StreamIsAudio(0));
    EXPECT_EQ(m_delay.Streams().at(0).wFormatTag, 1);
    EXPECT_EQ(m_delay.StreamDelay(0), 0);

    // ffmpeg's default MP3 settings leave the byte rate of the wave format at
    // 0; a sync found in such a stream cannot be turned into a time.
    const QString vbr = aviClip(QStringLiteral("riff-mp3-vbr.avi"), {"-c:a", "libmp3lame"});
    ASSERT_FALSE(vbr.isEmpty());
    clsAVIDelay zeroRate;
    EXPECT_FALSE(zeroRate.OpenFile(vbr));
    EXPECT_EQ(zeroRate.Streams().value(1).nAvgBytesPerSec, 0u);
}

TEST_F(AviDelayFiles, StreamStartFromTheHeader)
{
    // The same ffmpeg file with a start of 20 written into the audio stream
    // header, as other muxers do for late audio: 21 x 3 / 125 s = 504 ms.
    const QString path = aviClip(QStringLiteral("riff-mp3.avi"), {"-c:a", "libmp3lame", "-b:a", "128k"});
    QByteArray bytes = readBytes(path);
    ASSERT_FALSE(bytes.isEmpty());
    const qsizetype auds = bytes.indexOf("auds");
    ASSERT_GT(auds, 0);
    ASSERT_EQ(qFromLittleEndian<quint32>(bytes.constData() + auds + 20), 3u); // dwScale: 1152 samples a frame at 48 kHz
    ASSERT_EQ(qFromLittleEndian<quint32>(bytes.constData() + auds + 24), 125u); // dwRate
    qToLittleEndian<quint32>(21, bytes.data() + auds + 28);
    ASSERT_TRUE(scan(bytes)) << qPrintable(m_delay.ErrorText());
    EXPECT_EQ(m_delay.StreamDelay(1), 504);
}

TEST_F(AviDelayFiles, BytesBeforeTheFirstFrameSync)
{
    const QByteArray ac3 = ac3Frames();
    const QByteArray mp3 = mp3Frames();
    ASSERT_GT(ac3.size(), 3000);
    ASSERT_GT(mp3.size(), 1000);
    ASSERT_EQ(ac3.left(2), QByteArray("\x0b\x77"));
    ASSERT_EQ(mp3.left(2), QByteArray("\xff\xfb"));
    const QByteArray video = chunk("00dc", QByteArray(300, '\x01'));

    // 100 bytes before the AC-3 sync at 48000 bytes a second: 2.08 ms, so 2.
    ASSERT_TRUE(scan(avi(videoStreamList() + audioStreamList(0x2000, 48000),
                         video + chunk("01wb", junk(100) + ac3.left(1536)) + video + chunk("01wb", ac3.mid(1536, 1536)))))
        << qPrintable(m_delay.ErrorText());
    ASSERT_EQ(m_delay.StreamCount(), 2);
    EXPECT_EQ(m_delay.StreamDelay(1), 2);

    // MP3 starting at its sync, with a stream start of 5 frames of 1152
    // samples at 48 kHz: 0 + 120 ms.
    ASSERT_TRUE(scan(avi(videoStreamList() + audioStreamList(0x55, 16000, 1152, 48000, 5),
                         video + chunk("01wb", mp3.left(417)))));
    EXPECT_EQ(m_delay.StreamDelay(1), 120);

    // The same bytes as MPEG audio with format tag 0x50 are searched the same way.
    ASSERT_TRUE(scan(avi(audioStreamList(0x50, 16000), chunk("00wb", junk(480) + mp3.left(417)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 30);

    // PCM is never searched: junk or not, only the stream start counts.
    ASSERT_TRUE(scan(avi(audioStreamList(1, 48000), chunk("00wb", junk(4800)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 0);
    ASSERT_TRUE(scan(avi(audioStreamList(1, 48000, 1, 1000, 250), chunk("00wb", junk(4800)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 250);

    // No sync in the first chunk: its bytes count and the search goes on in
    // the next chunk of the stream. Chunks of other streams count for nothing.
    ASSERT_TRUE(scan(avi(videoStreamList() + audioStreamList(0x2000, 48000),
                         chunk("01wb", junk(1000)) + video + chunk("01wb", junk(10) + ac3.left(1536)))));
    EXPECT_EQ(m_delay.StreamDelay(1), 21); // 1010 bytes = 21.04 ms
    EXPECT_EQ(m_delay.Streams().at(1).byteCounter, 1010 + 1546);

    // An odd-sized chunk counts with its pad byte: 101 + 1 bytes at 1000 a second.
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 1000), chunk("00wb", junk(101)) + chunk("00wb", ac3.left(1536)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 102);

    // An empty first chunk settles the delay from the stream start alone.
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000, 1, 1000, 40),
                         chunk("00wb", QByteArray()) + chunk("00wb", junk(4800) + ac3.left(1536)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 40);

    // Once a delay is known, later chunks of the stream change nothing.
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000),
                         chunk("00wb", ac3.left(1536)) + chunk("00wb", junk(96000)) + chunk("00wb", ac3.left(1536)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 0);
}

TEST_F(AviDelayFiles, SyncSearchStaysInsideTheChunkData)
{
    // A sync pair split across the search's internal blocks is found...
    QByteArray data = junk(70000);
    data[65535] = '\x0b';
    data[65536] = '\x77';
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 1000), chunk("00wb", data))));
    EXPECT_EQ(m_delay.StreamDelay(0), 65535);

    // ...but a pair split between a chunk's last byte and the next chunk is
    // not, nor is a lone 0xFF at the end of MPEG data.
    QByteArray endsInHalfSync = junk(64);
    endsInHalfSync[63] = '\x0b';
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000), chunk("00wb", endsInHalfSync) + chunk("wxyz", "ab"))));
    EXPECT_EQ(m_delay.StreamDelay(0), clsAVIDelay::kDelayUnknown);
    QByteArray endsInFF = junk(64);
    endsInFF[63] = '\xff';
    ASSERT_TRUE(scan(avi(audioStreamList(0x55, 48000), chunk("00wb", endsInFF) + chunk("\x0f\x0f\x0f\x0f", "ab"))));
    EXPECT_EQ(m_delay.StreamDelay(0), clsAVIDelay::kDelayUnknown);

    // The MPEG rule wants both low bits of the byte after 0xFF set.
    QByteArray mpeg = junk(40);
    mpeg[10] = '\xff';
    mpeg[11] = '\xfa';
    mpeg[20] = '\xff';
    mpeg[21] = '\xf3';
    ASSERT_TRUE(scan(avi(audioStreamList(0x55, 1000), chunk("00wb", mpeg))));
    EXPECT_EQ(m_delay.StreamDelay(0), 20);
}

TEST_F(AviDelayFiles, RoundingIsToTheEvenNeighbour)
{
    // 128 bytes at 2048 a second is exactly 62.5 ms, 384 bytes 187.5 ms.
    QByteArray at128 = junk(128) + QByteArray("\x0b\x77");
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 2048), chunk("00wb", at128))));
    EXPECT_EQ(m_delay.StreamDelay(0), 62);
    QByteArray at384 = junk(384) + QByteArray("\x0b\x77");
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 2048), chunk("00wb", at384))));
    EXPECT_EQ(m_delay.StreamDelay(0), 188);

    // The byte term is rounded first, then the sum with the stream start:
    // 2.4 -> 2, 2 + 0.4 -> 2 (not 2.8 -> 3)...
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 5000, 1, 5000, 2), chunk("00wb", junk(12) + QByteArray("\x0b\x77")))));
    EXPECT_EQ(m_delay.StreamDelay(0), 2);
    // ...and 1 + 62.5 = 63.5 -> 64 (not 1 + 62).
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 1000, 1, 16, 1), chunk("00wb", junk(1) + QByteArray("\x0b\x77\x00")))));
    EXPECT_EQ(m_delay.StreamDelay(0), 64);
    // A start of exactly 62.5 ms alone rounds to 62.
    ASSERT_TRUE(scan(avi(audioStreamList(1, 1000, 1, 16, 1), chunk("00wb", junk(8)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 62);
    // A rate of 0 in the header is taken as 1: 3 x 2 / 1 s.
    ASSERT_TRUE(scan(avi(audioStreamList(1, 1000, 2, 0, 3), chunk("00wb", junk(8)))));
    EXPECT_EQ(m_delay.StreamDelay(0), 6000);
}

TEST_F(AviDelayFiles, LimitsOfTheScan)
{
    const QByteArray ac3 = ac3Frames();
    ASSERT_GT(ac3.size(), 1536);
    QByteArray noSync;
    for (int i = 0; i < 15; ++i)
        noSync += chunk("00wb", junk(100000));

    // Exactly 1,500,000 bytes without a sync is not yet too many.
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000), noSync)));
    EXPECT_EQ(m_delay.StreamDelay(0), clsAVIDelay::kDelayUnknown);
    // One more chunk without a sync and the stream is given up...
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000), noSync + chunk("00wb", junk(2)))));
    EXPECT_EQ(m_delay.StreamDelay(0), clsAVIDelay::kDelayGivenUp);
    // ...even when a later chunk has one.
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000), noSync + chunk("00wb", junk(2)) + chunk("00wb", ac3.left(1536)))));
    EXPECT_EQ(m_delay.StreamDelay(0), clsAVIDelay::kDelayGivenUp);
    // A sync after 1,400,050 bytes still counts: 29167.7 ms.
    QByteArray late = noSync.left(14 * (100000 + 8)) + chunk("00wb", junk(50) + ac3.left(1536));
    ASSERT_TRUE(scan(avi(audioStreamList(0x2000, 48000), late)));
    EXPECT_EQ(m_delay.StreamDelay(0), 29168);

    // Audio whose first chunk lies past byte 2,500,000 is never reached; just
    // before it, it is.
    const QByteArray audio = chunk("01wb", junk(100) + ac3.left(1536));
    ASSERT_TRUE(scan(riff("AVI ", list("hdrl", videoStreamList() + audioStreamList(0x2000, 48000))
                                      + chunk("JUNK", QByteArray(2'600'000, '\0')) + list("movi", audio))));
    ASSERT_EQ(m_delay.StreamCount(), 2);
    EXPECT_EQ(m_delay.StreamDelay(1), clsAVIDelay::kDelayUnknown);
    ASSERT_TRUE(scan(riff("AVI ", list("hdrl", videoStreamList() + audioStreamList(0x2000, 48000))
                                      + chunk("JUNK", QByteArray(2'400'000, '\0')) + list("movi", audio))));
    EXPECT_EQ(m_delay.StreamDelay(1), 2);
}

TEST_F(AviDelayFiles, BrokenFilesEndTheScanWithFalse)
{
    const QByteArray ac3 = ac3Frames();
    ASSERT_GT(ac3.size(), 1536);
    const QByteArray header = audioStreamList(0x2000, 48000);

    // Not AVI at all.
    EXPECT_FALSE(scan(riff("WAVE", chunk("fmt ", QByteArray(16, '\0')))));
    EXPECT_FALSE(scan(QByteArray("not a riff file at all")));
    EXPECT_FALSE(m_delay.OpenFile(m_dir.filePath(QStringLiteral("missing.avi"))));
    EXPECT_EQ(m_delay.StreamCount(), 0);

    // Data chunks that name no stream.
    EXPECT_FALSE(scan(avi(header, chunk("x1wb", ac3.left(1536)))));
    EXPECT_FALSE(scan(avi(header, chunk("01wb", ac3.left(1536)))));
    EXPECT_FALSE(scan(avi(QByteArray(), chunk("00wb", ac3.left(1536)))));

    // A sync found in a stream whose byte rate is 0; without a sync the
    // division never happens.
    EXPECT_FALSE(scan(avi(audioStreamList(0x2000, 0), chunk("00wb", ac3.left(1536)))));
    EXPECT_TRUE(scan(avi(audioStreamList(0x2000, 0), chunk("00wb", junk(64)))));

    // A start far beyond any delay a millisecond count can hold.
    EXPECT_FALSE(scan(avi(audioStreamList(1, 48000, 0xFFFFFFFF, 1, 0xFFFFFFFF), chunk("00wb", junk(8)))));

    // Truncated: inside the first audio chunk the scan needs, it fails...
    const QByteArray whole = avi(header, chunk("00wb", junk(100) + ac3.left(1536)) + chunk("00wb", ac3.mid(1536, 1536)));
    EXPECT_FALSE(scan(whole.left(whole.size() - 1536 - 8 - 500)));
    // ...inside a stream header too...
    EXPECT_FALSE(scan(whole.left(whole.indexOf("strh") + 20)));
    // ...but behind it the delay is known and the file ends like any other.
    ASSERT_TRUE(scan(whole.left(whole.size() - 500)));
    EXPECT_EQ(m_delay.StreamDelay(0), 2);

    // An audio chunk that claims 4 GiB of data the file does not hold.
    EXPECT_FALSE(scan(avi(header, QByteArray("00wb") + le32(0xFFFFFFF0) + junk(100) + ac3.left(1536))));

    // A huge size on the file header or on a chunk passed over changes nothing.
    QByteArray hugeRiff = whole;
    qToLittleEndian<quint32>(0xFFFFFFFF, hugeRiff.data() + 4);
    ASSERT_TRUE(scan(hugeRiff));
    EXPECT_EQ(m_delay.StreamDelay(0), 2);
    ASSERT_TRUE(scan(riff("AVI ", list("hdrl", header) + QByteArray("JUNK") + le32(0xFFFFFFFF) + junk(64))));
    EXPECT_EQ(m_delay.StreamCount(), 1);
    EXPECT_EQ(m_delay.StreamDelay(0), clsAVIDelay::kDelayUnknown);

    // Stream headers shorter than their fields read as zeros, not as the
    // bytes of the next chunk.
    ASSERT_TRUE(scan(riff("AVI ", list("hdrl", list("strl", chunk("strh", QByteArray("auds")) + chunk("strf", le16(1)))))
                     + list("movi", chunk("00wb", junk(10)))));
    ASSERT_EQ(m_delay.StreamCount(), 1);
    EXPECT_TRUE(m_delay.StreamIsAudio(0));
    EXPECT_EQ(m_delay.Streams().at(0).dwScale, 0u);
    EXPECT_EQ(m_delay.Streams().at(0).nAvgBytesPerSec, 0u);
    EXPECT_EQ(m_delay.StreamDelay(0), 0);

    // Random bytes, bare and behind a valid AVI header: the scan ends and
    // reports whatever it reports, the same way every time.
    std::mt19937 random(7);
    QByteArray noise(200000, '\0');
    for (char &c : noise)
        c = char(random());
    EXPECT_FALSE(scan(noise));
    const bool first = scan(riff("AVI ", noise));
    const QList<AviStreamRecord> firstStreams = m_delay.Streams();
    EXPECT_EQ(scan(riff("AVI ", noise)), first);
    EXPECT_EQ(m_delay.StreamCount(), firstStreams.size());
}

TEST_F(AviDelayFiles, ReadsAnyFileName)
{
    const QByteArray ac3 = ac3Frames();
    ASSERT_GT(ac3.size(), 1536);
    const QByteArray bytes = avi(audioStreamList(0x2000, 48000), chunk("00wb", junk(100) + ac3.left(1536)));
    const QStringList names{
        QStringLiteral("Grüße, Ŝtrange — 音楽 🎵.avi"),
        QStringLiteral("-leading dash.avi"),
        QStringLiteral("quotes \" and ' and back\\slash.avi"),
        QStringLiteral("line\nbreak\tand tab.avi"),
        QStringLiteral("star * question ? pipe | semicolon ; dollar $HOME.avi"),
        QStringLiteral("file *Add"),
        QStringLiteral("  spaces  .AVI"),
        QString::fromUtf8("e\xcc\x81 combining and \xe2\x80\x8b zero width.avi"),
    };
    for (const QString &name : names) {
        SCOPED_TRACE(name.toStdString());
        ASSERT_TRUE(scan(bytes, name)) << qPrintable(m_delay.ErrorText());
        EXPECT_EQ(m_delay.FileName(), m_dir.filePath(name));
        EXPECT_EQ(m_delay.StreamDelay(0), 2);
    }
}
