#include "settings/filestore.h"
#include "settings/playbackprefs.h"
#include "support/files.h"

#include <QJsonDocument>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

const QString kKey = u"Software\\Brenlow\\Quorvel\\RecentFileNames"_qs;

TEST(FileStore, OddValuesRoundTripThroughTheFile)
{
    const QString values[] = {u"/media/a, b \"quoted\" 'single'.mkv"_qs,
                              u"/x/#not a comment;nor this=that.avi"_qs,
                              u"/two\nlines\r\n and\ttab.mp3"_qs,
                              u"C:\\Videos\\back\\slash.wmv"_qs,
                              u"@Variant(\\0) [Group] key=value"_qs,
                              u"  spaces around  "_qs,
                              u"/ünïcödé/ファイル.ogg"_qs,
                              QString()};
    QTemporaryDir dir;
    const QString path = dir.filePath(u"sub/registry.json"_qs);
    for (int n = 0; n < int(std::size(values)); ++n)
        FileStore(path).RegSetString(kKey, QString::number(n), values[n]);
    FileStore reread(path);
    for (int n = 0; n < int(std::size(values)); ++n) {
        SCOPED_TRACE(values[n].toStdString());
        EXPECT_EQ(reread.RegGetString(kKey, QString::number(n), u"missing"_qs), values[n]);
        // Both separators and stray slashes name the same key.
        EXPECT_EQ(reread.RegGetString(u"/Software/Brenlow//Quorvel/RecentFileNames/"_qs, QString::number(n)),
                  values[n]);
    }
    EXPECT_EQ(reread.RegGetString(kKey, u"99"_qs, u"missing"_qs), u"missing"_qs);
    reread.RegDeleteValueAt(kKey, u"0"_qs);
    EXPECT_EQ(FileStore(path).RegGetString(kKey, u"0"_qs, u"gone"_qs), u"gone"_qs);
    EXPECT_EQ(FileStore(path).RegGetString(kKey, u"1"_qs), values[1]);
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
        const QString path = dir.filePath(u"registry.json"_qs);
        ASSERT_TRUE(test::writeFile(path, content));
        FileStore store(path);
        EXPECT_EQ(store.RegGetString(u"k"_qs, u"0"_qs, u"none"_qs), u"none"_qs);
        EXPECT_EQ(store.RegGetString(kKey, u"0"_qs), QString());
        store.RegSetString(kKey, u"0"_qs, u"/b.mkv"_qs);
        EXPECT_TRUE(QJsonDocument::fromJson(test::readFile(path)).isObject());
        EXPECT_EQ(FileStore(path).RegGetString(kKey, u"0"_qs), u"/b.mkv"_qs);
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
        const bool always = mode == ResumeMode::Always, never = mode == ResumeMode::Never;
        const QStringList audio = never || always ? QStringList{u"ja"_qs, u"en"_qs} : QStringList{};
        const PlaybackPrefs prefs{mode, !never, !always, audio, {u"en"_qs}, always, static_cast<HearingImpaired>(mode)};
        ASSERT_TRUE(SavePlaybackPrefs(path, prefs));
        EXPECT_EQ(LoadPlaybackPrefs(path), prefs) << int(mode);
    }
    PlaybackPrefs written;
    written.resume = ResumeMode::Never;
    written.folderSubfolders = written.playNextInFolder = true;
    ASSERT_TRUE(SavePlaybackPrefs(path, written));
    // A hand-edited file: an unknown word, and a list written loosely.
    ASSERT_TRUE(test::writeFile(path, test::readFile(path)
                                          .replace("Resume=never", "Resume=sometimes")
                                          .replace("SubtitleLanguages=", "SubtitleLanguages=\"JA, en,,ja\"")));
    written.resume = PlaybackPrefs().resume;
    written.subtitleLanguages = {u"ja"_qs, u"en"_qs};
    EXPECT_EQ(LoadPlaybackPrefs(path), written);
}
