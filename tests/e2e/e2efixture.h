#pragma once
// Shared set-up of the end-to-end tests: one X server per test binary, a
// sandboxed program folder per test, the program's trace words, and the
// pointer and keyboard of a user (xdotool).

#include "common/tracelines.h"
#include "support/files.h"
#include "support/mediagen.h"
#include "support/quorvelprocess.h"
#include "support/waituntil.h"
#include "support/xvfb.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <gtest/gtest.h>
#include <memory>

namespace quorvel::test {

// A trace word as a pattern, followed by `rest` (a pattern too).
inline QString traced(const char *word, const QString &rest = {})
{
    return QRegularExpression::escape(QString::fromLatin1(word)) + rest;
}

class E2eTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        if (!s_x)
            s_x = std::make_unique<XvfbServer>();
    }
    void SetUp() override { ASSERT_TRUE(s_x && s_x->isRunning()) << "Xvfb did not start"; }
    std::unique_ptr<QuorvelProcess> launch(const QStringList &args, const QString &folder = {})
    {
        auto p = std::make_unique<QuorvelProcess>(m_box, s_x->display());
        if (!folder.isEmpty())
            p->setWorkingDirectory(folder);
        p->start(args);
        return p;
    }
    // Starts the program and waits until it is the running instance and its
    // window has painted: keys sent to a window not yet shown are lost.
    std::unique_ptr<QuorvelProcess> launchInstance(const QStringList &args)
    {
        auto p = launch(args);
        EXPECT_TRUE(p->waitForLog(traced(trace::kInstanceReady)).hasMatch()) << p->log().toStdString();
        EXPECT_TRUE(p->waitForLog(traced(trace::kFirstPaint)).hasMatch()) << p->log().toStdString();
        return p;
    }
    QString copyOf(const QString &clip, const QString &name)
    {
        const QString path = m_box.path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile::copy(clip, path);
        return path;
    }
    // The settings file's lines (0-based), CR LF cut off.
    QList<QByteArray> configLines()
    {
        QList<QByteArray> lines = readFile(m_box.configPath()).split('\n');
        for (QByteArray &l : lines)
            l = l.trimmed();
        return lines;
    }
    QString preferencesPath() const { return m_box.homeDir() + u"/.config/quorvel/quorvel.conf"_qs; }
    // Edits one line (0-based) of the sandbox's settings file, writing the
    // defaults first when there is none yet.
    void setConfigLine(int line, const QByteArray &value)
    {
        if (!QFile::exists(m_box.configPath())) {
            auto first = launchInstance({});
            first->close();
        }
        QList<QByteArray> lines = readFile(m_box.configPath()).split('\n');
        ASSERT_GT(lines.size(), line);
        lines[line] = value + "\r";
        ASSERT_TRUE(writeFile(m_box.configPath(), lines.join('\n')));
    }
    // Runs xdotool with the program window's id put in for "W"; returns what it printed.
    QString xdo(QStringList args)
    {
        QString out;
        if (args.contains(u"W"_qs)) {
            const QString wid = xdo({u"search"_qs, u"--sync"_qs, u"--name"_qs, u"^Quorvel"_qs}).section(u'\n', 0, 0);
            args.replaceInStrings(QRegularExpression(u"^W$"_qs), wid);
        }
        QProcess p;
        p.setProcessEnvironment(x().environment());
        p.start(QStringLiteral("xdotool"), args);
        p.waitForFinished(30000);
        return QString::fromLatin1(p.readAllStandardOutput()).trimmed();
    }
    // Keys to the program's window (xdotool key syntax), in order; the
    // program handles them in the order they come, menus included.
    // `window` is an id from windowNamed(), or "W" for the program's window.
    void keys(const QStringList &sequence, const QString &window = u"W"_qs)
    {
        xdo({u"windowfocus"_qs, u"--sync"_qs, window});
        xdo(QStringList{u"key"_qs} + sequence);
    }
    // The pointer moves there (and arrives) before the button goes down.
    void clickAt(int px, int py, const char *action = "click")
    {
        xdo({u"mousemove"_qs, u"--window"_qs, u"W"_qs, u"--sync"_qs, QString::number(px), QString::number(py)});
        xdo({QString::fromLatin1(action), u"1"_qs});
    }
    void drag(int x1, int y1, int x2, int y2)
    {
        clickAt(x1, y1, "mousedown");
        for (int i = 1; i <= 6; ++i)
            xdo({u"mousemove"_qs, u"--window"_qs, u"W"_qs, u"--sync"_qs, QString::number(x1 + (x2 - x1) * i / 6),
                 QString::number(y1 + (y2 - y1) * i / 6)});
        xdo({u"mouseup"_qs, u"1"_qs});
    }
    QString windowNamed(const QString &pattern)
    {
        return xdo({u"search"_qs, u"--sync"_qs, u"--name"_qs, pattern}).section(u'\n', 0, 0);
    }
    QSize windowSize(const QString &window = u"W"_qs)
    {
        const auto m = QRegularExpression(u"Geometry: (\\d+)x(\\d+)"_qs).match(xdo({u"getwindowgeometry"_qs, window}));
        return m.hasMatch() ? QSize(m.captured(1).toInt(), m.captured(2).toInt()) : QSize();
    }
    bool waitForSize(const std::function<bool(QSize)> &ok)
    {
        return waitUntil([&] { return ok(windowSize()); }, std::chrono::seconds(20));
    }
    // A screenshot for a reviewer, cut to `size` when given; returns the picture.
    QImage shoot(const QString &name, QSize size = {})
    {
        const QString path = outputDir() + u'/' + name;
        EXPECT_TRUE(x().screenshot(path)) << name.toStdString();
        QImage image(path);
        if (size.isValid())
            (image = image.copy(QRect(QPoint(), size))).save(path);
        return image;
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
