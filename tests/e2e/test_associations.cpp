// File associations with the real program on a private home: the flags of
// "Config.cfg" decide at start-up which handler the desktop names.
#include "e2efixture.h"

#include <QStandardPaths>

using namespace quorvel::test;

namespace {

constexpr int kMkvFlagLine = 20; // AssocFlags(3), 0-based line of "Config.cfg"

class AssociationTest : public E2eTest {
protected:
    // Runs a desktop tool as the sandbox's user; its first output line.
    QString tool(const QString &program, const QStringList &args, int *exitCode = nullptr)
    {
        QProcessEnvironment env = m_box.environment();
        for (const char *desktop : {"XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "KDE_FULL_SESSION"})
            env.remove(QString::fromLatin1(desktop));
        QProcess p;
        p.setProcessEnvironment(env);
        p.setProcessChannelMode(QProcess::MergedChannels);
        p.start(program, args);
        p.waitForFinished(30000);
        if (exitCode)
            *exitCode = p.exitCode();
        return QString::fromUtf8(p.readAll()).trimmed();
    }
    QString defaultFor(const QString &type) { return tool(u"xdg-mime"_qs, {u"query"_qs, u"default"_qs, type}); }
    // Starts the program with the mkv flag as given and lets it finish starting.
    void startWithMkvFlag(const QByteArray &flag)
    {
        setConfigLine(kMkvFlagLine, flag);
        auto q = launchInstance({});
        q->terminate();
        ASSERT_TRUE(q->waitForExit());
    }
    QString mimeAppsList() const { return m_box.homeDir() + u"/.config/mimeapps.list"_qs; }
    QString applications() const { return m_box.homeDir() + u"/.local/share/applications"_qs; }
    static QByteArray contents(const QString &path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
};

TEST_F(AssociationTest, MkvFlagMakesThePlayerTheDefaultOnAFreshHome)
{
    if (QStandardPaths::findExecutable(u"xdg-mime"_qs).isEmpty())
        GTEST_SKIP() << "xdg-utils is not installed";
    startWithMkvFlag(" -1 ");
    EXPECT_EQ(defaultFor(u"video/x-matroska"_qs), u"quorvel.desktop"_qs);
    int validated = -1;
    const QString entry = applications() + u"/quorvel.desktop"_qs;
    EXPECT_EQ(tool(u"desktop-file-validate"_qs, {entry}, &validated), QString());
    EXPECT_EQ(validated, 0);
    // The entry starts this very program.
    EXPECT_TRUE(contents(entry).contains(("\nExec=" + m_box.program() + " %F\n").toUtf8()))
        << contents(entry).toStdString();
}

TEST_F(AssociationTest, UnassociatingGivesTheOtherHandlerBackAndKeepsOtherEntries)
{
    if (QStandardPaths::findExecutable(u"xdg-mime"_qs).isEmpty())
        GTEST_SKIP() << "xdg-utils is not installed";
    QDir().mkpath(applications());
    QFile other(applications() + u"/other-player.desktop"_qs);
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.write("[Desktop Entry]\nType=Application\nName=Other\nExec=/bin/true %F\n"
                "MimeType=video/x-matroska;\n");
    other.close();
    const QByteArray before = "# the user's own\n[Default Applications]\ntext/plain=other-player.desktop\n"
                              "video/x-matroska=other-player.desktop\naudio/flac=other-player.desktop\n\n"
                              "[Added Associations]\nvideo/x-matroska=other-player.desktop;\n";
    QDir().mkpath(m_box.homeDir() + u"/.config"_qs);
    QFile list(mimeAppsList());
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write(before);
    list.close();
    ASSERT_EQ(defaultFor(u"video/x-matroska"_qs), u"other-player.desktop"_qs);

    startWithMkvFlag(" -1 ");
    EXPECT_EQ(defaultFor(u"video/x-matroska"_qs), u"quorvel.desktop"_qs) << contents(mimeAppsList()).toStdString();
    EXPECT_EQ(defaultFor(u"text/plain"_qs), u"other-player.desktop"_qs);

    startWithMkvFlag(" 0 ");
    EXPECT_EQ(defaultFor(u"video/x-matroska"_qs), u"other-player.desktop"_qs);
    EXPECT_EQ(contents(mimeAppsList()), before);
}

} // namespace
