// Playing on into the folder with the real program: when the last item of
// the list ends, the next file of its folder in natural order plays.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

TEST_F(E2eTest, WhenTheListEndsTheNextFileOfTheFolderPlaysInNaturalOrder)
{
    setConfigLine(3, " 0 "); // RepeatMode: no repeat, so the list of one ends
    ASSERT_TRUE(writeFile(preferencesPath(), "[Folders]\nPlayNextInFolder=true\n"));
    const QString clip = makeClip(u"e2e-folder-2s.mp4"_qs, 2, u"160x120"_qs);
    for (const char *name : {"ep1", "ep2", "ep10"})
        copyOf(clip, u"show/%1.mp4"_qs.arg(QLatin1String(name)));

    auto q = launchInstance({m_box.path(u"show/ep2.mp4"_qs)});
    const QString ep10 = traced(trace::kStarted, u" \"[^\"]*/show/ep10\\.mp4\""_qs);
    ASSERT_TRUE(q->waitForLog(ep10).hasMatch()) << q->log().toStdString();
    shoot(u"folder-next-playing.png"_qs, QSize(388, 515));
    // ep2, then straight on to ep10: ep1 comes before ep2 and does not play.
    QStringList order;
    const QRegularExpression started(traced(trace::kStarted, u" \"[^\"]*/show/(ep\\d+)\\.mp4\""_qs));
    for (auto it = started.globalMatch(q->log()); it.hasNext();)
        order << it.next().captured(1);
    EXPECT_EQ(order, (QStringList{u"ep2"_qs, u"ep10"_qs})) << q->log().toStdString();
}
