#include "menus/menumodel.h"
#include "playback/dvdplayback.h"
#include "support/fakedrivelist.h"
#include "support/files.h"
#include "support/playbackrig.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(DvdDrives, SystemTablesDvdSourcesAndCaptions)
{
    EXPECT_EQ(CdromDriveNames("drive name:\t\tsr10\tsr1\tsr0\ndrive speed:\t24\n"),
              (QStringList{u"sr0"_qs, u"sr1"_qs, u"sr10"_qs}));
    const auto mounts = MountPointsBySource("36 25 11:0 / /media/u/MY\\040FILM ro shared:1 - udf /dev/sr0 ro\n"
                                            "37 25 11:1 /sub /mnt/bind rw - iso9660 /dev/sr1 ro\n");
    EXPECT_EQ(mounts.value(u"/dev/sr0"_qs), u"/media/u/MY FILM"_qs);
    EXPECT_FALSE(mounts.contains(u"/dev/sr1"_qs)); // a bind mount of a sub-folder is not the disc

    QTemporaryDir dir;
    const QString film = dir.filePath(u"Film"_qs);
    ASSERT_TRUE(test::writeFile(film + u"/video_ts/VIDEO_TS.IFO"_qs));
    QDir().mkpath(dir.filePath(u"Plain"_qs));
    for (const QByteArray &id : {QByteArray("CD001"), QByteArray("NONE!")})
        ASSERT_TRUE(test::writeFile(dir.filePath(QString::fromLatin1(id) + u".ISO"_qs),
                                    QByteArray(16 * 2048, '\0') + '\1' + id + QByteArray(34, '\0') + "MOVIE"
                                        + QByteArray(2100, '\0')));
    bool readable = false;
    EXPECT_EQ(IsoVolumeLabel(dir.filePath(u"CD001.ISO"_qs), &readable), u"MOVIE"_qs); // NUL-padded
    const struct {
        QString given, source;
    } sources[] = {{film, film},
                   {film + u"/video_ts"_qs, film},
                   {film + u"/video_ts/VIDEO_TS.IFO"_qs, film},
                   {dir.filePath(u"CD001.ISO"_qs), dir.filePath(u"CD001.ISO"_qs)},
                   {dir.filePath(u"NONE!.ISO"_qs), {}},
                   {dir.filePath(u"Plain"_qs), {}}};
    for (const auto &c : sources)
        EXPECT_EQ(DvdSourceOf(c.given), c.source) << c.given.toStdString();

    const OpticalDrive empty{u"/dev/sr0"_qs, false, {}, {}};
    const struct {
        QVector<OpticalDrive> drives;
        QStringList captions;
    } lists[] = {{{empty, {u"/dev/sr1"_qs, true, u"MOVIE"_qs, {}}},
                  {u"<Please insert a DVD> (/dev/sr0)"_qs, u"MOVIE (/dev/sr1)"_qs}},
                 {{{u"/dev/sr0"_qs, true, {}, {}}}, {u" (/dev/sr0)"_qs}}}; // a disc without a label
    test::FakeDriveList list;
    for (const auto &c : lists) {
        list.described = c.drives;
        EXPECT_EQ(EnumDVDDrives(list).captions, c.captions);
    }
}

namespace {

struct DvdFixture : ::testing::Test, test::TransportRig {
    MenuModel menu;
    test::FakeDriveList drives;
    DvdPlayback dvd{drives, transport, player, playlist, notifier, view, dir.path() + u'/'};

    // A file plays, so a DVD start has something to stop and replace.
    void SetUp() override
    {
        BuildMenu(menu);
        view.onDvdCheck = [this] { dvd.enableCheck(); };
        QObject::connect(&dvd, &DvdPlayback::drivesChanged, [this] { ShowDvdDrives(menu, dvd.captions()); });
        addFiles(1);
        start(0);
        ASSERT_TRUE(state.MediaLoaded);
    }
    QString folderWith(const QString &name, const QString &sub)
    {
        QDir().mkpath(dir.filePath(name + u'/' + sub));
        return dir.filePath(name);
    }
};

} // namespace

TEST_F(DvdFixture, PollingStartsAMountedVideoDvdOnceAndWhatCannotPlayLosesNothing)
{
    // Nothing to play: no disc, no drive, a folder without VIDEO_TS.
    drives.described = {{u"/dev/sr0"_qs, true, u"DATA"_qs, folderWith(u"data"_qs, u"photos"_qs)},
                        {u"/dev/sr1"_qs, false, {}, {}}};
    dvd.refresh();
    const auto before = engine.calls;
    dvd.playDrive(1);
    dvd.playDrive(3);
    EXPECT_FALSE(dvd.playDvdSource(folderWith(u"holiday"_qs, u"photos"_qs)));
    EXPECT_TRUE(settle());
    EXPECT_EQ(engine.calls, before);
    EXPECT_EQ(playlist.fullPath(0), dir.filePath(u"clip0.mp4"_qs));
    EXPECT_EQ(notifier.texts(), QStringList{u"Please insert a valid DVD."_qs});
    EXPECT_EQ(notifier.messages[0].icon, MessageNotifier::Icon::Critical);

    // A video DVD is mounted in the second drive: the next tick starts it,
    // once, and the file it replaces is left as any item is (its place kept).
    drives.described[1] = {u"/dev/sr1"_qs, true, u"MOVIE"_qs, folderWith(u"movie"_qs, u"Video_TS"_qs)};
    int left = 0;
    QObject::connect(&player, &Player::leavingItem, [&] { ++left; });
    dvd.enableCheck();
    dvd.checkForDisc();
    EXPECT_TRUE(settle());
    EXPECT_EQ(left, 1);
    EXPECT_FALSE(dvd.checkTimer().isActive());
    ASSERT_EQ(playlist.count(), 1);
    EXPECT_EQ((QStringList{list.itemText(0), playlist.fullPath(0), playlist.mediaInfo(0), engine.items.value(0).mrl}),
              (QStringList{u"MOVIE (/dev/sr1)"_qs, u"dvd:///dev/sr1"_qs, u"Video DVD"_qs, u"dvd:///dev/sr1"_qs}));
    EXPECT_EQ(list.selectedItem(), 0);
    EXPECT_EQ(engine.calls.last(), u"play"_qs);
    EXPECT_TRUE(state.MediaLoaded);

    // It plays to its end and the monitor asks for polling again; meanwhile
    // the second drive was unplugged. The data disc never starts.
    drives.described.removeLast();
    engine.scriptedLength = engine.scriptedTime = 3000;
    transport.monitorTick();
    transport.monitorTick();
    EXPECT_TRUE(dvd.checkTimer().isActive());
    const auto calls = engine.calls.size();
    dvd.checkForDisc();
    EXPECT_FALSE(menu.item(menu.IndexOfKey(u"DVDList1"_qs)).visible);
    EXPECT_EQ(engine.calls.size(), calls);

    // A DVD folder the engine cannot read is answered like a missing disc.
    const QString folder = folderWith(u"Summer 2024"_qs, u"VIDEO_TS"_qs);
    ASSERT_TRUE(dvd.playDvdSource(folder));
    EXPECT_TRUE(settle());
    EXPECT_EQ(list.itemText(0) + u'|' + playlist.fullPath(0), u"Summer 2024|dvd://"_qs + folder);
    engine.scriptedState = Engine::Error;
    transport.monitorTick();
    EXPECT_EQ(notifier.texts(), QStringList(2, u"Please insert a valid DVD."_qs));
}
