// Audio tracks and subtitles with the real program and libVLC: the preferred
// language plays, the Play menu switches tracks and moves the subtitle
// delay, the choice comes back for the file with its place, and a subtitle
// file beside a clip loads by itself.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

namespace {

class TracksTest : public E2eTest {
protected:
    QString subtitleFile(const QString &name, const char *text)
    {
        EXPECT_TRUE(writeFile(m_box.path(name), QByteArray("1\n00:00:00,000 --> 00:01:00,000\n") + text + "\n"));
        return m_box.path(name);
    }
    // Two audio tracks (English commentary first, then Japanese) and two
    // subtitle tracks (English, Japanese).
    QString film()
    {
        const QString en = subtitleFile(u"en.srt"_qs, "English"), ja = subtitleFile(u"ja.srt"_qs, "Japanese");
        const QString inputs
            = u"-f lavfi -i testsrc2=size=320x240:duration=90 -f lavfi -i sine=frequency=440:duration=90 "
              u"-f lavfi -i sine=frequency=660:duration=90"_qs;
        const QString streams = u"-map 0 -map 1 -map 2 -map 3 -map 4 -c:s srt -metadata:s:a:0 language=eng "
                                u"-metadata:s:a:0 title=Commentary -metadata:s:a:1 language=jpn "
                                u"-metadata:s:s:0 language=eng -metadata:s:s:1 language=jpn"_qs;
        return makeMedia(u"e2e-tracks-90s.mkv"_qs,
                         inputs.split(u' ') + QStringList{u"-i"_qs, en, u"-i"_qs, ja} + streams.split(u' '));
    }
    void writePreferences(const QByteArray &lines) { ASSERT_TRUE(writeFile(preferencesPath(), lines)); }
    // A picture of the screen once it has stopped changing (playback paused).
    void settledShot(const QString &name)
    {
        QImage last;
        EXPECT_TRUE(waitUntil([&] {
            const QImage now = shoot(name, QSize(600, 560));
            return std::exchange(last, now) == now;
        }));
    }
};

} // namespace

TEST_F(TracksTest, PreferredAudioPlaysTheMenuSwitchesAndTheFileKeepsTheChoice)
{
    writePreferences("[Tracks]\nAudioLanguages=ja\nSkipCommentary=true\n");
    const QString clip = copyOf(film(), u"film.mkv"_qs);
    auto q = launchInstance({clip});
    ASSERT_TRUE(q->waitForLog(traced(trace::kAudioTrack, u" \\d+ \"jpn\""_qs)).hasMatch()) << q->log().toStdString();
    const auto listed = q->waitForLog(traced(trace::kTracksListed,
                                             u" audio (\\d+) \"eng\" \"Commentary\", \\d+ \"jpn\" "
                                             u"\"\" ; subtitles \\d+ \"eng\".*\"jpn\""_qs));
    ASSERT_TRUE(listed.hasMatch()) << q->log().toStdString();
    const QString commentary = QString::fromLatin1(trace::kAudioTrack) + u' ' + listed.captured(1) + u" \"eng\""_qs;
    ASSERT_TRUE(q->waitForLog(u"tick state=3 time=[1-9]"_qs).hasMatch());
    keys({u"Right"_qs, u"Right"_qs, u"Right"_qs, u"Right"_qs}); // to 0:40, a place worth keeping
    ASSERT_TRUE(q->waitForLog(u"tick state=3 time=[4-9]\\d{4}"_qs).hasMatch()) << q->log().toStdString();
    keys({u"space"_qs}); // paused, so that the pictures settle
    ASSERT_TRUE(q->waitForLog(traced(trace::kMediaControl, u" 2"_qs)).hasMatch());

    // The video's pop-up menu: Play > Audio track > "English - Commentary".
    xdo({u"mousemove"_qs, u"--window"_qs, u"W"_qs, u"--sync"_qs, u"150"_qs, u"150"_qs});
    xdo({u"click"_qs, u"3"_qs});
    keys({u"Up"_qs, u"Up"_qs, u"Right"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kTrackMenuOpened, u" \"mnuAudioTrackMenu\""_qs)).hasMatch())
        << q->log().toStdString();
    settledShot(u"tracks-audio-menu.png"_qs);
    const int before = q->count(commentary); // the file's default, before the preferences
    keys({u"Return"_qs});
    ASSERT_TRUE(q->waitForCount(commentary, before + 1)) << q->log().toStdString();

    keys({u"ctrl+shift+Right"_qs, u"ctrl+shift+Right"_qs, u"ctrl+shift+Right"_qs, u"ctrl+shift+Left"_qs});
    ASSERT_TRUE(q->waitForLog(u"note shown: Subtitle delay: 200 ms"_qs).hasMatch()) << q->log().toStdString();
    EXPECT_TRUE(q->log().contains(QString::fromLatin1(trace::kSubtitleDelay) + u" 200"_qs));
    settledShot(u"tracks-subtitle-delay.png"_qs);
    ASSERT_TRUE(q->close());

    // The file starts again at its place with the user's track, not the
    // preferred one: both are kept in the one store, neither undoes the other.
    auto again = launchInstance({clip});
    EXPECT_TRUE(again->waitForLog(traced(trace::kResumed, u" [3-9]\\d{4} "_qs)).hasMatch())
        << again->log().toStdString();
    const QString kept = u" memory: audio "_qs + listed.captured(1) + u" subtitle -?\\d+ delay 200"_qs;
    ASSERT_TRUE(again->waitForLog(traced(trace::kTracksChosen, kept)).hasMatch()) << again->log().toStdString();
    ASSERT_TRUE(
        again->waitForLog(traced(trace::kTracksChosen, u"[^\\n]*\\n[\\s\\S]*tick state=3 time="_qs)).hasMatch());
    EXPECT_FALSE(again->log().contains(QRegularExpression(traced(trace::kAudioTrack, u" \\d+ \"jpn\""_qs))));
}

TEST_F(TracksTest, ASubtitleFileBesideAClipLoadsByItself)
{
    const QString clip = copyOf(makeClip(u"e2e-tracks-plain.mp4"_qs, 20, u"160x120"_qs), u"plain.mp4"_qs);
    subtitleFile(u"plain.srt"_qs, "Beside the clip");
    auto q = launchInstance({clip});
    EXPECT_TRUE(q->waitForLog(traced(trace::kTracksListed, u" audio \\d+[^;]*; subtitles \\d+"_qs)).hasMatch())
        << q->log().toStdString();
}
