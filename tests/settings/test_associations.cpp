#include "settings/associations.h"
#include "settings/filestore.h"
#include "settings/mimeappslist.h"
#include "settings/xdgassociations.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

constexpr int kMkv = 3, kMpg = 5, kMpe = 6, kMpeg = 7;
const QByteArray kMatroska = "video/x-matroska";

// A user's XDG tree and store; every step builds its objects afresh, as a
// new start of the program would.
struct Tree {
    QTemporaryDir dir;
    QString list() const { return dir.filePath(u"config/mimeapps.list"_qs); }
    XdgAssociations desktop() const
    {
        return XdgAssociations(u"/opt/My Player/quorvel"_qs, u"/opt/My Player/images/About.png"_qs,
                               dir.filePath(u"config"_qs), dir.filePath(u"data"_qs));
    }
    void apply(std::initializer_list<int> set) const
    {
        std::array<std::int16_t, kMediaExtensionCount> flags{};
        for (int i : set)
            flags[i] = -1;
        FileStore store(dir.filePath(u"registry.json"_qs));
        XdgAssociations d = desktop();
        FileAssociations(store, d).ApplyAssociations(flags);
    }
    bool associated(int index) const
    {
        FileStore store(dir.filePath(u"registry.json"_qs));
        XdgAssociations d = desktop();
        return FileAssociations(store, d).IsAssociated(index);
    }
    QByteArray read() const
    {
        QFile f(list());
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("<none>");
    }
    void write(const QByteArray &text) const
    {
        QDir().mkpath(dir.filePath(u"config"_qs));
        QFile f(list());
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(text);
    }
};

QByteArray withoutMatroska(const QByteArray &text)
{
    return mimeapps::withDefault(text, kMatroska, std::nullopt);
}

TEST(FileAssociations, AssociateThenUnassociateGivesBackThePreviousDefault)
{
    const struct {
        const char *name;
        QByteArray before; // "<none>": no list at all
        std::optional<QByteArray> previous;
    } cases[] = {
        {"no list", "<none>", std::nullopt},
        {"other handler",
         "[Default Applications]\nvideo/x-matroska=vlc.desktop\ntext/plain=gedit.desktop\n\n"
         "[Added Associations]\nvideo/x-matroska=vlc.desktop;mpv.desktop;\n",
         "vlc.desktop"},
        {"CRLF, comments, list value",
         "# mine\r\n[Default Applications]\r\nvideo/x-matroska = mpv.desktop;vlc.desktop;\r\n"
         "audio/mpeg=x.desktop\r\n",
         "mpv.desktop;vlc.desktop;"},
        {"no entry, groups around",
         "[Added Associations]\nvideo/x-matroska=vlc.desktop;\n[Default Applications]\n"
         "text/plain=a.desktop\n\n[Removed Associations]\naudio/mpeg=b.desktop\n",
         std::nullopt},
        {"no final line break", "[Default Applications]\ntext/plain=a.desktop", std::nullopt},
        {"empty file", "", std::nullopt},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Tree t;
        if (c.before != "<none>")
            t.write(c.before);
        ASSERT_EQ(mimeapps::defaultOf(t.read(), kMatroska), c.previous);

        t.apply({kMkv});
        t.apply({kMkv}); // a second start keeps the saved default
        const QByteArray during = t.read();
        EXPECT_EQ(mimeapps::defaultOf(during, kMatroska), QByteArray("quorvel.desktop"));
        EXPECT_TRUE(t.associated(kMkv));
        EXPECT_FALSE(t.associated(kMpg));
        // Other entries stay as they were; a list without the group gains it at its end.
        const bool hadGroup = c.before.contains("[Default Applications]");
        if (hadGroup) {
            EXPECT_EQ(withoutMatroska(during), withoutMatroska(c.before)) << during.toStdString();
        } else if (c.before != "<none>") {
            EXPECT_TRUE(during.startsWith(c.before)) << during.toStdString();
        }

        t.apply({});
        const QByteArray after = t.read();
        EXPECT_EQ(mimeapps::defaultOf(after, kMatroska), c.previous);
        if (hadGroup) {
            EXPECT_EQ(after, c.before);
        }
        EXPECT_FALSE(t.associated(kMkv));
    }
}

TEST(FileAssociations, SharedTypesForeignDefaultsAndBadIndices)
{
    Tree t;
    EXPECT_EQ(FileAssociations::ExtensionsSharingType(kMpe), QStringList({u"mpg"_qs, u"mpe"_qs, u"mpeg"_qs}));
    EXPECT_EQ(FileAssociations::MimeTypeOf(15), u"video/quicktime"_qs); // "hdmov"

    // One flag of a shared type associates the type for all its extensions.
    t.apply({kMpe});
    for (int i : {kMpg, kMpe, kMpeg})
        EXPECT_TRUE(t.associated(i)) << i;

    // The user chose the player elsewhere: a clear flag does not undo that.
    Tree chosen;
    const QByteArray byHand = "[Default Applications]\nvideo/x-matroska=quorvel.desktop\n";
    chosen.write(byHand);
    chosen.apply({});
    EXPECT_EQ(chosen.read(), byHand);

    // Another program took the type since: unassociating leaves it alone.
    const QByteArray foreign = "[Default Applications]\nvideo/mpeg=other.desktop\n";
    t.write(foreign);
    t.apply({});
    EXPECT_EQ(t.read(), foreign);

    FileStore store(t.dir.filePath(u"registry.json"_qs));
    XdgAssociations d = t.desktop();
    FileAssociations a(store, d);
    for (int bad : {-1, kMediaExtensionCount}) {
        a.RegisterExtension(bad);
        a.UnregisterExtension(bad);
    }
    EXPECT_EQ(t.read(), foreign);
    EXPECT_EQ(a.GetExtensionProgID(u"mpeg"_qs), u"other.desktop"_qs);
    EXPECT_EQ(a.GetExtensionProgID(u"mkv"_qs), u"-1"_qs);
}

TEST(FileAssociations, ProtectedOrDamagedListIsLeftExactlyAsItWas)
{
    const struct {
        const char *name;
        QByteArray text;
        bool readOnly;
    } cases[] = {
        {"read-only", "[Default Applications]\nvideo/x-matroska=vlc.desktop\n", true},
        {"NUL byte", QByteArray("[Default Applications]\nvideo/x-matroska=vlc.desktop\n") + '\0' + "x\n", false},
        {"not UTF-8", "[Default Applications]\n\xff\xfe=x\nvideo/x-matroska=vlc.desktop\n", false},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        Tree t;
        t.write(c.text);
        if (c.readOnly)
            QFile::setPermissions(t.list(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        t.apply({kMkv});
        EXPECT_EQ(t.read(), c.text);
        EXPECT_FALSE(t.associated(kMkv));
        t.apply({});
        EXPECT_EQ(t.read(), c.text);
    }
}

TEST(FileAssociations, DesktopEntryIsValidAndStartsTheProgram)
{
    Tree t;
    t.apply({kMkv});
    const QString entry = t.dir.filePath(u"data/applications/quorvel.desktop"_qs);
    QFile f(entry);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray text = f.readAll();
    EXPECT_TRUE(text.contains("\nExec=\"/opt/My Player/quorvel\" %F\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("\nExec=\"/opt/My Player/quorvel\" \"*Add\" %F\n")) << text.toStdString();
    EXPECT_TRUE(text.contains("video/x-matroska;")) << text.toStdString();

    const QString validate = QStandardPaths::findExecutable(u"desktop-file-validate"_qs);
    if (validate.isEmpty())
        GTEST_SKIP() << "desktop-file-validate is not installed";
    QProcess p;
    p.setProcessChannelMode(QProcess::MergedChannels);
    p.start(validate, {entry});
    ASSERT_TRUE(p.waitForFinished());
    EXPECT_EQ(p.exitCode(), 0);
    EXPECT_EQ(p.readAll(), QByteArray());
}

} // namespace
