// The equalizer with the real program and libVLC: a preset chosen in
// Tools > Equalizer... plays at once, is kept in "quorvel.conf" and plays
// with the next start; Escape takes a change back.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

namespace {

class EqualizerTest : public E2eTest {
protected:
    // "equalizer on preamp=<dB> bands=<b1>,...,<b10>": the levels after "on".
    static const inline QString kLevels = traced(trace::kEqualizerOn, u" (preamp=\\S+ bands=\\S+)"_qs);

    std::unique_ptr<QuorvelProcess> playing(const QString &clip)
    {
        auto q = launchInstance({clip});
        EXPECT_TRUE(q->waitForLog(traced(trace::kTick, u"3"_qs)).hasMatch()) << q->log().toStdString();
        return q;
    }
    // Tools > Equalizer... (the third entry); returns the dialog's window.
    QString openEqualizer(QuorvelProcess &q)
    {
        const int shown = q.count(QString::fromLatin1(trace::kDialogShown) + u" \"Equalizer\""_qs);
        keys({u"alt+t"_qs, u"Down"_qs, u"Down"_qs, u"Return"_qs});
        EXPECT_TRUE(q.waitForCount(QString::fromLatin1(trace::kDialogShown) + u" \"Equalizer\""_qs, shown + 1))
            << q.log().toStdString();
        return windowNamed(u"^Equalizer$"_qs);
    }
    // Every equalizer the engine was given, in order.
    static QStringList levelsHeard(const QuorvelProcess &q)
    {
        QStringList heard;
        for (auto it = QRegularExpression(kLevels).globalMatch(q.log()); it.hasNext();)
            heard << it.next().captured(1);
        return heard;
    }
    QString conf() { return QString::fromUtf8(readFile(preferencesPath())); }
};

} // namespace

TEST_F(EqualizerTest, APresetPlaysAtOnceIsKeptAndPlaysAfterARestart)
{
    const QString clip = copyOf(makeClip(u"e2e-20s.mp4"_qs, 20, u"160x120"_qs), u"song.mp4"_qs);
    auto q = playing(clip);
    EXPECT_FALSE(q->log().contains(QString::fromLatin1(trace::kEqualizerOn))); // off until set
    const QString dialog = openEqualizer(*q);
    keys({u"End"_qs}, dialog); // the last preset
    const QString heard = q->waitForLog(kLevels).captured(1);
    ASSERT_FALSE(heard.isEmpty()) << q->log().toStdString();
    shoot(u"equalizer-dialog.png"_qs);
    keys({u"Return"_qs}, dialog);
    ASSERT_TRUE(q->waitForLog(traced(trace::kDialogClosed, u" \"Equalizer\" accepted"_qs)).hasMatch());
    // The dialog has closed; the file is written as the menu command ends.
    ASSERT_TRUE(waitUntil([&] { return conf().contains(u"Enabled=true\n"_qs); })) << conf().toStdString();
    const QString kept = conf();
    const auto bands = QRegularExpression(u"\nBands=(.*)\n"_qs).match(kept);
    EXPECT_TRUE(heard.endsWith(u"bands="_qs + bands.captured(1).remove(u' '))) << kept.toStdString();
    ASSERT_TRUE(q->close());

    // The next start plays the kept levels from its first item on.
    auto again = playing(clip);
    EXPECT_EQ(again->waitForLog(kLevels).captured(1), heard) << again->log().toStdString();
    // Another preset is heard at once; Escape brings back the kept one and leaves the file alone.
    const QString second = openEqualizer(*again);
    keys({u"Home"_qs}, second);
    ASSERT_TRUE(again->waitForCount(QString::fromLatin1(trace::kEqualizerOn), 2));
    keys({u"Escape"_qs}, second);
    ASSERT_TRUE(again->waitForLog(traced(trace::kDialogClosed, u" \"Equalizer\" rejected"_qs)).hasMatch());
    ASSERT_TRUE(again->waitForCount(QString::fromLatin1(trace::kEqualizerOn), 3));
    const QStringList heardAgain = levelsHeard(*again);
    ASSERT_EQ(heardAgain.size(), 3) << again->log().toStdString();
    EXPECT_NE(heardAgain[1], heard);
    EXPECT_EQ(heardAgain[2], heard);
    EXPECT_EQ(conf(), kept);
}
