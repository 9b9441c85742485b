// Audio start delays of AVI files: files ffmpeg writes, and hand-made files
// with a known number of bytes before the first AC-3 or MPEG frame.

#include "media/avidelay.h"
#include "support/mediagen.h"
#include "test_riffbuilder.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace quorvel::test;

namespace {

QByteArray toneFrames(const QString &name, const QString &codec)
{
    const QString path = makeMedia(name, u"-f lavfi -i sine=frequency=440:sample_rate=48000:duration=1 "_qs + codec);
    return path.isEmpty() ? QByteArray() : readFile(path);
}

QString aviArgs(const QString &audio, const QString &audioInput = {})
{
    return u"-f lavfi -i testsrc2=size=64x48:rate=25:duration=1 "_qs + audioInput
           + u" -f lavfi -i sine=frequency=440:sample_rate=48000:duration=1 -c:v mpeg4 "_qs + audio;
}

// Delays of every stream, 'a' or 'v' per stream, or "fail".
QString scanText(const QString &path)
{
    clsAVIDelay delay;
    if (!delay.OpenFile(path))
        return QStringLiteral("fail");
    QString s;
    for (int i = 0; i < delay.StreamCount(); ++i)
        s += (delay.StreamIsAudio(i) ? u"a"_qs : u"v"_qs) + QString::number(delay.StreamDelay(i)) + u' ';
    return s.trimmed();
}

} // namespace

TEST(AviDelay, FilesFromFfmpeg)
{
    // ffmpeg puts each audio frame in a chunk of its own and writes no stream
    // start, even for audio that starts late: every audio delay is 0. Its
    // default MP3 settings leave the byte rate at 0, so a sync cannot become a time.
    const QString mp3 = u"-c:a libmp3lame -b:a 128k"_qs;
    const std::tuple<QString, QString, const char *> cases[] = {
        {u"riff-ac3-late.avi"_qs, aviArgs(u"-c:a ac3"_qs, u"-itsoffset 0.5"_qs), "v-1 a0"},
        {u"riff-mp3.avi"_qs, aviArgs(mp3), "v-1 a0"},
        {u"riff-two-audio.avi"_qs, aviArgs(u"-map 0 -map 1 -map 1 -c:a:0 ac3 -c:a:1 libmp3lame -b:a:1 128k"_qs),
         "v-1 a0 a0"},
        {u"riff-pcm.avi"_qs, u"-f lavfi -i sine=duration=1 -c:a pcm_s16le"_qs, "a0"},
        {u"riff-mp3-vbr.avi"_qs, aviArgs(u"-c:a libmp3lame"_qs), "fail"},
    };
    for (const auto &[name, args, want] : cases) {
        const QString path = makeMedia(name, args);
        ASSERT_FALSE(path.isEmpty()) << name.toStdString();
        EXPECT_EQ(scanText(path), QString::fromLatin1(want)) << name.toStdString();
    }

    // The same MP3 file with a start of 21 written into the audio stream
    // header, as other muxers do for late audio: 21 x 3 / 125 s = 504 ms.
    QByteArray bytes = readFile(makeMedia(u"riff-mp3.avi"_qs, aviArgs(mp3)));
    const qsizetype auds = bytes.indexOf("auds");
    ASSERT_GT(auds, 0);
    ASSERT_EQ(qFromLittleEndian<quint32>(bytes.constData() + auds + 20), 3u); // dwScale, then dwRate
    ASSERT_EQ(qFromLittleEndian<quint32>(bytes.constData() + auds + 24), 125u);
    qToLittleEndian<quint32>(21, bytes.data() + auds + 28);
    QTemporaryDir dir;
    ASSERT_TRUE(writeFile(dir.filePath(u"start.avi"_qs), bytes));
    EXPECT_EQ(scanText(dir.filePath(u"start.avi"_qs)), u"v-1 a504"_qs);
}

TEST(AviDelay, HandMadeFiles)
{
    const QByteArray ac3 = toneFrames(u"riff-tone.ac3"_qs, u"-ac 2 -c:a ac3 -b:a 384k"_qs).left(3072);
    const QByteArray mp3
        = toneFrames(u"riff-tone.mp3"_qs, u"-c:a libmp3lame -b:a 128k -write_xing 0 -id3v2_version 0"_qs).left(417);
    ASSERT_EQ(ac3.size(), 3072); // two AC-3 frames of 1536 bytes: 48000 bytes a second
    ASSERT_EQ(ac3.left(2), QByteArray("\x0b\x77"));
    ASSERT_EQ(mp3.left(2), QByteArray("\xff\xfb"));
    const QByteArray frame = ac3.left(1536), video = chunk("00dc", QByteArray(300, '\x01'));
    // Stream lists: AC-3 at 48,000 or 1,000 bytes a second, MPEG audio at 1,000, and a video before AC-3.
    const QByteArray ac3At48k = audioStreamList(0x2000, 48000), ac3At1k = audioStreamList(0x2000, 1000);
    const QByteArray mpegAt1k = audioStreamList(0x55, 1000), vAc3 = videoStreamList() + ac3At48k;
    const auto a0 = [](const QByteArray &data) { return chunk("00wb", data); }; // audio of stream 0
    const auto with = [](QByteArray b, qsizetype at, const QByteArray &bytes) {
        return b.replace(at, bytes.size(), bytes);
    };
    QByteArray noSync;
    for (int i = 0; i < 15; ++i)
        noSync += a0(junk(100000));
    const QByteArray whole = avi(ac3At48k, a0(junk(100) + frame) + a0(ac3.mid(1536)));
    const QByteArray lateAudio = chunk("01wb", junk(100) + frame);

    const std::tuple<const char *, QByteArray, const char *> cases[] = {
        // Bytes before the first sync, at the stream's byte rate, plus its start.
        {"100 bytes before AC-3: 2.08 ms", avi(vAc3, video + chunk("01wb", junk(100) + frame) + video), "v-1 a2"},
        {"MP3 at its sync, start 5 x 1152 / 48 kHz",
         avi(videoStreamList() + audioStreamList(0x55, 16000, 1152, 48000, 5), video + chunk("01wb", mp3)), "v-1 a120"},
        {"PCM is never searched", avi(audioStreamList(1, 48000), a0(junk(4800))), "a0"},
        {"search goes on in the stream's next chunk",
         avi(vAc3, chunk("01wb", junk(1000)) + video + chunk("01wb", junk(10) + frame)), "v-1 a21"},
        {"odd chunk counts its pad byte", avi(ac3At1k, a0(junk(101)) + a0(frame)), "a102"},
        // Where a sync may lie.
        {"pair across the search's blocks", avi(ac3At1k, a0(with(junk(70000), 65535, "\x0b\x77"))), "a65535"},
        {"pair split between chunks", avi(ac3At48k, a0(with(junk(64), 63, "\x0b")) + chunk("wxyz", "ab")), "a-1"},
        {"MPEG wants both low bits", avi(mpegAt1k, a0(with(with(junk(40), 10, "\xff\xfa"), 20, "\xff\xf3"))), "a20"},
        // Rounding: to the even neighbour, the byte term first.
        {"62.5 ms", avi(audioStreamList(0x2000, 2048), a0(junk(128) + "\x0b\x77")), "a62"},
        {"187.5 ms", avi(audioStreamList(0x2000, 2048), a0(junk(384) + "\x0b\x77")), "a188"},
        {"1 + 62.5 = 63.5 -> 64", avi(audioStreamList(0x2000, 1000, 1, 16, 1), a0(junk(1) + "\x0b\x77")), "a64"},
        {"a rate of 0 is taken as 1", avi(audioStreamList(1, 1000, 2, 0, 3), a0(junk(8))), "a6000"},
        // Limits of the scan.
        {"1,500,000 bytes without a sync", avi(ac3At48k, noSync), "a-1"},
        {"one chunk more: given up", avi(ac3At48k, noSync + a0(junk(2))), "a-2"},
        {"audio past byte 2,500,000",
         riff("AVI ", list("hdrl", vAc3) + chunk("JUNK", QByteArray(2'600'000, '\0')) + list("movi", lateAudio)),
         "v-1 a-1"},
        {"audio just before it",
         riff("AVI ", list("hdrl", vAc3) + chunk("JUNK", QByteArray(2'400'000, '\0')) + list("movi", lateAudio)),
         "v-1 a2"},
        // Broken files (the fuzzer walks many more).
        {"not AVI", riff("WAVE", chunk("fmt ", QByteArray(16, '\0'))), "fail"},
        {"cut behind the delay", whole.left(whole.size() - 500), "a2"},
        {"audio chunk claims 4 GiB", avi(ac3At48k, "00wb" + le32(0xFFFFFFF0) + junk(100) + frame), "fail"},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath(u"test.avi"_qs);
    for (const auto &[what, file, want] : cases) {
        ASSERT_TRUE(writeFile(path, file));
        EXPECT_EQ(scanText(path), QString::fromLatin1(want)) << what;
    }
    EXPECT_EQ(scanText(dir.filePath(u"missing.avi"_qs)), u"fail"_qs);
}
