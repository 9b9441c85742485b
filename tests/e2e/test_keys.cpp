// The keys of the menu bar and the player keys, in the window and in full
// screen, where the menu bar is hidden.
#include "e2efixture.h"

using namespace quorvel::test;

TEST_F(E2eTest, KeysWorkInTheWindowAndInFullScreen)
{
    const QString clip = makeClip(QStringLiteral("e2e-keys.mp4"), 30, QStringLiteral("160x120"));
    auto q = launchInstance({clip});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("tick state=3 time=[1-9]")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("Down")}); // in the window
    ASSERT_TRUE(q->waitForLog(QStringLiteral("volume 95")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("ctrl+f")});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("full screen true")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("space")});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("media control 2")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("space"), QStringLiteral("Right")});
    // The first tick after the key is ten seconds on.
    const auto tick = q->waitForLog(QStringLiteral("key \"Right\"[\\s\\S]*?tick state=3 time=(\\d+)"));
    ASSERT_TRUE(tick.hasMatch()) << q->log().toStdString();
    EXPECT_GE(tick.captured(1).toInt(), 10000) << q->log().toStdString();
    keys({QStringLiteral("Down")});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("volume 90")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("ctrl+s")});
    ASSERT_TRUE(q->waitForLog(QStringLiteral("menu \"Stop\"")).hasMatch()) << q->log().toStdString();
    keys({QStringLiteral("Escape")});
    EXPECT_TRUE(q->waitForLog(QStringLiteral("full screen false")).hasMatch()) << q->log().toStdString();
}
