#include "menus/commanddispatcher.h"
#include "menus/menumodel.h"
#include "playback/trackkeeper.h"
#include "playlist/filechooser.h"
#include "support/playbackrig.h"
#include "support/qstringprint.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

struct RecordingActions final : CommandActions, DriveActions {
    QStringList calls;
    std::function<void(bool)> onOpen;
    void openFiles(bool append) override
    {
        calls << (append ? u"add"_qs : u"open"_qs);
        if (onOpen)
            onOpen(append);
    }
    void closeWindow() override { calls << u"close"_qs; }
    void minimize() override { calls << u"minimize"_qs; }
    void toggleMaximize() override { calls << u"maximize"_qs; }
    void maximizeOrRestore() override { calls << u"restore"_qs; }
    void showMediaInformation() override { calls << u"info"_qs; }
    void showCaption() override { calls << u"caption"_qs; }
    void popupDvdMenu() override { calls << u"dvdmenu"_qs; }
    void showSettings() override { calls << u"settings"_qs; }
    void showAbout() override { calls << u"about"_qs; }
    void setStaysOnTop(bool on) override { calls << u"top%1"_qs.arg(on); }
    void openUrl(const QUrl &url) override { calls << url.toString(); }
    void playHistoryEntry(int slot) override { calls << u"history%1"_qs.arg(slot); }
    void changeVolume(int delta) override { calls << u"volume%1"_qs.arg(delta); }
    void playDrive(int index) override { calls << u"drive%1"_qs.arg(index); }
    void refreshDrives() override { calls << u"drives"_qs; }
};

const QStringList kPlayModes{u"PMNormal"_qs, u"PMContinuous"_qs, u"PMShuffle"_qs};
const QStringList kRepeatModes{u"RMNoRepeat"_qs, u"RMSingleRepeat"_qs, u"RMRepeatAll"_qs};
const QStringList kAfterPlay{u"Donothing"_qs, u"ExitQuorvel"_qs, u"RestartTheComputer"_qs, u"ShutdownTheComputer"_qs};
const QStringList kClassicPlayModes{u"mnuPBNormal"_qs, u"mnuPBCont"_qs, u"mnuPBShuffle"_qs};
const QStringList kClassicRepeatModes{u"mnuRMNoRepeat"_qs, u"mnuRMSingleRepeat"_qs, u"mnuRMRepeatAll"_qs};
const QStringList kClassicAfterPlay{u"mnuAfterPlaying0"_qs, u"mnuAfterPlaying1"_qs, u"mnuAfterPlaying2"_qs,
                                    u"mnuAfterPlaying3"_qs};
const QStringList kPlaylistItems{u"Remove"_qs, u"RemoveAll"_qs, u"Next"_qs, u"Previous"_qs};

struct DispatcherFixture : ::testing::Test, test::TransportRig {
    MenuModel menu, classic;
    RecordingActions actions;
    CommandDispatcher commands{menu, classic, transport, playlist, state, settings, actions, notifier};

    void SetUp() override
    {
        BuildMenu(menu);
        BuildClassicMenu(classic);
        commands.setDriveActions(&actions);
        commands.setProgramFolder(dir.path() + u'/'); // ends in "/", as the program folder does
    }
    void startFirst() { start(0); }
    void choose(MenuModel &m, const QString &key) { m.choose(m.IndexOfKey(key)); }
    void openBranch(const QString &key) { classic.open(classic.IndexOfKey(key)); }
    // What the window and the engine were asked for since the last call.
    QString taken()
    {
        const QString all = (actions.calls + engine.calls).join(u' ');
        actions.calls.clear();
        engine.calls.clear();
        return all;
    }
    static QStringList checked(const MenuModel &m, const QStringList &group)
    {
        QStringList on;
        for (const QString &k : group) {
            if (m.isChecked(k))
                on << k;
        }
        return on;
    }
};

} // namespace

TEST_F(DispatcherFixture, EachCommandOfBothTreesReachesItsAction)
{
    addFiles(2);
    startFirst();
    const QString help = QDir(dir.path()).filePath(u"help/index.html"_qs);
    QDir(dir.path()).mkpath(u"help"_qs);
    QFile(help).open(QIODevice::WriteOnly);
    commands.setDvdEntries({u"MOVIE (/dev/sr0)"_qs, u"<Please insert a DVD> (/dev/sr1)"_qs});
    taken();
    const struct {
        bool popup; // the pop-up tree, else the menu bar
        const char *key;
        QString expected;
    } rows[] = {
        {false, "OpenFile", "open"},
        {false, "Exit", "close"},
        {false, "FullScreen", "setFullscreen"},
        {false, "IncreaseSpeed", "setRate"},
        {false, "ResetSpeed", "setRate"},
        {false, "Next", u"add "_qs + dir.filePath(u"clip1.mp4"_qs)},
        {false, "Options", "top0 settings top0"},
        {false, "HelpTopics", QUrl::fromLocalFile(help).toString()},
        {false, "History3", "history3"},
        {false, "DVDList1", "drive1"},
        {false, "PlayPause", "togglePause"},
        {true, "mnuplay", "togglePause"},
        {true, "mnuPlayListAdd", "add"},
        {true, "mnuPrev", u"add "_qs + dir.filePath(u"clip0.mp4"_qs)},
        {true, "mnuSettings", "top0 settings top0"},
        {true, "mnuHelp", QUrl::fromLocalFile(help).toString()},
        {true, "dvdsList0", "drive0"},
        {true, "mnustop", "stop"},
    };
    for (const auto &row : rows) {
        choose(row.popup ? classic : menu, QString::fromLatin1(row.key));
        const QString got = taken();
        EXPECT_TRUE(got.contains(row.expected)) << row.key << ": " << got.toStdString();
    }
    // The skin buttons and the player keys take the same road.
    commands.runSkinCommand(SkinCommand::Dvd);
    commands.runSkinCommand(SkinCommand::Mute);
    EXPECT_EQ(taken(), u"dvdmenu toggleMute"_qs);
    startFirst();
    engine.scriptedTime = 5000;
    engine.scriptedLength = 60000;
    taken();
    EXPECT_TRUE(commands.runKey(QKeySequence(Qt::Key_Right)));
    EXPECT_DOUBLE_EQ(engine.lastSetPosition, 0.25);
    EXPECT_TRUE(commands.runKey(QKeySequence(Qt::Key_Left)));
    EXPECT_DOUBLE_EQ(engine.lastSetPosition, 0.0); // not before the start
    EXPECT_TRUE(commands.runKey(QKeySequence(Qt::Key_Up)));
    EXPECT_TRUE(commands.runKey(QKeySequence(Qt::Key_Space)));
    EXPECT_FALSE(commands.runKey(QKeySequence(Qt::Key_Escape)));
    EXPECT_EQ(taken(), u"volume5 setPosition setPosition togglePause"_qs);
}

TEST_F(DispatcherFixture, MenuStatesFollowThePlaylistAndStopRules)
{
    for (const QString &k : kPlaylistItems)
        menu.setEnabled(k, false);
    menu.setEnabled(u"Stop"_qs, false);
    // Play/Pause on an empty list asks for files and enables Stop, cancelled or not.
    choose(menu, u"PlayPause"_qs);
    EXPECT_EQ(taken(), u"open"_qs);
    EXPECT_TRUE(menu.isEnabled(u"Stop"_qs));
    choose(menu, u"AddVideoFile"_qs); // cancelled
    EXPECT_FALSE(menu.isEnabled(u"Remove"_qs));
    actions.onOpen = [this](bool) { addFiles(2); };
    choose(menu, u"AddVideoFile"_qs);
    EXPECT_EQ(list.selectedItem(), 0);
    for (const QString &k : kPlaylistItems)
        EXPECT_TRUE(menu.isEnabled(k)) << k.toStdString();
    // The pop-up tree sets its own states when its branches open.
    openBranch(u"mnuPlayListmenu"_qs);
    openBranch(u"mnuPlayBackMenu"_qs);
    EXPECT_TRUE(classic.isEnabled(u"mnuNext"_qs));
    EXPECT_FALSE(classic.isEnabled(u"mnufullscreen"_qs)); // nothing loaded
    startFirst();
    openBranch(u"mnuPlayBackMenu"_qs);
    EXPECT_TRUE(classic.isEnabled(u"mnufullscreen"_qs));
    for (int i = 0; i < 4; ++i) // up to 16x, the limit
        choose(menu, u"IncreaseSpeed"_qs);
    EXPECT_FALSE(menu.isEnabled(u"IncreaseSpeed"_qs));
    EXPECT_TRUE(menu.isEnabled(u"DecreaseSpeed"_qs));

    choose(menu, u"Stop"_qs);
    EXPECT_FALSE(menu.isEnabled(u"Stop"_qs));
    choose(menu, u"Remove"_qs);
    EXPECT_TRUE(menu.isEnabled(u"Next"_qs)); // one entry left
    choose(menu, u"Remove"_qs);
    for (const QString &k : kPlaylistItems)
        EXPECT_FALSE(menu.isEnabled(k)) << k.toStdString();
    openBranch(u"mnuPlayListmenu"_qs);
    EXPECT_FALSE(classic.isEnabled(u"mnuPlayListRemoveAll"_qs));
    menu.setEnabled(u"RemoveAll"_qs, true);
    choose(menu, u"RemoveAll"_qs); // even on an empty list
    EXPECT_FALSE(menu.isEnabled(u"RemoveAll"_qs));
    EXPECT_EQ(state.CaptionText, u"Quorvel"_qs);
}

TEST_F(DispatcherFixture, AModeChosenInEitherTreeShowsOneCheckPerGroupInBoth)
{
    const struct {
        bool popup;
        const char *key;
        int play, repeat, after; // the checked member of each group
    } rows[] = {
        {true, "mnuPBShuffle", 2, -1, -1},   {false, "PMContinuous", 1, -1, -1},
        {true, "mnuRMRepeatAll", 1, 2, -1},  {false, "RMSingleRepeat", 1, 1, -1},
        {true, "mnuAfterPlaying2", 1, 1, 2}, {false, "ShutdownTheComputer", 1, 1, 3},
        {false, "PMNormal", 0, 1, 3},        {true, "mnuAfterPlaying0", 0, 1, 0},
    };
    for (const auto &row : rows) {
        choose(row.popup ? classic : menu, QString::fromLatin1(row.key));
        openBranch(u"mnuPlayBackMenu"_qs);
        openBranch(u"mnuAfterMenu"_qs);
        auto expect = [&](const QStringList &keyed, const QStringList &popup, int at) {
            EXPECT_EQ(checked(menu, keyed), at < 0 ? QStringList() : QStringList{keyed[at]}) << row.key;
            EXPECT_EQ(checked(classic, popup), at < 0 ? QStringList() : QStringList{popup[at]}) << row.key;
        };
        if (row.repeat >= 0)
            expect(kRepeatModes, kClassicRepeatModes, row.repeat);
        if (row.after >= 0)
            expect(kAfterPlay, kClassicAfterPlay, row.after);
        expect(kPlayModes, kClassicPlayModes, row.play);
    }
    EXPECT_EQ(settings.PlayMode, PlayNormal);
    EXPECT_EQ(transport.afterPlayAction(), AfterDoNothing);
}

TEST_F(DispatcherFixture, DriveEntriesAndHelpWithoutItsPages)
{
    commands.setDvdEntries({u"MOVIE (/dev/sr0)"_qs, u"DATA (/dev/sr1)"_qs});
    EXPECT_TRUE(menu.isVisible(u"DVDList1"_qs) && menu.isEnabled(u"DVDList0"_qs));
    EXPECT_FALSE(menu.isVisible(u"DVDList2"_qs));
    EXPECT_EQ(classic.caption(u"dvdsList1"_qs), u"DATA (/dev/sr1)"_qs);
    commands.setDvdEntries({});
    EXPECT_EQ(menu.caption(u"DVDList0"_qs), u"<No DVD drives were found>"_qs);
    EXPECT_EQ(classic.caption(u"dvdsList0"_qs), u"<No DVD drives were found>"_qs);
    EXPECT_FALSE(menu.isEnabled(u"DVDList0"_qs) || menu.isVisible(u"DVDList1"_qs)
                 || classic.isVisible(u"dvdsList1"_qs));
    choose(classic, u"dvdsList0"_qs); // no drive: nothing plays
    openBranch(u"mnuOpenDVD"_qs);
    EXPECT_EQ(taken(), u"drives"_qs);

    choose(menu, u"HelpTopics"_qs);
    EXPECT_EQ(taken(), QString());          // nothing opened...
    ASSERT_EQ(notifier.messages.size(), 1); // ...and the user is told why
    EXPECT_TRUE(notifier.messages[0].text.contains(u"help/index.html"_qs));
}

TEST_F(DispatcherFixture, TrackBranchesOfBothTreesShowTheEngineTracksAndSwitchThem)
{
    struct Chooser final : playlist::FileChooser {
        QStringList answer;
        QString folder;
        QStringList chooseFiles(const QString &, const QStringList &, const QString &initialFolder) override
        {
            folder = initialFolder;
            return answer;
        }
    } chooser;
    ResumeStore store(dir.filePath(u"positions.json"_qs));
    TrackKeeper tracks(engine, state, store, {});
    commands.setTracks(tracks, chooser);
    EXPECT_EQ(menu.caption(u"AudioTrack0"_qs), u"<No audio tracks>"_qs);
    EXPECT_FALSE(menu.isEnabled(u"AudioTrack0"_qs) || classic.isEnabled(u"mnuIncreaseSubtitleDelay"_qs));
    addFiles(1);
    startFirst();
    engine.scriptedAudio = {{1, u"eng"_qs, u"Commentary"_qs}, {2, u"jpn"_qs, {}}};
    engine.scriptedSubtitles = {{3, {}, {}}};
    engine.audio = 1;
    openBranch(u"mnuAudioTrackMenu"_qs); // opening a branch reads the engine
    EXPECT_EQ(menu.caption(u"AudioTrack0"_qs), u"English - Commentary"_qs);
    EXPECT_EQ(classic.caption(u"mnuAudioTrack1"_qs), u"Japanese"_qs);
    EXPECT_EQ(classic.caption(u"mnuSubtitle0"_qs), u"Track 1"_qs);
    EXPECT_FALSE(menu.isVisible(u"AudioTrack2"_qs));
    EXPECT_EQ(checked(menu, {u"AudioTrack0"_qs, u"AudioTrack1"_qs, u"DisableSubtitles"_qs}),
              (QStringList{u"AudioTrack0"_qs, u"DisableSubtitles"_qs}));

    choose(classic, u"mnuAudioTrack1"_qs);
    choose(menu, u"Subtitle0"_qs);
    EXPECT_EQ(engine.audio, 2);
    EXPECT_EQ(engine.subtitle, 3);
    EXPECT_EQ(
        checked(classic, {u"mnuAudioTrack0"_qs, u"mnuAudioTrack1"_qs, u"mnuSubtitle0"_qs, u"mnuDisableSubtitles"_qs}),
        (QStringList{u"mnuAudioTrack1"_qs, u"mnuSubtitle0"_qs}));
    QList<qint64> shown;
    QObject::connect(&tracks, &TrackKeeper::subtitleDelayStepped, [&](qint64 ms) { shown << ms; });
    choose(menu, u"IncreaseSubtitleDelay"_qs);
    choose(menu, u"IncreaseSubtitleDelay"_qs);
    choose(classic, u"mnuDecreaseSubtitleDelay"_qs);
    EXPECT_EQ(shown, (QList<qint64>{100, 200, 100}));
    chooser.answer = {dir.filePath(u"clip0.srt"_qs)};
    choose(menu, u"LoadSubtitleFile"_qs);
    EXPECT_EQ(chooser.folder, QFileInfo(dir.path()).absoluteFilePath()); // beside the playing file
    EXPECT_EQ(engine.subtitleFiles, chooser.answer);
    engine.scriptedSubtitles.append({9, {}, {}}); // the engine has read it
    tracks.sample();
    EXPECT_EQ(menu.caption(u"Subtitle1"_qs), u"clip0.srt"_qs);
}
