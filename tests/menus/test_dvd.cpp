#include "media/existingfileprobe.h"
#include "menus/dvdplayback.h"
#include "menus/menumodel.h"
#include "playback/player.h"
#include "playback/systempower.h"
#include "playback/transport.h"
#include "playlist/playlist.h"
#include "support/fakedrivelist.h"
#include "support/fakeengine.h"
#include "support/recordingnotifier.h"
#include "support/waituntil.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// An image whose ISO 9660 descriptor carries `label`; `id` "NONE" makes junk.
QString writeImage(const QString &path, const QByteArray &id, const QByteArray &label)
{
    QByteArray data(17 * 2048, '\0');
    data[16 * 2048] = 1;
    data.replace(16 * 2048 + 1, 5, id);
    data.replace(16 * 2048 + 40, label.size(), label);
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(data);
    return path;
}

OpticalDrive drive(const QString &device, bool disc, const QString &label = {}, const QString &mount = {})
{
    return {device, disc, label, mount};
}

} // namespace

TEST(DvdDrives, SystemTablesAndDvdSourcesAreRead)
{
    EXPECT_EQ(
        CdromDriveNames("CD-ROM information, Id: cdrom.c 3.20\n\ndrive name:\t\tsr10\tsr1\tsr0\ndrive speed:\t24\n"),
        (QStringList{u"sr0"_qs, u"sr1"_qs, u"sr10"_qs}));
    const auto mounts = MountPointsBySource("36 25 11:0 / /media/u/MY\\040FILM ro,nosuid shared:1 - udf /dev/sr0 ro\n"
                                            "37 25 11:1 /sub /mnt/bind rw - iso9660 /dev/sr1 ro\n"
                                            "38 25 8:1 / / rw - ext4 /dev/sda1 rw\n");
    EXPECT_EQ(mounts.value(u"/dev/sr0"_qs), u"/media/u/MY FILM"_qs);
    EXPECT_FALSE(mounts.contains(u"/dev/sr1"_qs)); // a bind mount of a sub-folder is not the disc's root
    EXPECT_EQ(mounts.value(u"/dev/sda1"_qs), u"/"_qs);

    QTemporaryDir dir;
    QDir(dir.path()).mkpath(u"Film/video_ts"_qs);
    QFile(dir.filePath(u"Film/video_ts/VIDEO_TS.IFO"_qs)).open(QIODevice::WriteOnly);
    QDir(dir.path()).mkpath(u"Plain"_qs);
    bool readable = false;
    EXPECT_EQ(IsoVolumeLabel(writeImage(dir.filePath(u"film.ISO"_qs), "CD001", "MOVIE   "), &readable), u"MOVIE"_qs);
    EXPECT_TRUE(readable);
    writeImage(dir.filePath(u"junk.iso"_qs), "NONE!", {});
    const QString film = dir.filePath(u"Film"_qs);
    const struct {
        QString given, source;
    } cases[] = {
        {film, film},
        {film + u"/video_ts"_qs, film},
        {film + u"/video_ts/VIDEO_TS.IFO"_qs, film},
        {dir.filePath(u"film.ISO"_qs), dir.filePath(u"film.ISO"_qs)},
        {dir.filePath(u"junk.iso"_qs), {}},
        {dir.filePath(u"Plain"_qs), {}},
        {dir.filePath(u"missing.iso"_qs), {}},
    };
    for (const auto &c : cases)
        EXPECT_EQ(DvdSourceOf(c.given), c.source) << c.given.toStdString();
}

TEST(DvdDrives, EnumerationShowsInTheKeyedMenu)
{
    const struct {
        QVector<OpticalDrive> drives;
        QStringList captions;
    } cases[] = {
        {{}, {}},
        {{drive(u"/dev/sr0"_qs, false), drive(u"/dev/sr1"_qs, true, u"MOVIE"_qs)},
         {u"<Please insert a DVD> (/dev/sr0)"_qs, u"MOVIE (/dev/sr1)"_qs}},
        {{drive(u"/dev/sr0"_qs, true)}, {u" (/dev/sr0)"_qs}}, // a disc without a label
        {QVector<OpticalDrive>(7, drive(u"/dev/sr0"_qs, false)),
         QStringList(7, u"<Please insert a DVD> (/dev/sr0)"_qs)},
    };
    MenuModel menu;
    BuildMenu(menu);
    test::FakeDriveList list;
    for (const auto &c : cases) {
        list.described = c.drives;
        const DvdEnumeration e = EnumDVDDrives(list);
        EXPECT_EQ(e.captions, c.captions);
        ShowDrivesInMenu(e, menu);
        const auto &first = menu.item(menu.IndexOfKey(u"DVDList0"_qs));
        EXPECT_EQ(first.caption, c.captions.isEmpty() ? kNoDvdDrivesCaption : c.captions[0]);
        EXPECT_EQ(first.enabled, !c.captions.isEmpty());
        for (int k = 1; k < 6; ++k)
            EXPECT_EQ(menu.item(menu.IndexOfKey(u"DVDList%1"_qs.arg(k))).visible, k < c.captions.size()) << k;
    }
}

namespace {

struct NoPower final : playback::PowerControl {
    void reboot() override {}
    void powerOff() override {}
};

struct TimeView final : TransportView {
    QString time;
    DvdPlayback *dvd = nullptr;
    void enableDvdCheck() override { dvd->enableCheck(); }
    void setTimeText(const QString &t) override { time = t; }
    void setRateText(const QString &, bool) override {}
    void setProgressPercent(int) override {}
    void openFiles(bool) override {}
    void togglePlaylist() override {}
    void closeWindow() override {}
    void controlsChanged() override {}
};

struct DvdFixture : ::testing::Test {
    QTemporaryDir dir;
    Settings settings;
    PlaybackState state;
    test::FakeEngine engine;
    MemoryThumbList list;
    ExistingFileProbe probe;
    test::RecordingNotifier notifier;
    Playlist playlist{list, probe, notifier};
    Player player{engine, settings, state, playlist};
    MenuModel menu;
    NoPower power;
    TimeView view;
    Transport transport{engine, settings, state, playlist, player, menu, power, view};
    test::FakeDriveList drives;
    DvdPlayback dvd{drives, transport, player, playlist, menu, notifier, view, dir.path() + u'/'};

    void SetUp() override
    {
        BuildMenu(menu);
        view.dvd = &dvd;
        player.SaveVLCOptions();
        player.setNotifier(&notifier);
        transport.setStopSettleDelay(0);
        player.enableMediaControl(MediaAction::Stopped);
        playlist.setOrderHandler([this] { transport.rebuildOrder(); });
        playlist.setPlayHandler([this](int i, bool fs) { player.PlayItem(i, fs); });
    }
    // A playing file, so that a DVD start has something to stop and clear.
    void playFile()
    {
        const QString path = dir.filePath(u"clip.mp4"_qs);
        QFile f(path);
        f.open(QIODevice::WriteOnly);
        f.write("x");
        f.close();
        playlist.LoadThumb(u"clip.mp4"_qs, path, false, true);
        playlist.waitForAdds();
        ASSERT_TRUE(state.MediaLoaded);
    }
    void settle()
    {
        QCoreApplication::processEvents();
        EXPECT_TRUE(test::waitUntil([&] { return !transport.isStopping(); }));
    }
    QString mountedDisc(const QString &name, const QString &videoTs)
    {
        QDir(dir.path()).mkpath(name + u'/' + videoTs);
        return dir.filePath(name);
    }
};

} // namespace

TEST_F(DvdFixture, PollingStartsAMountedVideoDvdOnceAndFollowsTheDrives)
{
    playFile();
    drives.described = {drive(u"/dev/sr0"_qs, true, u"DATA"_qs, mountedDisc(u"data"_qs, u"photos"_qs)),
                        drive(u"/dev/sr1"_qs, true, u"MOVIE"_qs, mountedDisc(u"movie"_qs, u"Video_TS"_qs))};
    dvd.checkTimer().start();
    dvd.checkForDisc();
    settle();
    EXPECT_FALSE(dvd.checkTimer().isActive());
    EXPECT_EQ(dvd.captions(), (QStringList{u"DATA (/dev/sr0)"_qs, u"MOVIE (/dev/sr1)"_qs}));
    ASSERT_EQ(playlist.count(), 1);
    EXPECT_EQ(list.itemText(0), u"MOVIE (/dev/sr1)"_qs);
    EXPECT_EQ(playlist.fullPath(0), u"dvd:///dev/sr1"_qs);
    EXPECT_EQ(playlist.mediaInfo(0), u"Video DVD"_qs);
    EXPECT_EQ(list.selectedItem(), 0);
    ASSERT_EQ(engine.items.size(), 1);
    EXPECT_EQ(engine.items[0].mrl, u"dvd:///dev/sr1"_qs);
    EXPECT_EQ(engine.calls.last(), u"play"_qs);
    EXPECT_TRUE(state.MediaLoaded);
    EXPECT_EQ(state.CurrentFile, u"dvd:///dev/sr1"_qs);

    // The disc plays to its end: the monitor polls again. Meanwhile the second
    // drive was unplugged, and the data disc is never started.
    drives.described.removeLast();
    engine.scriptedState = Engine::Playing;
    engine.scriptedLength = engine.scriptedTime = 3000;
    transport.tmrMovie_Timer();
    transport.tmrMovie_Timer();
    EXPECT_TRUE(dvd.checkTimer().isActive());
    const auto calls = engine.calls.size();
    dvd.checkForDisc();
    EXPECT_FALSE(menu.item(menu.IndexOfKey(u"DVDList1"_qs)).visible);
    EXPECT_EQ(menu.item(menu.IndexOfKey(u"DVDList0"_qs)).caption, u"DATA (/dev/sr0)"_qs);
    EXPECT_EQ(engine.calls.size(), calls);
    EXPECT_TRUE(notifier.messages.empty());
}

TEST_F(DvdFixture, ChoicesThatCannotPlayLoseNothing)
{
    playFile();
    drives.described = {drive(u"/dev/sr0"_qs, false)};
    dvd.refresh();
    const auto before = engine.calls;
    dvd.playDrive(0); // "<Please insert a DVD>"
    dvd.playDrive(3);
    EXPECT_FALSE(dvd.playDvdSource(mountedDisc(u"holiday"_qs, u"photos"_qs)));
    settle();
    EXPECT_EQ(engine.calls, before);
    EXPECT_EQ(playlist.fullPath(0), dir.filePath(u"clip.mp4"_qs));
    EXPECT_EQ(notifier.texts(), QStringList{u"Please insert a valid DVD."_qs});
    EXPECT_EQ(notifier.messages[0].icon, MessageNotifier::Icon::Critical);

    // A folder the engine then cannot read is said the same way.
    const QString folder = mountedDisc(u"Summer 2024"_qs, u"VIDEO_TS"_qs);
    ASSERT_TRUE(dvd.playDvdSource(folder));
    settle();
    EXPECT_EQ(list.itemText(0), u"Summer 2024"_qs);
    EXPECT_EQ(playlist.fullPath(0), u"dvd://"_qs + folder);
    engine.scriptedState = Engine::Error;
    transport.tmrMovie_Timer();
    EXPECT_EQ(notifier.texts().size(), 2);
    EXPECT_EQ(notifier.texts().last(), u"Please insert a valid DVD."_qs);
}
