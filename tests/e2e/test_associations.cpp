// File associations with the real program on a fresh home: the mkv flag of
// "Config.cfg" decides at start-up which handler the desktop names and which
// icon it shows for the type, and the "Options" dialog sets it. The about
// dialog opens and closes on the way.
#include "common/paths.h"
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

namespace {

QString runTool(const Sandbox &box, const QString &program, const QStringList &args, int *exitCode = nullptr)
{
    QProcessEnvironment env = box.environment();
    env.remove(u"XDG_CURRENT_DESKTOP"_qs); // the freedesktop lookup, whatever desktop runs the tests
    QProcess p;
    p.setProcessEnvironment(env);
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(program, args);
    p.waitForFinished(30000);
    if (exitCode)
        *exitCode = p.exitCode();
    return QString::fromUtf8(p.readAll()).trimmed();
}

TEST_F(E2eTest, MkvFlagMakesThePlayerTheDefaultAndClearingItGivesTheOldHandlerBack)
{
    const auto mkvDefault = [&] {
        return runTool(m_box, u"xdg-mime"_qs, {u"query"_qs, u"default"_qs, u"video/x-matroska"_qs});
    };
    const auto startWithMkvFlag = [&](const QByteArray &flag) {
        setConfigLine(20, flag); // AssocFlags(3)
        auto q = launchInstance({});
        EXPECT_TRUE(q->close());
    };
    startWithMkvFlag(" -1 ");
    EXPECT_EQ(mkvDefault(), u"quorvel.desktop"_qs);
    const QString apps = m_box.homeDir() + u"/.local/share/applications/"_qs;
    int valid = -1;
    EXPECT_EQ(runTool(m_box, u"desktop-file-validate"_qs, {apps + u"quorvel.desktop"_qs}, &valid), QString());
    EXPECT_EQ(valid, 0);
    // The desktop shows the player's icons: its own, and the type's while associated.
    const QString icons = m_box.homeDir() + u"/.local/share/icons/hicolor/48x48/"_qs;
    EXPECT_TRUE(QFile::exists(icons + u"apps/quorvel.png"_qs));
    EXPECT_TRUE(QFile::exists(icons + u"mimetypes/video-x-matroska.png"_qs));

    // Another handler is the user's choice; the player replaces it and gives it back.
    ASSERT_TRUE(
        writeFile(apps + u"other.desktop"_qs, "[Desktop Entry]\nType=Application\nName=Other\nExec=/bin/true %F\n"));
    const QString list = m_box.homeDir() + u"/.config/mimeapps.list"_qs;
    const QByteArray before
        = "# mine\n[Default Applications]\ntext/plain=other.desktop\nvideo/x-matroska=other.desktop\n"
          "\n[Added Associations]\nvideo/x-matroska=other.desktop;\n";
    ASSERT_TRUE(writeFile(list, before));
    ASSERT_EQ(mkvDefault(), u"other.desktop"_qs);
    startWithMkvFlag(" -1 ");
    EXPECT_EQ(mkvDefault(), u"quorvel.desktop"_qs);
    startWithMkvFlag(" 0 ");
    EXPECT_EQ(mkvDefault(), u"other.desktop"_qs);
    EXPECT_FALSE(QFile::exists(icons + u"mimetypes/video-x-matroska.png"_qs));
    EXPECT_EQ(readFile(list), before);
}

TEST_F(E2eTest, TickingMkvInOptionsMakesThePlayerTheDefaultAndAboutClosesWithOk)
{
    auto q = launchInstance({});
    keys({u"alt+h"_qs, u"Return"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kDialogShown, u" \"About Quorvel\""_qs)).hasMatch())
        << q->log().toStdString();
    const QString about = windowNamed(u"^About Quorvel$"_qs);
    const QSize size = windowSize(about);
    xdo({u"mousemove"_qs, u"--window"_qs, about, u"--sync"_qs, QString::number(size.width() - 45),
         QString::number(size.height() - 30)});
    xdo({u"click"_qs, u"1"_qs}); // the OK button
    ASSERT_TRUE(q->waitForLog(traced(trace::kDialogClosed, u" \"About Quorvel\" accepted"_qs)).hasMatch())
        << q->log().toStdString();

    keys({u"alt+t"_qs, u"Return"_qs});
    ASSERT_TRUE(q->waitForLog(traced(trace::kDialogShown, u" \"Options\""_qs)).hasMatch()) << q->log().toStdString();
    const QString options = windowNamed(u"^Options$"_qs);
    keys({u"ctrl+Tab"_qs}, options);
    ASSERT_TRUE(q->waitForLog(u"options page 2"_qs).hasMatch()) << q->log().toStdString();
    const auto &table = MediaExtensions();
    const QStringList down(int(std::find(table.begin(), table.end(), u"mkv"_qs) - table.begin()), u"Down"_qs);
    keys(QStringList{u"Home"_qs} + down + QStringList{u"space"_qs, u"Return"_qs}, options);
    ASSERT_TRUE(q->waitForLog(traced(trace::kDialogClosed, u" \"Options\" accepted"_qs)).hasMatch())
        << q->log().toStdString();
    EXPECT_EQ(runTool(m_box, u"xdg-mime"_qs, {u"query"_qs, u"default"_qs, u"video/x-matroska"_qs}),
              u"quorvel.desktop"_qs);
}

} // namespace
