// Playlist files in both formats, and folders in natural order.
#include "playlist/folderscan.h"
#include "playlist/playlist.h"
#include "playlist/playlistfile.h"
#include "playlist/playlistkeeper.h"
#include "support/existingfileprobe.h"
#include "support/memorythumblist.h"
#include "support/recordingnotifier.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(PlaylistFile, BothFormatsKeepPathsAndWriteRelativeOnlyBesideTheMedia)
{
    QTemporaryDir dir;
    const PlaylistDocument doc{
        {dir.filePath(u"sub/é 1#.mp4"_qs), u"/elsewhere/a b.mkv"_qs, u"dvd:///dev/sr0"_qs}, 1, 4200};
    for (const char *name : {"list.xspf", "list.m3u8"}) {
        const QString path = dir.filePath(QString::fromLatin1(name));
        ASSERT_TRUE(SavePlaylistFile(path, doc));
        QFile written(path);
        ASSERT_TRUE(written.open(QIODevice::ReadOnly));
        EXPECT_FALSE(written.readAll().contains(dir.path().toUtf8())) << name; // the media beside it: relative
        const auto back = LoadPlaylistFile(path);
        ASSERT_TRUE(back) << name;
        EXPECT_EQ(back->paths, doc.paths) << name;
    }
    const auto kept = LoadPlaylistFile(dir.filePath(u"list.xspf"_qs));
    EXPECT_EQ(kept->current, 1);
    EXPECT_EQ(kept->positionMs, 4200);
    QString error;
    EXPECT_FALSE(ReadPlaylist("<?xml version=\"1.0\"?><playlist><trackList><track>", {}, &error));
    EXPECT_FALSE(error.isEmpty());
}

TEST(FolderScan, NaturalOrderNumbersAsNumbersWithoutCaseOrAccents)
{
    QTemporaryDir dir;
    for (const char *name : {"ep10.mp4", "Ep3.mp4", "épisode 4.mp4", "ep2.mp4", "ep1.mp4", "notes.txt"})
        QFile(dir.filePath(QString::fromUtf8(name))).open(QIODevice::WriteOnly);
    QStringList names;
    for (const QString &path : MediaFilesIn(dir.path(), false))
        names << QFileInfo(path).fileName();
    EXPECT_EQ(names, (QStringList{u"ep1.mp4"_qs, u"ep2.mp4"_qs, u"Ep3.mp4"_qs, u"ep10.mp4"_qs, u"épisode 4.mp4"_qs}));
    EXPECT_EQ(NextInFolder(dir.filePath(u"Ep3.mp4"_qs), {dir.filePath(u"ep10.mp4"_qs)}),
              dir.filePath(u"épisode 4.mp4"_qs));
}

// The list of the last run comes back without the files gone since, which
// are named in one message, and its current entry is current again; unless
// a file of it was chosen to play while it came back, which then plays from
// its own row (its second add would play the last entry).
TEST(PlaylistKeeper, RestoresWhatIsLeftAndSaysOnceWhatIsGone)
{
    QTemporaryDir dir;
    QStringList paths;
    for (const char *name : {"a.mp4", "gone1.mp4", "b.mp4", "gone2.mp4", "c.mp4"})
        paths << dir.filePath(QString::fromLatin1(name));
    for (int i : {0, 2, 4})
        QFile(paths[i]).open(QIODevice::WriteOnly);
    ASSERT_TRUE(SavePlaylistFile(dir.filePath(u"kept.xspf"_qs), {paths, 2, 5000}));
    const struct {
        QString chosen;
        std::tuple<int, qint64, bool> restored;
    } cases[] = {{{}, {1, 5000, false}}, {paths[0], {0, 0, true}}, {paths[2], {1, 5000, true}}};
    for (const auto &c : cases) {
        test::MemoryThumbList list;
        test::ExistingFileProbe probe;
        test::RecordingNotifier notifier;
        Playlist playlist(list, probe, notifier);
        PlaylistKeeper keeper(playlist, notifier, dir.filePath(u"kept.xspf"_qs));
        std::tuple<int, qint64, bool> restored{-2, -2, false};
        QObject::connect(&keeper, &PlaylistKeeper::restored, [&](int i, qint64 ms, bool play) {
            restored = {i, ms, play};
        });
        EXPECT_FALSE(keeper.playWhenRestored(paths[0])); // nothing is coming back yet
        keeper.restore();
        EXPECT_FALSE(keeper.playWhenRestored(paths[1])); // gone: the usual add says so
        EXPECT_TRUE(c.chosen.isEmpty() || keeper.playWhenRestored(c.chosen));
        playlist.waitForAdds();
        EXPECT_EQ(playlist.fullPaths(), (QStringList{paths[0], paths[2], paths[4]}));
        EXPECT_EQ(restored, c.restored) << c.chosen.toStdString();
        EXPECT_EQ(list.selectedItem(), std::get<0>(c.restored));
        ASSERT_EQ(notifier.messages.size(), 1u);
        EXPECT_TRUE(notifier.messages[0].text.contains(paths[1]) && notifier.messages[0].text.contains(paths[3]));
        EXPECT_FALSE(keeper.playWhenRestored(paths[0])); // the restore is over
    }
}
