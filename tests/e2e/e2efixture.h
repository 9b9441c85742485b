#pragma once
// Shared set-up of the end-to-end tests: one X server per test binary, a
// sandboxed program folder per test, and a place for screenshots.

#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/waituntil.h"
#include "support/xvfb.h"

#include <QDir>
#include <QFile>
#include <QThread>
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
    // Edits one line (0-based) of the sandbox's settings file, writing the
    // defaults first when there is none yet.
    void setConfigLine(int line, const QByteArray &value)
    {
        if (!QFile::exists(m_box.configPath())) {
            auto first = launchInstance({});
            first->terminate();
            first->waitForExit();
        }
        QFile cfg(m_box.configPath());
        ASSERT_TRUE(cfg.open(QIODevice::ReadOnly));
        QList<QByteArray> lines = cfg.readAll().split('\n');
        cfg.close();
        ASSERT_GT(lines.size(), line);
        lines[line] = value + "\r";
        ASSERT_TRUE(cfg.open(QIODevice::WriteOnly | QIODevice::Truncate));
        cfg.write(lines.join('\n'));
    }
    // Waits until `text` stands `count` times in the program's trace.
    static bool waitForCount(QuorvelProcess &q, const QString &text, int count, int timeoutMs = 60000)
    {
        waitUntil([&] { return q.log().count(text) >= count || !q.isRunning(); }, std::chrono::milliseconds(timeoutMs));
        return q.log().count(text) >= count;
    }
    // Sends keys to the program's window (xdotool key syntax).
    void keys(const QStringList &sequence)
    {
        QProcess find;
        find.setProcessEnvironment(x().environment());
        find.start(QStringLiteral("xdotool"),
                   {QStringLiteral("search"), QStringLiteral("--name"), QStringLiteral("^Quorvel")});
        find.waitForFinished(10000);
        const QString wid = QString::fromLatin1(find.readAll()).split(u'\n').value(0).trimmed();
        ASSERT_FALSE(wid.isEmpty()) << "no program window";
        QProcess focus;
        focus.setProcessEnvironment(x().environment());
        focus.start(QStringLiteral("xdotool"), {QStringLiteral("windowfocus"), QStringLiteral("--sync"), wid});
        focus.waitForFinished(10000);
        for (const QString &k : sequence) {
            QProcess key;
            key.setProcessEnvironment(x().environment());
            key.start(QStringLiteral("xdotool"), {QStringLiteral("key"), k});
            key.waitForFinished(10000);
            QThread::msleep(250); // menus open asynchronously
        }
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
