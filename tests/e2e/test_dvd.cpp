// DVD-Video folders in the real program: given on the command line and
// chosen with "Open DVD folder or image...", each plays through libVLC as
// the one "Video DVD" row of the playlist. And F1 hands the user guide to the
// desktop's browser.
#include "e2efixture.h"

#include <QRegularExpression>
#include <QUrl>

using namespace quorvel::test;

namespace {

class DvdTest : public E2eTest {
protected:
    static QString xdo(const QStringList &args)
    {
        QProcess p;
        p.setProcessEnvironment(x().environment());
        p.start(u"xdotool"_qs, args);
        p.waitForFinished(30000);
        return QString::fromLatin1(p.readAllStandardOutput()).trimmed();
    }
    // A copy of the generated DVD folder under a name with a blank and a '#'.
    QString dvdFolder()
    {
        const QString made = makeDvdFolder(u"e2e-dvd"_qs, 6);
        EXPECT_FALSE(made.isEmpty());
        const QString copy = m_box.path(u"My Film #1"_qs);
        QDir().mkpath(copy + u"/VIDEO_TS"_qs);
        for (const QString &f : QDir(made + u"/VIDEO_TS"_qs).entryList(QDir::Files))
            QFile::copy(made + u"/VIDEO_TS/"_qs + f, copy + u"/VIDEO_TS/"_qs + f);
        return copy;
    }
    static void expectDvdPlays(QuorvelProcess &q, const QString &folder, const QString &shot)
    {
        ASSERT_TRUE(q.waitForLog(u"added \"dvd://"_qs + QRegularExpression::escape(folder)
                                 + u"\" as entry 0 info \"Video DVD\""_qs)
                        .hasMatch())
            << q.log().toStdString();
        ASSERT_TRUE(q.waitForLog(u"engine playing"_qs).hasMatch()) << q.log().toStdString();
        ASSERT_TRUE(q.waitForLog(u"tick state=3 time=[1-9]\\d{2,}"_qs).hasMatch()) << q.log().toStdString();
        EXPECT_FALSE(q.log().contains(u"message shown"_qs)) << q.log().toStdString();
        EXPECT_TRUE(x().screenshot(outputDir() + shot));
    }
};

} // namespace

TEST_F(DvdTest, ADvdFolderOnTheCommandLinePlaysAsTheVideoDvdRow)
{
    const QString folder = dvdFolder();
    auto q = launchInstance({folder});
    expectDvdPlays(*q, folder, u"/dvd-commandline.png"_qs);
    q->terminate();
    EXPECT_TRUE(q->waitForExit());
}

TEST_F(DvdTest, OpenDvdFolderOrImagePlaysTheChosenFolder)
{
    const QString folder = dvdFolder();
    auto q = launchInstance({});
    // File > Open > Open DVD > (no drives, disabled) "Open DVD folder or image...".
    keys({u"alt+f"_qs, u"Right"_qs, u"Down"_qs, u"Right"_qs, u"Up"_qs, u"Return"_qs});
    ASSERT_TRUE(q->waitForLog(u"menu \"OpenDVDSource\""_qs).hasMatch()) << q->log().toStdString();
    const QString dialog = xdo({u"search"_qs, u"--sync"_qs, u"--name"_qs, u"^Open DVD folder or image"_qs});
    ASSERT_FALSE(dialog.isEmpty());
    xdo({u"windowfocus"_qs, u"--sync"_qs, dialog.split(u'\n').first()});
    xdo({u"type"_qs, u"--delay"_qs, u"2"_qs, folder});
    xdo({u"key"_qs, u"Return"_qs});
    expectDvdPlays(*q, folder, u"/dvd-open-folder.png"_qs);
    q->terminate();
    EXPECT_TRUE(q->waitForExit());
}

TEST_F(DvdTest, F1OpensTheUserGuideInTheDesktopsBrowser)
{
    // The desktop's opener, standing in for the browser: it notes what it was given.
    const QString bin = m_box.path(u"bin"_qs);
    QDir().mkpath(bin);
    const QString opened = m_box.path(u"opened.txt"_qs);
    QFile opener(bin + u"/xdg-open"_qs);
    ASSERT_TRUE(opener.open(QIODevice::WriteOnly));
    opener.write(("#!/bin/sh\necho \"$1\" > '" + opened + "'\n").toUtf8());
    opener.close();
    opener.setPermissions(opener.permissions() | QFile::ExeOwner);
    auto q = std::make_unique<QuorvelProcess>(m_box, x().display());
    q->setVariable(u"PATH"_qs, bin + u':' + qEnvironmentVariable("PATH"));
    q->start({});
    ASSERT_TRUE(q->waitForLog(u"running instance ready"_qs).hasMatch()) << q->log().toStdString();
    keys({u"F1"_qs});
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(opened); })) << q->log().toStdString();
    QFile note(opened);
    ASSERT_TRUE(note.open(QIODevice::ReadOnly));
    const QString given = QString::fromUtf8(note.readAll()).trimmed();
    const QString guidePath = given.startsWith(u"file:"_qs) ? QUrl(given).toLocalFile() : given;
    EXPECT_EQ(guidePath, m_box.programDir() + u"/help/index.html"_qs);
    QFile guide(guidePath);
    ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
    EXPECT_TRUE(guide.readAll().contains("Keyboard shortcuts"));
    q->terminate();
    EXPECT_TRUE(q->waitForExit());
}
