// The program as installed and as a shell user calls it: `cmake --install`
// into a fresh prefix, the desktop's own checkers on what it installed, the
// installed program started through its link on a clip; and the options that
// print and end without a display.
#include "e2efixture.h"

using namespace quorvel;
using namespace quorvel::test;

TEST_F(E2eTest, InstalledProgramFindsItsFilesThroughItsLinkAndPlays)
{
    const QString prefix = m_box.path(u"prefix"_qs);
    QString out;
    ASSERT_EQ(
        runTool(u"cmake"_qs, {u"--install"_qs, QStringLiteral(QUORVEL_PROGRAM_DIR), u"--prefix"_qs, prefix}, &out), 0)
        << out.toStdString();
    EXPECT_TRUE(QFileInfo(prefix + u"/bin/quorvel"_qs).isSymLink());
    for (const char *file : {"/share/icons/hicolor/48x48/apps/quorvel.png", "/lib/quorvel/icons/Unkowen.bmp"})
        EXPECT_TRUE(QFile::exists(prefix + QString::fromLatin1(file))) << file;

    const QStringList metainfo = QDir(prefix + u"/share/metainfo"_qs).entryList({u"*.metainfo.xml"_qs});
    ASSERT_EQ(metainfo.size(), 1);
    const QList<QStringList> checks{
        {u"desktop-file-validate"_qs, prefix + u"/share/applications/quorvel.desktop"_qs},
        {u"appstreamcli"_qs, u"validate"_qs, u"--no-net"_qs, prefix + u"/share/metainfo/"_qs + metainfo[0]}};
    for (const QStringList &check : checks)
        EXPECT_EQ(runTool(check[0], check.mid(1), &out), 0) << out.toStdString();

    auto player = std::make_unique<QuorvelProcess>(m_box, x().display());
    player->setEnv(u"PREFIX"_qs, prefix);
    player->setEnv(u"CLIP"_qs, copyOf(makeClip(u"e2e-install.mp4"_qs, 4, u"320x240"_qs), u"clip.mp4"_qs));
    player->startShell(u"exec \"$PREFIX/bin/quorvel\" \"$CLIP\""_qs);
    EXPECT_TRUE(player->waitForLog(traced(trace::kTick, u"3 time=[1-9]\\d{3}"_qs)).hasMatch())
        << player->log().toStdString();
    EXPECT_FALSE(player->log().contains(u"skin incomplete"_qs)) << player->log().toStdString();
    shoot(u"installed-playing.png"_qs);
}

// --help and --version print and end with success where no display is;
// a mistyped option is told on stderr and ends with status 2.
TEST_F(E2eTest, OptionsPrintAndEndWithoutADisplay)
{
    const struct {
        const char *option;
        int exitCode;
        const char *stdoutPattern;
        const char *stderrPattern;
    } cases[] = {{"--version", 0, "^Quorvel \\d+\\.\\d+\\.\\d+\nlibVLC 3\\.\\d", "^$"},
                 {"--help", 0, "^Usage: quorvel .*--version", "^$"},
                 {"--versoin", 2, "^$", "'--versoin'.*\nUsage: quorvel"}};
    for (const auto &c : cases) {
        QProcess p;
        QProcessEnvironment env = m_box.environment();
        env.remove(u"DISPLAY"_qs);
        p.setProcessEnvironment(env);
        p.start(m_box.program(), {QString::fromLatin1(c.option)});
        ASSERT_TRUE(p.waitForFinished(-1)) << c.option;
        const QString out = QString::fromLocal8Bit(p.readAllStandardOutput());
        const QString err = QString::fromLocal8Bit(p.readAllStandardError());
        EXPECT_EQ(p.exitCode(), c.exitCode) << c.option << out.toStdString() << err.toStdString();
        const QRegularExpression::PatternOptions dot = QRegularExpression::DotMatchesEverythingOption;
        EXPECT_TRUE(QRegularExpression(QString::fromLatin1(c.stdoutPattern), dot).match(out).hasMatch())
            << c.option << out.toStdString();
        EXPECT_TRUE(QRegularExpression(QString::fromLatin1(c.stderrPattern), dot).match(err).hasMatch())
            << c.option << err.toStdString();
    }
}
