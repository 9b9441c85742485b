#pragma once
// Shared set-up of the end-to-end tests: one X server per test binary, a
// sandboxed program folder per test, and a place for screenshots.

#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/xvfb.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <memory>

namespace quorvel::test {

class E2eTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        if (!s_x)
            s_x = std::make_unique<XvfbServer>();
    }
    void SetUp() override
    {
        ASSERT_TRUE(s_x && s_x->isRunning()) << "Xvfb did not start";
        ASSERT_TRUE(m_box.isValid());
    }
    std::unique_ptr<QuorvelProcess> launch(const QStringList &args)
    {
        auto p = std::make_unique<QuorvelProcess>(m_box, s_x->display());
        p->start(args);
        return p;
    }
    // Starts the program and waits until it is the running instance.
    std::unique_ptr<QuorvelProcess> launchInstance(const QStringList &args)
    {
        auto p = launch(args);
        EXPECT_TRUE(p->waitForLog(QStringLiteral("running instance ready")).hasMatch()) << p->log().toStdString();
        return p;
    }
    QString copyOf(const QString &clip, const QString &name)
    {
        const QString path = m_box.path(name);
        QFile::copy(clip, path);
        return path;
    }
    static QString outputDir()
    {
        const QString dir = QStringLiteral(QUORVEL_PROGRAM_DIR) + QStringLiteral("/test-output");
        QDir().mkpath(dir);
        return dir;
    }
    static XvfbServer &x() { return *s_x; }

    Sandbox m_box;
    static inline std::unique_ptr<XvfbServer> s_x;
};

} // namespace quorvel::test
