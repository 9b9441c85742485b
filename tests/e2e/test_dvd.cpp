// A DVD-Video folder in the real program: given on the command line and
// chosen with "Open DVD folder or image...", it plays through libVLC as the
// one "Video DVD" row of the playlist. Then F1 hands the user guide to the
// desktop's browser.
#include "e2efixture.h"

#include <QRegularExpression>
#include <QUrl>

using namespace quorvel;
using namespace quorvel::test;

TEST_F(E2eTest, ADvdFolderPlaysFromTheCommandLineAndOpenDvdFolderOrImageAndF1OpensTheGuide)
{
    // A name with a blank and a '#', which libVLC would read as a title number.
    const QString made = makeDvdFolder(u"e2e-dvd"_qs, 6);
    ASSERT_FALSE(made.isEmpty());
    const QString folder = m_box.path(u"My Film #1"_qs);
    QDir().mkpath(folder + u"/VIDEO_TS"_qs);
    for (const QString &f : QDir(made + u"/VIDEO_TS"_qs).entryList(QDir::Files))
        QFile::copy(made + u"/VIDEO_TS/"_qs + f, folder + u"/VIDEO_TS/"_qs + f);
    const QString row = QString::fromLatin1(trace::kAdded) + u" \"dvd://"_qs + folder + u"\" "_qs
                        + QString::fromLatin1(trace::kAsEntry) + u" 0 info \"Video DVD\""_qs;
    // The desktop's opener stands in for the browser and notes what it got.
    const QString opened = m_box.path(u"opened.txt"_qs);
    const QString opener = m_box.path(u"xdg-open"_qs);
    ASSERT_TRUE(writeFile(opener, ("#!/bin/sh\necho \"$1\" > '" + opened + "'\n").toUtf8()));
    QFile::setPermissions(opener, QFile::permissions(opener) | QFile::ExeOwner);

    auto q = std::make_unique<QuorvelProcess>(m_box, x().display());
    q->setEnv(u"PATH"_qs, m_box.path(QString()) + u':' + qEnvironmentVariable("PATH"));
    q->start({folder});
    for (int start = 1; start <= 2; ++start) {
        ASSERT_TRUE(q->waitForCount(row, start)) << q->log().toStdString();
        ASSERT_TRUE(q->waitForCount(QString::fromLatin1(trace::kEnginePlaying), start)) << q->log().toStdString();
        const QRegularExpression playing(traced(trace::kTick, u"3 time=[1-9]\\d{2,}"_qs));
        ASSERT_TRUE(waitUntil([&] { return q->log().split(row).last().contains(playing); })) << q->log().toStdString();
        EXPECT_TRUE(x().screenshot(outputDir() + u"/dvd-%1.png"_qs.arg(start)));
        if (start == 2)
            break;
        // File > Open > Open DVD > (no drives) "Open DVD folder or image...".
        keys({u"alt+f"_qs, u"Right"_qs, u"Down"_qs, u"Right"_qs, u"Up"_qs, u"Return"_qs});
        const QString dialog = xdo({u"search"_qs, u"--sync"_qs, u"--name"_qs, u"^Open DVD folder or image"_qs});
        ASSERT_FALSE(dialog.isEmpty());
        xdo({u"windowfocus"_qs, u"--sync"_qs, dialog.split(u'\n').first()});
        xdo({u"type"_qs, u"--delay"_qs, u"2"_qs, folder});
        xdo({u"key"_qs, u"Return"_qs});
    }
    EXPECT_FALSE(q->log().contains(QString::fromLatin1(trace::kMessageShown))) << q->log().toStdString();

    keys({u"F1"_qs});
    ASSERT_TRUE(waitUntil([&] { return QFileInfo(opened).size() > 0; })) << q->log().toStdString();
    const QString guide = QUrl::fromUserInput(QString::fromUtf8(readFile(opened)).trimmed()).toLocalFile();
    EXPECT_EQ(guide, m_box.programDir() + u"/help/index.html"_qs);
    EXPECT_TRUE(readFile(guide).contains("Keyboard shortcuts"));
    EXPECT_TRUE(q->close());
}
