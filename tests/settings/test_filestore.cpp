#include "settings/filestore.h"
#include "settings/playbackprefs.h"
#include "support/files.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

const QString kKey = QStringLiteral("Software\\Brenlow\\Quorvel\\RecentFileNames");

struct StoreFile {
    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("sub/registry.json"));
};

TEST(FileStore, OddValuesRoundTripThroughTheFile)
{
    const QString values[] = {
        QStringLiteral("/media/a, b \"quoted\" 'single'.mkv"),
        QStringLiteral("/x/#not a comment;nor this=that.avi"),
        QStringLiteral("/two\nlines\r\n and\ttab.mp3"),
        QStringLiteral("C:\\Videos\\back\\slash.wmv"),
        QStringLiteral("@Variant(\\0) [Group] key=value"),
        QStringLiteral("  spaces around  "),
        QStringLiteral("/ünïcödé/ファイル.ogg"),
        QString(),
    };
    StoreFile f;
    int n = 0;
    for (const QString &v : values)
        FileStore(f.path).RegSetString(kKey, QString::number(n++), v);
    FileStore reread(f.path);
    n = 0;
    for (const QString &v : values) {
        SCOPED_TRACE(v.toStdString());
        EXPECT_EQ(reread.RegGetString(kKey, QString::number(n), QStringLiteral("missing")), v);
        // Both separators and stray slashes name the same key.
        EXPECT_EQ(
            reread.RegGetString(QStringLiteral("/Software/Brenlow//Quorvel/RecentFileNames/"), QString::number(n++)),
            v);
    }
    EXPECT_EQ(reread.RegGetString(kKey, QStringLiteral("99"), QStringLiteral("missing")), QStringLiteral("missing"));
    reread.RegDeleteValueAt(kKey, QStringLiteral("0"));
    EXPECT_EQ(FileStore(f.path).RegGetString(kKey, QStringLiteral("0"), QStringLiteral("gone")),
              QStringLiteral("gone"));
    EXPECT_EQ(FileStore(f.path).RegGetString(kKey, QStringLiteral("1")), values[1]);
}

TEST(FileStore, DamagedFileReadsAsEmptyAndIsRewritten)
{
    const QByteArray damaged[] = {
        "\x01\xff\xfe garbage",       R"({"Software/Brenlow/Quorvel/RecentFileNames": {"0": "/a.mkv")",
        R"(["not", "an", "object"])", R"({"k": "a value where a key belongs"})",
        R"({"k": {"0": 42}})",        "",
    };
    for (const QByteArray &content : damaged) {
        SCOPED_TRACE(content.toStdString());
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("registry.json"));
        ASSERT_TRUE(test::writeFile(path, content));
        FileStore store(path);
        EXPECT_EQ(store.RegGetString(QStringLiteral("k"), QStringLiteral("0"), QStringLiteral("none")),
                  QStringLiteral("none"));
        EXPECT_EQ(store.RegGetString(kKey, QStringLiteral("0")), QString());
        store.RegSetString(kKey, QStringLiteral("0"), QStringLiteral("/b.mkv"));
        EXPECT_TRUE(QJsonDocument::fromJson(test::readFile(path)).isObject());
        EXPECT_EQ(FileStore(path).RegGetString(kKey, QStringLiteral("0")), QStringLiteral("/b.mkv"));
    }
}

} // namespace

// The preferences beside "Config.cfg": every choice comes back as written,
// and a value nobody can read leaves the rest alone.
TEST(PlaybackPrefs, ChoicesRoundTripAndAnUnreadableValueKeepsTheOthers)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(u"quorvel.conf"_qs);
    for (ResumeMode mode : {ResumeMode::Always, ResumeMode::Never, ResumeMode::Ask}) {
        const PlaybackPrefs prefs{mode,
                                  mode != ResumeMode::Never,
                                  mode != ResumeMode::Always,
                                  mode == ResumeMode::Ask ? QStringList{} : QStringList{u"ja"_qs, u"en"_qs},
                                  {u"en"_qs},
                                  mode == ResumeMode::Always,
                                  static_cast<HearingImpaired>(mode)};
        ASSERT_TRUE(SavePlaybackPrefs(path, prefs));
        EXPECT_EQ(LoadPlaybackPrefs(path), prefs) << int(mode);
    }
    PlaybackPrefs written;
    written.resume = ResumeMode::Never;
    written.folderSubfolders = written.playNextInFolder = true;
    ASSERT_TRUE(SavePlaybackPrefs(path, written));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    // A hand-edited file: an unknown word, and a list written loosely.
    const QByteArray text = file.readAll()
                                .replace("Resume=never", "Resume=sometimes")
                                .replace("SubtitleLanguages=", "SubtitleLanguages=\"JA, en,,ja\"");
    file.resize(0);
    file.seek(0);
    file.write(text);
    file.close();
    written.resume = PlaybackPrefs().resume;
    written.subtitleLanguages = {u"ja"_qs, u"en"_qs};
    EXPECT_EQ(LoadPlaybackPrefs(path), written);
}
