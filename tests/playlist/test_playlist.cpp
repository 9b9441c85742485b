#include "playlist/playlist.h"
#include "support/memorythumblist.h"
#include "support/recordingnotifier.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QThread>
#include <gtest/gtest.h>

using namespace quorvel;
using quorvel::test::RecordingNotifier;

namespace {

// Answers after a random pause, so probes finish out of order; refuses
// paths containing "bad" and has something to say about "quiet" ones.
class ScriptedProbe final : public MediaProbe {
public:
    ProbeResult probe(const QString &path) override
    {
        QThread::msleep(QRandomGenerator::global()->bounded(15));
        ProbeResult r;
        if (path.contains(u"bad")) {
            r.error = QStringLiteral("Unsupported video codec");
            return r;
        }
        r.ok = true;
        r.mediaInfo = QStringLiteral("report of ") + path;
        if (path.contains(u"quiet"))
            r.notices << QStringLiteral("no sound in ") + path;
        return r;
    }
};

struct PlaylistFixture : ::testing::Test {
    test::MemoryThumbList list;
    ScriptedProbe probe;
    RecordingNotifier notifier;
    Playlist playlist{list, probe, notifier};
    QList<QPair<int, bool>> played;
    int orderBuilds = 0;

    void SetUp() override
    {
        playlist.setPlayHandler([this](int index, bool fullScreen) { played.append({index, fullScreen}); });
        playlist.setOrderHandler([this] { ++orderBuilds; });
    }
    void add(const QString &path, bool fullScreen = false, bool forcePlay = false)
    {
        playlist.LoadThumb(path.mid(path.lastIndexOf(u'/') + 1), path, fullScreen, forcePlay);
    }
};

} // namespace

TEST_F(PlaylistFixture, FilesEnterInTheOrderAskedWhateverTheProbeOrder)
{
    QStringList paths;
    for (int i = 0; i < 30; ++i)
        paths << QStringLiteral("/m/clip%1.mp4").arg(i);
    paths.insert(7, QStringLiteral("/m/bad7.mp4"));
    paths.insert(12, QStringLiteral("/m/quiet.mp3"));
    paths.insert(20, QStringLiteral("/m/bad20.mp4"));
    int finished = 0;
    for (const QString &p : paths)
        playlist.LoadThumb(p.mid(3), p, false, false, [&finished] { ++finished; });
    playlist.waitForAdds();

    EXPECT_EQ(finished, paths.size());
    QStringList expected = paths;
    expected.removeAll(QStringLiteral("/m/bad7.mp4"));
    expected.removeAll(QStringLiteral("/m/bad20.mp4"));
    EXPECT_EQ(playlist.fullPaths(), expected);
    for (int i = 0; i < playlist.count(); ++i)
        EXPECT_EQ(list.itemText(i) + u' ' + playlist.mediaInfo(i),
                  expected[i].mid(3) + u" report of "_qs + expected[i]);
    // What the batch had to say comes once, gathered: the refused files in
    // order, then the rest.
    ASSERT_EQ(notifier.texts().size(), 1);
    EXPECT_EQ(notifier.texts()[0], u"2 files could not be added:\r\n/m/bad7.mp4\r\n    Unsupported video codec\r\n"
                                   "/m/bad20.mp4\r\n    Unsupported video codec\r\n\r\nno sound in /m/quiet.mp3"_qs);
    EXPECT_EQ(notifier.messages[0].icon, MessageNotifier::Icon::Exclamation);
    // Every successful add rebuilt the order; the refused one did not.
    EXPECT_EQ(orderBuilds, expected.size());
    EXPECT_TRUE(played.isEmpty() && list.selectedItem() == -1);
}

TEST_F(PlaylistFixture, DuplicatesAreRefusedCaseSensitivelyAndForcePlayPlaysTheLast)
{
    add(u"/v/a.avi"_qs);
    add(u"/v/b.avi"_qs);
    add(u"/V/a.avi"_qs);             // another path: a second entry
    add(u"/v/a.avi"_qs, true, true); // duplicate with play: plays the last entry
    playlist.waitForAdds();
    EXPECT_EQ(playlist.count(), 3);
    ASSERT_EQ(notifier.texts().size(), 1);
    EXPECT_EQ(notifier.texts()[0], u"\"a.avi\" is already in your playlist"_qs);
    EXPECT_EQ(notifier.messages[0].icon, MessageNotifier::Icon::Information);
    EXPECT_EQ(played, (QList<QPair<int, bool>>{{2, true}}));
    EXPECT_EQ(list.selectedItem(), 2);

    // The same file asked for twice before the first has entered; a refused
    // file asked to play changes nothing.
    add(u"/v/c.avi"_qs);
    add(u"/v/c.avi"_qs);
    playlist.waitForAdds();
    EXPECT_EQ(playlist.fullPaths().count(u"/v/c.avi"_qs), 1);
    EXPECT_EQ(notifier.texts().size(), 2);
    const int builds = orderBuilds;
    add(u"/v/bad.avi"_qs, false, true);
    playlist.waitForAdds();
    EXPECT_EQ(std::tuple(playlist.count(), list.selectedItem(), played.size(), orderBuilds),
              std::tuple(4, 2, qsizetype(1), builds));
    EXPECT_EQ(notifier.messages.back().icon, MessageNotifier::Icon::Exclamation);
}

TEST_F(PlaylistFixture, RemovingKeepsTheStoresTogether)
{
    QList<int> removed;
    playlist.setRemoveHandler([&](int k) { removed << k; });
    for (const char *p : {"/a.mp3", "/b.mp3", "/c.mp3"})
        add(QString::fromLatin1(p));
    playlist.waitForAdds();

    list.setSelectedItem(1);
    playlist.removeSelected();
    EXPECT_EQ(playlist.fullPaths(), (QStringList{u"/a.mp3"_qs, u"/c.mp3"_qs}));
    EXPECT_EQ(std::tuple(playlist.mediaInfo(1), list.itemText(1), list.selectedItem()), // now the next entry
              std::tuple(u"report of /c.mp3"_qs, u"c.mp3"_qs, 1));

    playlist.removeSelected(); // removes the last; the selection stays past the end
    EXPECT_EQ(playlist.count(), 1);
    EXPECT_EQ(list.selectedItem(), 1);
    playlist.removeSelected(); // nothing is current: no effect
    EXPECT_EQ(playlist.count(), 1);

    playlist.removeAll();
    EXPECT_EQ(std::tuple(playlist.count(), list.count(), list.selectedItem()), std::tuple(0, 0, -1));
    EXPECT_EQ(removed, (QList<int>{1, 1, -1}));
}
