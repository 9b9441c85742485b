// The recent-file history with the real program: played files land in the
// store file in play order, and after a restart the menu plays them again.
#include "e2efixture.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace quorvel::test;

TEST_F(E2eTest, HistoryKeepsPlayOrderAndPlaysAgainAfterRestart)
{
    setConfigLine(3, " 0 "); // no repeat: each clip plays once
    const QString c = makeClip(QStringLiteral("e2e-order.mp4"), 2, QStringLiteral("160x120"));
    const QStringList files = {copyOf(c, QStringLiteral("one.mp4")), copyOf(c, QStringLiteral("two, #2.mp4")),
                               copyOf(c, QStringLiteral("three.mp4"))};
    auto q = launchInstance({files[0]});
    for (int i = 1; i < 3; ++i)
        EXPECT_TRUE(launch({files[i]})->waitForExit());
    ASSERT_TRUE(waitForCount(*q, QStringLiteral("history added"), 3)) << q->log().toStdString();
    q->terminate();
    ASSERT_TRUE(q->waitForExit());

    QFile store(m_box.homeDir() + QStringLiteral("/.config/quorvel/registry.json"));
    ASSERT_TRUE(store.open(QIODevice::ReadOnly));
    const QJsonObject names = QJsonDocument::fromJson(store.readAll())
                                  .object()
                                  .value(u"Software/Brenlow/Quorvel/RecentFileNames"_qs)
                                  .toObject();
    EXPECT_EQ(names.size(), 3);
    for (int n = 0; n < 3; ++n)
        EXPECT_EQ(names.value(QString::number(n)).toString(), files[n]) << n;

    // File > Recently Played Files > the second entry.
    auto again = launchInstance({});
    ASSERT_TRUE(again->waitForLog(QStringLiteral("history loaded: 3 entries")).hasMatch())
        << again->log().toStdString();
    keys({QStringLiteral("alt+f"), QStringLiteral("Down"), QStringLiteral("Right")});
    EXPECT_TRUE(x().screenshot(outputDir() + QStringLiteral("/history-menu.png")));
    keys({QStringLiteral("Down"), QStringLiteral("Return")});
    ASSERT_TRUE(again->waitForLog(QStringLiteral("started \"[^\"]*two, #2.mp4\"")).hasMatch())
        << again->log().toStdString();
}
