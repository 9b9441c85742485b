#include "common/appname.h"
#include "settings/associations.h"
#include "settings/filestore.h"
#include "settings/mimeappslist.h"
#include "settings/xdgassociations.h"
#include "support/files.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

constexpr int kMkv = 3, kMpg = 5, kMpe = 6, kMpeg = 7;
const QByteArray kMatroska = "video/x-matroska";

// A user's XDG tree and store; every step builds its objects afresh, as a
// new start of the program does.
struct Tree {
    QTemporaryDir dir;
    QString list() const { return dir.filePath(u"config/mimeapps.list"_qs); }
    template <typename F>
    auto with(F &&f) const
    {
        FileStore store(dir.filePath(u"registry.json"_qs));
        XdgAssociations desktop(u"/opt/My Player/quorvel"_qs, dir.filePath(u"icons"_qs), dir.filePath(u"config"_qs),
                                dir.filePath(u"data"_qs));
        FileAssociations a(store, desktop);
        return f(a);
    }
    void apply(std::initializer_list<int> set) const
    {
        std::array<std::int16_t, kMediaExtensionCount> flags{};
        for (int i : set)
            flags[i] = -1;
        with([&](FileAssociations &a) { a.ApplyAssociations(flags); });
    }
    bool associated(int i) const
    {
        return with([i](FileAssociations &a) { return a.IsAssociated(i); });
    }
    QByteArray read(const QString &path = u"config/mimeapps.list"_qs) const
    {
        return test::readFile(dir.filePath(path), "<none>");
    }
    void write(const QByteArray &text, const QString &path = u"config/mimeapps.list"_qs) const
    {
        ASSERT_TRUE(test::writeFile(dir.filePath(path), text));
    }
};

// The plain case (another handler chosen, given back) runs end to end too.
TEST(FileAssociations, AssociateThenUnassociateGivesBackThePreviousDefault)
{
    const struct {
        QByteArray before; // "<none>": no list at all
        std::optional<QByteArray> previous;
    } cases[] = {
        {"<none>", std::nullopt},
        {"[Default Applications]\ntext/plain=a.desktop", std::nullopt}, // no final line break
        {"# mine\r\n[Default Applications]\r\nvideo/x-matroska = mpv.desktop;vlc.desktop;\r\naudio/mpeg=x.desktop\r\n",
         "mpv.desktop;vlc.desktop;"},
        {"[Added Associations]\nvideo/x-matroska=vlc.desktop;\n[Default Applications]\ntext/plain=a.desktop\n\n"
         "[Removed Associations]\naudio/mpeg=b.desktop\n",
         std::nullopt},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.before.toStdString());
        Tree t;
        if (c.before != "<none>")
            t.write(c.before);
        t.apply({kMkv});
        t.apply({kMkv}); // a second start keeps the saved default
        const QByteArray during = t.read();
        EXPECT_EQ(mimeapps::defaultOf(during, kMatroska), QByteArray("quorvel.desktop"));
        EXPECT_TRUE(t.associated(kMkv));
        EXPECT_FALSE(t.associated(kMpg));
        // Every other entry stays; a list without the group gains it at its end.
        const bool hadGroup = c.before.contains("[Default Applications]");
        const auto others = [](const QByteArray &text) { return mimeapps::withDefault(text, kMatroska, {}); };
        EXPECT_TRUE(hadGroup ? others(during) == others(c.before) : c.before == "<none>" || during.startsWith(c.before))
            << during.toStdString();

        t.apply({});
        EXPECT_EQ(mimeapps::defaultOf(t.read(), kMatroska), c.previous);
        EXPECT_TRUE(!hadGroup || t.read() == c.before) << t.read().toStdString();
        EXPECT_FALSE(t.associated(kMkv));
    }
}

TEST(FileAssociations, SharedTypesDesktopEntryAndDefaultsTheStoreDidNotSave)
{
    Tree t;
    const QByteArray ours = "icon " + QByteArray(kFileTypeIconMark.data());
    for (const char *icon : {"apps/quorvel", "mimetypes/quorvel-mpg", "mimetypes/quorvel-mkv"})
        t.write(ours + icon, u"icons/hicolor/48x48/"_qs + QLatin1StringView(icon) + u".png"_qs);
    const QString theme = u"data/icons/hicolor/48x48/"_qs;
    t.write("mine", theme + u"mimetypes/video-x-matroska.png"_qs);
    t.apply({kMpe, kMkv}); // one flag associates the type for all its extensions
    for (int i : {kMpg, kMpe, kMpeg})
        EXPECT_TRUE(t.associated(i)) << i;
    // The player's icons join the user's theme; the user's own icon stays.
    EXPECT_EQ(t.read(theme + u"apps/quorvel.png"_qs), ours + "apps/quorvel");
    EXPECT_EQ(t.read(theme + u"mimetypes/video-mpeg.png"_qs), ours + "mimetypes/quorvel-mpg");
    EXPECT_EQ(t.read(theme + u"mimetypes/video-x-matroska.png"_qs), "mine");
    // The desktop entry quotes a program path with blanks and passes the add-only marker.
    const QByteArray entry = t.read(u"data/applications/quorvel.desktop"_qs);
    EXPECT_TRUE(entry.contains("\nExec=\"/opt/My Player/quorvel\" %F\n")) << entry.toStdString();
    EXPECT_TRUE(entry.contains("\nExec=\"/opt/My Player/quorvel\" \"*Add\" %F\n")) << entry.toStdString();
    EXPECT_TRUE(entry.contains("\nIcon=quorvel\n")) << entry.toStdString();
    t.apply({});
    EXPECT_EQ(t.read(theme + u"mimetypes/video-mpeg.png"_qs), "<none>");
    EXPECT_EQ(t.read(theme + u"mimetypes/video-x-matroska.png"_qs), "mine");

    // Left alone: another program took the type since, the user chose the
    // player elsewhere, or the index is outside the table.
    const QByteArray lists[] = {"[Default Applications]\nvideo/mpeg=other.desktop\n",
                                "[Default Applications]\nvideo/x-matroska=quorvel.desktop\n"};
    for (const QByteArray &list : lists) {
        t.write(list);
        t.apply({});
        t.with([](FileAssociations &a) {
            for (int bad : {-1, kMediaExtensionCount}) {
                a.RegisterExtension(bad);
                a.UnregisterExtension(bad);
            }
        });
        EXPECT_EQ(t.read(), list);
    }
    EXPECT_EQ(t.with([](FileAssociations &a) { return a.GetExtensionProgID(u"mkv"_qs); }), u"quorvel.desktop"_qs);
    EXPECT_EQ(t.with([](FileAssociations &a) { return a.GetExtensionProgID(u"mpeg"_qs); }), u"-1"_qs);
}

TEST(FileAssociations, ProtectedOrDamagedListIsLeftExactlyAsItWas)
{
    const QByteArray mine = "[Default Applications]\nvideo/x-matroska=vlc.desktop\n";
    const struct {
        QByteArray text;
        bool readOnly;
    } cases[] = {{mine, true}, {mine + '\0' + "x\n", false}, {mine + "\xff\xfe=x\n", false}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        Tree t;
        t.write(c.text);
        if (c.readOnly)
            QFile::setPermissions(t.list(), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        t.apply({kMkv});
        EXPECT_EQ(t.read(), c.text);
        EXPECT_FALSE(t.associated(kMkv));
    }
}

TEST(FileAssociations, CurrentHandlerIsTheUsersThenTheSystemsThenTheFirstThatTakesTheType)
{
    Tree t;
    t.write("[Default Applications]\nvideo/x-matroska=user.desktop;x.desktop;\n");
    t.write("[Default Applications]\nvideo/x-matroska=sys.desktop\nvideo/mp4=sys.desktop\n",
            u"sysdata/applications/mimeapps.list"_qs);
    t.write("[Default Applications]\nvideo/mp4=gnome.desktop\n", u"sysconfig/gnome-mimeapps.list"_qs);
    t.write("[MIME Cache]\naudio/mpeg=a.desktop;b.desktop;\nvideo/mp4=c.desktop;\n",
            u"data/applications/mimeinfo.cache"_qs);
    const QByteArray saved[] = {qgetenv("XDG_CONFIG_DIRS"), qgetenv("XDG_DATA_DIRS"), qgetenv("XDG_CURRENT_DESKTOP")};
    qputenv("XDG_CONFIG_DIRS", t.dir.filePath(u"sysconfig"_qs).toUtf8());
    qputenv("XDG_DATA_DIRS", t.dir.filePath(u"sysdata"_qs).toUtf8());
    qputenv("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    const XdgAssociations desktop({}, {}, t.dir.filePath(u"config"_qs), t.dir.filePath(u"data"_qs));
    const std::pair<QString, QString> cases[] = {{u"video/x-matroska"_qs, u"user.desktop"_qs},
                                                 {u"video/mp4"_qs, u"gnome.desktop"_qs},
                                                 {u"audio/mpeg"_qs, u"a.desktop"_qs},
                                                 {u"audio/x-wav"_qs, QString()}};
    for (const auto &[type, handler] : cases)
        EXPECT_EQ(desktop.currentHandler(type), handler) << type.toStdString();
    qputenv("XDG_CONFIG_DIRS", saved[0]);
    qputenv("XDG_DATA_DIRS", saved[1]);
    qputenv("XDG_CURRENT_DESKTOP", saved[2]);
}

} // namespace
