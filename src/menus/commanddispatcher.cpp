#include "commanddispatcher.h"

#include "common/logging.h"
#include "common/notifier.h"
#include "common/tracelines.h"
#include "menus/helptopics.h"
#include "menus/menukeys.h"
#include "menus/menumodel.h"
#include "playback/engine.h"
#include "playback/playbackstate.h"
#include "playback/trackchoice.h"
#include "playback/trackkeeper.h"
#include "playback/transport.h"
#include "playlist/filechooser.h"
#include "playlist/playlist.h"
#include "settings/settings.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <utility>

namespace quorvel {

namespace {

using Command = void (*)(CommandDispatcher &);

const QStringList kPlaylistItems{QStringLiteral("Remove"), QStringLiteral("RemoveAll"), QStringLiteral("Next"),
                                 QStringLiteral("Previous")};
const QStringList kClassicPlayModes{QStringLiteral("mnuPBNormal"), QStringLiteral("mnuPBCont"),
                                    QStringLiteral("mnuPBShuffle")};
const QStringList kClassicRepeatModes{QStringLiteral("mnuRMNoRepeat"), QStringLiteral("mnuRMSingleRepeat"),
                                      QStringLiteral("mnuRMRepeatAll")};
const QStringList kClassicAfterPlay{QStringLiteral("mnuAfterPlaying0"), QStringLiteral("mnuAfterPlaying1"),
                                    QStringLiteral("mnuAfterPlaying2"), QStringLiteral("mnuAfterPlaying3")};
const QStringList kClassicMediaEntries{QStringLiteral("mnufullscreen"), QStringLiteral("mnuincspeed"),
                                       QStringLiteral("mnudecSpeed"), QStringLiteral("mnuresSpeed"),
                                       QStringLiteral("mnustop")};
const QStringList kClassicPlaylistEntries{QStringLiteral("mnuPlayListRemove"), QStringLiteral("mnuNext"),
                                          QStringLiteral("mnuPrev"), QStringLiteral("mnuPlayListRemoveAll")};
constexpr int kSeekStepMs = 10000;
constexpr int kVolumeStep = 5;
constexpr int kSubtitleDelayStepMs = 100;

// Checks the item of `group` at `index` and unchecks the others; an index
// outside the group changes nothing.
template <typename Group>
void checkOneOf(MenuModel &menu, const Group &group, int index)
{
    if (index < 0 || index >= int(std::size(group)))
        return;
    for (int i = 0; i < int(std::size(group)); ++i)
        menu.setChecked(group[i], i == index);
}

// The number after `prefix` in `key` ("History3" -> 3), or -1.
int numberAfter(const QString &key, QStringView prefix)
{
    if (!key.startsWith(prefix))
        return -1;
    bool ok = false;
    const int n = QStringView(key).mid(prefix.size()).toInt(&ok);
    return ok ? n : -1;
}

} // namespace

CommandDispatcher::CommandDispatcher(MenuModel &menu, MenuModel &classic, Transport &transport, Playlist &playlist,
                                     PlaybackState &state, Settings &settings, CommandActions &actions,
                                     MessageNotifier &notifier, QObject *parent)
    : QObject(parent), m_menu(menu), m_classic(classic), m_transport(transport), m_playlist(playlist), m_state(state),
      m_settings(settings), m_actions(actions), m_notifier(notifier)
{
    connect(&menu, &MenuModel::MenuItemClick, this, &CommandDispatcher::runMenuItem);
    connect(&classic, &MenuModel::MenuItemClick, this, &CommandDispatcher::runClassicItem);
    connect(&classic, &MenuModel::branchOpening, this, &CommandDispatcher::classicBranchOpening);
    connect(&menu, &MenuModel::branchOpening, this, [this](int position) {
        const QString key = m_menu.KeyAt(position);
        if (m_tracks && (key == menukey::AudioTrackMenu || key == menukey::SubtitleMenu))
            trackBranchOpening(key);
    });
    // The transport says what it set; both trees show it.
    connect(&transport, &Transport::playModeChanged, this, [this](int mode) {
        checkOneOf(m_menu, menukey::kPlayModes, mode);
        checkOneOf(m_classic, kClassicPlayModes, mode);
    });
    connect(&transport, &Transport::repeatModeChanged, this, [this](int mode) {
        checkOneOf(m_menu, menukey::kRepeatModes, mode);
        checkOneOf(m_classic, kClassicRepeatModes, mode);
    });
    connect(&transport, &Transport::afterPlayChanged, this, [this](int action) {
        checkOneOf(m_menu, menukey::kAfterPlay, action);
        checkOneOf(m_classic, kClassicAfterPlay, action);
    });
    connect(&transport, &Transport::rateStepsChanged, this, [this](bool canIncrease, bool canDecrease) {
        m_menu.setEnabled(menukey::IncreaseSpeed, canIncrease);
        m_menu.setEnabled(menukey::DecreaseSpeed, canDecrease);
    });
}

void CommandDispatcher::runMenuItem(int position)
{
    // Compared in this order; the first equal key decides.
    static const std::array<std::pair<QStringView, Command>, 26> table{{
        {u"OpenFile", [](CommandDispatcher &d) { d.m_actions.openFiles(false); }},
        {u"Exit", [](CommandDispatcher &d) { d.m_actions.closeWindow(); }},
        {u"PlayPause", [](CommandDispatcher &d) { d.playPause(true); }},
        {u"Stop",
         [](CommandDispatcher &d) {
             d.m_transport.stop();
             d.m_menu.setEnabled(QStringLiteral("Stop"), false);
         }},
        {u"PMNormal", [](CommandDispatcher &d) { d.setPlayMode(PlayNormal); }},
        {u"PMContinuous", [](CommandDispatcher &d) { d.setPlayMode(PlayContinuous); }},
        {u"PMShuffle", [](CommandDispatcher &d) { d.setPlayMode(PlayShuffle); }},
        {u"RMNoRepeat", [](CommandDispatcher &d) { d.setRepeatMode(RepeatNoRepeat); }},
        {u"RMSingleRepeat", [](CommandDispatcher &d) { d.setRepeatMode(RepeatSingleItem); }},
        {u"RMRepeatAll", [](CommandDispatcher &d) { d.setRepeatMode(RepeatAllItems); }},
        {u"FullScreen", [](CommandDispatcher &d) { d.m_transport.toggleFullScreen(); }},
        {u"IncreaseSpeed", [](CommandDispatcher &d) { d.m_transport.IncreaseRate(); }},
        {u"DecreaseSpeed", [](CommandDispatcher &d) { d.m_transport.DecreaseRate(); }},
        {u"ResetSpeed", [](CommandDispatcher &d) { d.m_transport.ResetRate(); }},
        {u"Donothing", [](CommandDispatcher &d) { d.setAfterPlay(AfterDoNothing); }},
        {u"ExitQuorvel", [](CommandDispatcher &d) { d.setAfterPlay(AfterExit); }},
        {u"RestartTheComputer", [](CommandDispatcher &d) { d.setAfterPlay(AfterRestart); }},
        {u"ShutdownTheComputer", [](CommandDispatcher &d) { d.setAfterPlay(AfterShutdown); }},
        {u"AddVideoFile", [](CommandDispatcher &d) { d.addFiles(); }},
        {u"Remove", [](CommandDispatcher &d) { d.removeSelected(); }},
        {u"RemoveAll", [](CommandDispatcher &d) { d.removeAll(); }},
        {u"Next", [](CommandDispatcher &d) { d.m_transport.next(); }},
        {u"Previous", [](CommandDispatcher &d) { d.m_transport.previous(); }},
        {u"Options", [](CommandDispatcher &d) { d.showDialog(&CommandActions::showSettings); }},
        {u"About", [](CommandDispatcher &d) { d.showDialog(&CommandActions::showAbout); }},
        {u"HelpTopics", [](CommandDispatcher &d) { d.openHelp(); }},
    }};
    const QString key = m_menu.KeyAt(position);
    qCDebug(lcApp) << trace::kMenu << key;
    for (const auto &[name, run] : table) {
        if (key == name)
            return run(*this);
    }
    if (runTrackCommand(key))
        return;
    if (const int slot = numberAfter(key, u"History"); slot >= 0)
        return m_actions.playHistoryEntry(slot);
    if (const int drive = numberAfter(key, u"DVDList"); drive >= 0)
        return playDrive(drive);
    // Anything else (branches, separators) does nothing.
}

void CommandDispatcher::runClassicItem(int position)
{
    static const std::array<std::pair<QStringView, Command>, 22> table{{
        {u"mnuOpenFile", [](CommandDispatcher &d) { d.m_actions.openFiles(false); }},
        {u"mnuExit", [](CommandDispatcher &d) { d.m_actions.closeWindow(); }},
        {u"mnuplay", [](CommandDispatcher &d) { d.playPause(false); }},
        {u"mnustop", [](CommandDispatcher &d) { d.m_transport.stop(); }},
        {u"mnuPBNormal", [](CommandDispatcher &d) { d.setPlayMode(PlayNormal); }},
        {u"mnuPBCont", [](CommandDispatcher &d) { d.setPlayMode(PlayContinuous); }},
        {u"mnuPBShuffle", [](CommandDispatcher &d) { d.setPlayMode(PlayShuffle); }},
        {u"mnuRMNoRepeat", [](CommandDispatcher &d) { d.setRepeatMode(RepeatNoRepeat); }},
        {u"mnuRMSingleRepeat", [](CommandDispatcher &d) { d.setRepeatMode(RepeatSingleItem); }},
        {u"mnuRMRepeatAll", [](CommandDispatcher &d) { d.setRepeatMode(RepeatAllItems); }},
        {u"mnufullscreen", [](CommandDispatcher &d) { d.m_transport.toggleFullScreen(); }},
        {u"mnuincspeed", [](CommandDispatcher &d) { d.m_transport.IncreaseRate(); }},
        {u"mnudecSpeed", [](CommandDispatcher &d) { d.m_transport.DecreaseRate(); }},
        {u"mnuresSpeed", [](CommandDispatcher &d) { d.m_transport.ResetRate(); }},
        {u"mnuPlayListAdd", [](CommandDispatcher &d) { d.m_actions.openFiles(true); }},
        {u"mnuPlayListRemove", [](CommandDispatcher &d) { d.m_playlist.removeSelected(); }},
        {u"mnuPlayListRemoveAll", [](CommandDispatcher &d) { d.removeAll(); }},
        {u"mnuNext", [](CommandDispatcher &d) { d.m_transport.next(); }},
        {u"mnuPrev", [](CommandDispatcher &d) { d.m_transport.previous(); }},
        {u"mnuSettings", [](CommandDispatcher &d) { d.showDialog(&CommandActions::showSettings); }},
        {u"mnuAbout", [](CommandDispatcher &d) { d.showDialog(&CommandActions::showAbout); }},
        {u"mnuHelp", [](CommandDispatcher &d) { d.openHelp(); }},
    }};
    const QString key = m_classic.KeyAt(position);
    qCDebug(lcApp) << "pop-up menu" << key;
    for (const auto &[name, run] : table) {
        if (key == name)
            return run(*this);
    }
    if (key.startsWith(menukey::kClassicPrefix) && runTrackCommand(key.mid(menukey::kClassicPrefix.size())))
        return;
    if (const int action = numberAfter(key, u"mnuAfterPlaying"); action >= 0)
        return setAfterPlay(action);
    if (const int drive = numberAfter(key, u"dvdsList"); drive >= 0)
        return playDrive(drive);
}

void CommandDispatcher::classicBranchOpening(int position)
{
    const QString key = m_classic.KeyAt(position);
    if (key == u"mnuPlayBackMenu") {
        syncClassicChecks();
        for (const QString &entry : kClassicMediaEntries)
            m_classic.setEnabled(entry, m_state.MediaLoaded);
    } else if (key == u"mnuPlayListmenu") {
        for (const QString &entry : kClassicPlaylistEntries)
            m_classic.setEnabled(entry, m_playlist.list().count() > 0);
    } else if (key == u"mnuAfterMenu") {
        syncClassicChecks();
    } else if (key == u"mnuOpenDVD") {
        if (m_drives)
            m_drives->refreshDrives();
    } else if (m_tracks && key.startsWith(menukey::kClassicPrefix)) {
        const QStringView branch = QStringView(key).mid(menukey::kClassicPrefix.size());
        if (branch == menukey::AudioTrackMenu || branch == menukey::SubtitleMenu)
            trackBranchOpening(key);
    }
}

void CommandDispatcher::trackBranchOpening(const QString &key)
{
    m_tracks->sample(); // the tracks as they are now; the entries follow
    qCDebug(lcApp) << trace::kTrackMenuOpened << key;
}

void CommandDispatcher::setTracks(TrackKeeper &tracks, playlist::FileChooser &chooser)
{
    m_tracks = &tracks;
    m_subtitleChooser = &chooser;
    connect(&tracks, &TrackKeeper::tracksChanged, this, &CommandDispatcher::showTracks);
    showTracks();
}

bool CommandDispatcher::runTrackCommand(const QString &key)
{
    if (!m_tracks)
        return false;
    const QList<Engine::Track> &audio = m_tracks->audioTracks();
    const QList<Engine::Track> &subtitles = m_tracks->subtitleTracks();
    if (const int slot = numberAfter(key, QString(menukey::AudioTrackPrefix)); slot >= 0) {
        if (slot < audio.size())
            m_tracks->chooseAudioTrack(audio[slot].id);
    } else if (const int sub = numberAfter(key, QString(menukey::SubtitlePrefix)); sub >= 0) {
        if (sub < subtitles.size())
            m_tracks->chooseSubtitleTrack(subtitles[sub].id);
    } else if (key == menukey::DisableSubtitles) {
        m_tracks->chooseSubtitleTrack(-1);
    } else if (key == menukey::LoadSubtitleFile) {
        loadSubtitleFile();
    } else if (key == menukey::IncreaseSubtitleDelay) {
        m_tracks->stepSubtitleDelay(kSubtitleDelayStepMs);
    } else if (key == menukey::DecreaseSubtitleDelay) {
        m_tracks->stepSubtitleDelay(-kSubtitleDelayStepMs);
    } else {
        return false;
    }
    // The check marks follow the engine, not the click.
    showTracks();
    return true;
}

void CommandDispatcher::showTracks()
{
    if (!m_tracks)
        return;
    TrackEntries entries;
    const auto name = [this](const QList<Engine::Track> &tracks, int current, QStringList &names, int &index) {
        for (int i = 0; i < tracks.size(); ++i) {
            // A subtitle file the user added is named by its file when it says nothing else.
            const QString file = m_tracks->subtitleFileOf(tracks[i].id);
            const bool plain = tracks[i].language.isEmpty() && tracks[i].description.isEmpty();
            names << (plain && !file.isEmpty() ? QFileInfo(file).fileName() : TrackName(tracks[i], i + 1));
            if (tracks[i].id == current)
                index = i;
        }
    };
    name(m_tracks->audioTracks(), m_tracks->audioTrack(), entries.audio, entries.audioCurrent);
    name(m_tracks->subtitleTracks(), m_tracks->subtitleTrack(), entries.subtitles, entries.subtitleCurrent);
    entries.usable = m_transport.engine().itemCount() > 0;
    ShowTracks(m_menu, QString(), entries);
    ShowTracks(m_classic, menukey::kClassicPrefix, entries);
}

void CommandDispatcher::loadSubtitleFile()
{
    const QString current = m_state.CurrentFile;
    const QString folder = current.isEmpty() || IsEngineLocation(current) ? QString()
                                                                          : QFileInfo(current).absolutePath();
    const QStringList chosen = m_subtitleChooser->chooseFiles(
        QStringLiteral("Load subtitle file"),
        {QStringLiteral("Subtitle files (*.srt *.ass *.ssa *.vtt *.sub *.idx *.smi *.txt)"),
         QStringLiteral("All files (*)")},
        folder);
    if (!chosen.isEmpty())
        m_tracks->loadSubtitleFile(chosen.first());
}

void CommandDispatcher::runSkinCommand(SkinCommand c)
{
    Transport &t = m_transport;
    switch (c) {
    case SkinCommand::Close:
        return m_actions.closeWindow();
    case SkinCommand::ToggleMaximize:
        return m_actions.toggleMaximize();
    case SkinCommand::Minimize:
        return m_actions.minimize();
    case SkinCommand::MaximizeOrRestore:
        return m_actions.maximizeOrRestore();
    case SkinCommand::Play:
        return t.play();
    case SkinCommand::Pause:
        return t.pause();
    case SkinCommand::Stop:
        return t.stop();
    case SkinCommand::Previous:
        return t.previous();
    case SkinCommand::Next:
        return t.next();
    case SkinCommand::StartRewind:
        return t.StartRewind();
    case SkinCommand::StopRewind:
        return t.StopRewind();
    case SkinCommand::FastForwardDown:
        return t.fastForwardPressed();
    case SkinCommand::FastForwardUp:
        return t.fastForwardReleased();
    case SkinCommand::MediaInfo:
        return m_actions.showMediaInformation();
    case SkinCommand::FullScreen:
        return t.toggleFullScreen();
    case SkinCommand::PlayList:
        return t.togglePlaylist();
    case SkinCommand::Dvd:
        return m_actions.popupDvdMenu();
    case SkinCommand::Open:
        return m_actions.openFiles(false);
    case SkinCommand::Mute:
        return t.toggleMute();
    case SkinCommand::DragWindow:
    case SkinCommand::None:
        return;
    }
}

bool CommandDispatcher::runKey(const QKeySequence &key)
{
    if (key == QKeySequence(Qt::Key_Space)) {
        // Pauses or resumes what is loaded; otherwise plays the selection
        // (or asks for files when the list is empty).
        if (m_state.MediaLoaded || m_state.IsHalted)
            m_transport.pause();
        else
            m_transport.play();
    } else if (key == QKeySequence(Qt::Key_Left)) {
        seekBy(-kSeekStepMs);
    } else if (key == QKeySequence(Qt::Key_Right)) {
        seekBy(kSeekStepMs);
    } else if (key == QKeySequence(Qt::Key_Up)) {
        m_actions.changeVolume(kVolumeStep);
    } else if (key == QKeySequence(Qt::Key_Down)) {
        m_actions.changeVolume(-kVolumeStep);
    } else {
        return false;
    }
    qCDebug(lcApp) << "key" << key.toString();
    return true;
}

void CommandDispatcher::seekBy(int ms)
{
    Engine &engine = m_transport.engine();
    const double length = engine.length();
    if (!m_state.MediaLoaded || length <= 0)
        return;
    engine.setPosition(std::clamp((engine.time() + ms) / length, 0.0, 1.0));
}

void CommandDispatcher::playPause(bool enableStop)
{
    if (m_playlist.list().count() < 1) {
        m_actions.openFiles(false);
        // Even when the dialog was cancelled: only the bar's item follows.
        if (enableStop)
            m_menu.setEnabled(QStringLiteral("Stop"), true);
        return;
    }
    m_transport.pause();
}

void CommandDispatcher::setPlayMode(int mode)
{
    switch (mode) {
    case PlayContinuous:
        m_transport.PBContinuous();
        break;
    case PlayShuffle:
        m_transport.PBShuffle();
        break;
    default:
        m_transport.PBNormal();
        break;
    }
    syncClassicChecks();
}

void CommandDispatcher::setRepeatMode(int mode)
{
    switch (mode) {
    case RepeatSingleItem:
        m_transport.RepeatSingle();
        break;
    case RepeatAllItems:
        m_transport.RepeatAll();
        break;
    default:
        m_transport.RepeatNone();
        break;
    }
    syncClassicChecks();
}

void CommandDispatcher::setAfterPlay(int action)
{
    m_transport.DoAfter(action);
    syncClassicChecks();
}

void CommandDispatcher::syncClassicChecks()
{
    auto checkIndex = [this](const QStringList &group, int index) {
        for (int i = 0; i < group.size(); ++i)
            m_classic.setChecked(group[i], i == index);
    };
    checkIndex(kClassicPlayModes, m_settings.PlayMode);
    checkIndex(kClassicRepeatModes, m_settings.RepeatMode);
    checkIndex(kClassicAfterPlay, m_transport.afterPlayAction());
}

void CommandDispatcher::addFiles()
{
    m_actions.openFiles(true);
    if (m_playlist.list().selectedItem() < 0)
        m_playlist.list().setSelectedItem(0);
    if (m_playlist.count() >= 1)
        setPlaylistItems(true);
}

void CommandDispatcher::removeSelected()
{
    m_playlist.removeSelected();
    if (m_playlist.count() == 0)
        setPlaylistItems(false);
}

void CommandDispatcher::removeAll()
{
    m_playlist.removeAll();
    setPlaylistItems(false);
    m_state.CaptionText = QStringLiteral("Quorvel");
    m_actions.showCaption();
}

void CommandDispatcher::setPlaylistItems(bool usable)
{
    for (const QString &key : kPlaylistItems)
        m_menu.setEnabled(key, usable);
}

void CommandDispatcher::showDialog(void (CommandActions::*show)())
{
    // An always-on-top window would cover its own dialog.
    m_actions.setStaysOnTop(false);
    (m_actions.*show)();
    m_actions.setStaysOnTop(IsSet(m_settings.AlwaysOnTop));
}

void CommandDispatcher::openHelp()
{
    const QUrl url = HelpTopicsUrl(m_programFolder);
    const QString page = url.toLocalFile();
    if (!QFileInfo(page).isFile()) {
        m_notifier.notify(MessageNotifier::Icon::Exclamation,
                          QStringLiteral("The help pages are missing: %1 was not found.").arg(page));
        return;
    }
    m_actions.openUrl(url);
}

void CommandDispatcher::playDrive(int index)
{
    if (m_noDrives || !m_drives)
        return;
    m_drives->playDrive(index);
}

void CommandDispatcher::setDvdEntries(const QStringList &captions)
{
    m_noDrives = captions.isEmpty();
    ShowDvdDrives(m_menu, captions);
    for (int i = 0; i < kDvdEntries; ++i) {
        const int at = m_classic.IndexOfKey(QStringLiteral("dvdsList%1").arg(i));
        m_classic.SetCaption(at, m_noDrives ? (i == 0 ? kNoDvdDrivesCaption : QString()) : captions.value(i));
        m_classic.SetVisible(at, i == 0 || i < captions.size());
    }
}

} // namespace quorvel
