#include "transport.h"

#include "common/logging.h"
#include "common/tracelines.h"
#include "playback/engine.h"
#include "playback/monitor.h"
#include "playback/player.h"
#include "playback/rate.h"
#include "playback/systempower.h"
#include "playlist/playlist.h"

#include <utility>

namespace quorvel {

namespace {
const QString kResetTime = QStringLiteral("00:00:00 / 00:00:00");
} // namespace

Transport::Transport(Engine &engine, Settings &settings, PlaybackState &state, Playlist &playlist, Player &player,
                     playback::PowerControl &power, TransportView &view, QObject *parent)
    : QObject(parent), m_engine(engine), m_settings(settings), m_state(state), m_playlist(playlist), m_player(player),
      m_power(power), m_view(view)
{
    m_movieTimer.setInterval(500);
    m_movieTimer.setObjectName(QStringLiteral("tmrMovie"));
    connect(&m_movieTimer, &QTimer::timeout, this, &Transport::monitorTick);
    m_rewindTimer.setInterval(10);
    m_rewindTimer.setObjectName(QStringLiteral("tmrRewind"));
    connect(&m_rewindTimer, &QTimer::timeout, this, &Transport::rewindTick);
    m_settleTimer.setSingleShot(true);
    m_settleTimer.setInterval(500);
    connect(&m_settleTimer, &QTimer::timeout, this, &Transport::settleStop);
    // Whatever changes the playback state while a stop settles (an item
    // started by a double-click, a hand-off, next) has the last word.
    connect(&m_player, &Player::controlsChanged, this, [this] {
        if (m_stopping)
            cancelStop();
    });
}

StartResult Transport::playEntry(int index)
{
    m_playlist.list().setSelectedItem(index);
    m_playlist.list().refresh();
    emit selectionMoved(index);
    return m_player.PlayItem(index, false, StartedBy::Advance);
}

void Transport::play()
{
    if (m_playlist.list().count() < 1) {
        m_view.openFiles(false);
        return;
    }
    if (m_stopping)
        finishStopNow(); // play after a stop starts the stopped item again
    // An engine that could not start has nothing to resume: the start below
    // keeps the stopped state.
    if (m_state.IsHalted && m_engine.failure().isEmpty())
        return resumeHalted();
    const int selected = m_playlist.list().selectedItem();
    m_sequence.setCursor(selected);
    m_player.PlayItem(selected, false);
}

void Transport::resumeHalted()
{
    const bool fromStart = m_state.IsStopped;
    m_engine.play(); // resume, or the stopped item from its start
    m_player.restartedByUser();
    m_player.enableMediaControl(MediaAction::Playing);
    if (fromStart)
        m_player.beginAgain();
}

void Transport::pause()
{
    if (!m_state.MediaLoaded && !m_state.IsHalted)
        return; // ended: nothing to pause or resume
    if (!m_engine.failure().isEmpty())
        return; // nothing can play
    if (m_stopping)
        finishStopNow(); // the engine has stopped: the toggle resumes
    // A stopped item starts again as Play starts it, so its place comes back.
    if (m_state.IsStopped)
        return resumeHalted();
    const bool halt = !m_state.IsHalted;
    m_engine.togglePause();
    m_player.enableMediaControl(halt ? MediaAction::Paused : MediaAction::Playing);
}

void Transport::stop(std::function<void()> then)
{
    if (m_engine.itemCount() < 1 || m_stopping) {
        if (then)
            then();
        return;
    }
    m_player.leaveItem();
    m_engine.stop();
    m_state.IsStopped = true;
    m_view.setProgressPercent(0);
    m_view.setTimeText(kResetTime);
    // The engine needs a moment after a stop before it takes a new command.
    // The wait runs on a timer so the window keeps painting.
    m_stopping = true;
    m_afterStop = std::move(then);
    m_settleTimer.start();
}

void Transport::settleStop()
{
    m_stopping = false; // first, so the state change below does not cancel itself
    const std::function<void()> then = std::exchange(m_afterStop, {});
    m_player.enableMediaControl(MediaAction::Stopped);
    if (then)
        then();
}

void Transport::cancelStop()
{
    m_settleTimer.stop();
    m_stopping = false;
    m_afterStop = {};
    qCDebug(lcPlayback) << "stop overtaken by a command";
}

void Transport::finishStopNow()
{
    cancelStop();
    m_player.enableMediaControl(MediaAction::Stopped);
}

void Transport::step(bool forward)
{
    if (!m_state.MediaLoaded)
        return;
    // Entries whose file is gone are passed over, at most once round the order.
    for (int tries = 0; tries < m_sequence.count(); ++tries) {
        if (!(forward ? m_sequence.stepNext() : m_sequence.stepPrevious()))
            return;
        if (playEntry(m_sequence.cursor()) != StartResult::FileMissing)
            return;
    }
}

void Transport::next()
{
    step(true);
}

void Transport::previous()
{
    step(false);
}

void Transport::fastForwardPressed()
{
    if (m_state.MediaLoaded)
        m_engine.setRate(10.0);
}

void Transport::fastForwardReleased()
{
    if (m_state.MediaLoaded)
        m_engine.setRate(1.0); // a speed chosen before is not restored
}

void Transport::StartRewind()
{
    if (!m_state.MediaLoaded)
        return;
    m_rewindStep = -1;
    m_rewindTimer.start();
}

void Transport::StopRewind()
{
    m_rewindTimer.stop();
}

void Transport::rewindTick()
{
    m_engine.setPosition(m_engine.position() + m_rewindStep * 0.001);
}

void Transport::toggleFullScreen()
{
    if (m_state.MediaLoaded)
        m_engine.setFullscreen(true);
}

void Transport::toggleMute()
{
    m_engine.toggleMute();
    m_state.IsMuted = !m_state.IsMuted;
    m_view.controlsChanged();
}

void Transport::togglePlaylist()
{
    m_view.togglePlaylist();
}

void Transport::rateChanged(bool increased, bool reachedLimit)
{
    if (!m_state.MediaLoaded)
        return; // the engine gets the factor with a later command
    m_engine.setRate(m_state.Rate);
    m_view.setRateText(RateText(m_state.Rate), true);
    // The step just taken can be undone; the same step again only short of the limit.
    if (increased)
        emit rateStepsChanged(!reachedLimit, true);
    else
        emit rateStepsChanged(true, !reachedLimit);
}

void Transport::IncreaseRate()
{
    const RateChange c = IncreasedRate(m_state.Rate);
    if (!c.changed)
        return;
    m_state.Rate = c.rate;
    rateChanged(true, c.rate >= kMaxRate);
}

void Transport::DecreaseRate()
{
    const RateChange c = DecreasedRate(m_state.Rate);
    if (!c.changed)
        return;
    m_state.Rate = c.rate;
    rateChanged(false, c.rate <= kMinRate);
}

void Transport::ResetRate()
{
    if (!m_state.MediaLoaded)
        return;
    m_state.Rate = 1.0;
    m_engine.setRate(1.0);
    m_view.setRateText(RateText(1.0), true);
    emit rateStepsChanged(true, true);
}

void Transport::rebuildOrder()
{
    m_sequence.build(m_settings.PlayMode, m_playlist.list().count(), m_playlist.list().selectedItem());
}

void Transport::PBNormal()
{
    m_settings.PlayMode = PlayNormal;
    emit playModeChanged(PlayNormal);
    m_sequence.MakeSequentialOrder(m_playlist.list().count(), m_playlist.list().selectedItem());
}

void Transport::PBContinuous()
{
    m_settings.PlayMode = PlayContinuous;
    emit playModeChanged(PlayContinuous);
    m_sequence.MakeSequentialOrder(m_playlist.list().count(), m_playlist.list().selectedItem());
}

void Transport::PBShuffle()
{
    m_settings.PlayMode = PlayShuffle;
    emit playModeChanged(PlayShuffle);
    m_sequence.MakeShuffledOrder(m_playlist.list().count(), m_playlist.list().selectedItem());
}

void Transport::RepeatNone()
{
    m_settings.RepeatMode = RepeatNoRepeat;
    emit repeatModeChanged(RepeatNoRepeat);
}

void Transport::RepeatSingle()
{
    m_settings.RepeatMode = RepeatSingleItem;
    emit repeatModeChanged(RepeatSingleItem);
}

void Transport::RepeatAll()
{
    m_settings.RepeatMode = RepeatAllItems;
    emit repeatModeChanged(RepeatAllItems);
}

void Transport::applyStoredModes()
{
    switch (m_settings.PlayMode) {
    case PlayContinuous:
        PBContinuous();
        break;
    case PlayNormal:
        PBNormal();
        break;
    case PlayShuffle:
        PBShuffle();
        break;
    default:
        break;
    }
    switch (m_settings.RepeatMode) {
    case RepeatNoRepeat:
        RepeatNone();
        break;
    case RepeatAllItems:
        RepeatAll();
        break;
    case RepeatSingleItem:
        RepeatSingle();
        break;
    default:
        break;
    }
}

void Transport::DoAfter(int toDo)
{
    m_afterPlay = toDo;
    emit afterPlayChanged(toDo);
}

void Transport::DoAfterFinishPlay()
{
    qCDebug(lcPlayback) << trace::kAfterPlay << m_afterPlay;
    switch (m_afterPlay) {
    case AfterExit:
        m_view.closeWindow();
        break;
    case AfterRestart:
        m_power.reboot();
        break;
    case AfterShutdown:
        m_power.powerOff();
        break;
    default:
        break;
    }
}

void Transport::monitorTick()
{
    if (!m_engine.hasControl() || m_stopping)
        return;
    if (m_state.MediaLoaded) {
        // A file the engine cannot read either puts it in its error state or
        // ends at once without a single stream. Said like a missing file; the
        // item counts as ended so the order moves on.
        const Engine::State engineState = m_engine.state();
        if (engineState == Engine::Error
            || (engineState == Engine::Ended && !IsEngineLocation(m_state.CurrentFile)
                && m_engine.streamCount() == 0)) {
            m_state.MediaLoaded = false;
            m_view.setRateText(QString(), false);
            m_player.itemUnopenable();
            return;
        }
        if (engineState == Engine::Playing && m_engine.streamCount() > 0)
            m_player.itemPlays();
        const MonitorReading r = ReadMonitor(m_engine);
        m_view.setRateText(QStringLiteral("Loading..."), r.loading);
        if (r.progressPercent)
            m_view.setProgressPercent(*r.progressPercent);
        m_view.setTimeText(r.timeText);
        qCDebug(lcPlayback).nospace() << trace::kTick << m_engine.state() << " time=" << qint64(m_engine.time())
                                      << " length=" << qint64(m_engine.length());
        if (r.ended) {
            // Ended: the rules run on the next tick. An item too short for
            // a tick to see it playing has played all the same.
            m_player.itemPlays();
            m_state.MediaLoaded = false;
            qCDebug(lcPlayback) << trace::kItemEnded << m_state.CurrentFile;
        }
        return;
    }
    if (!m_state.IsHalted)
        m_view.enableDvdCheck();
    if (!m_state.isEnded())
        return;
    // The last item of the list ended: something beyond the list may follow.
    const bool lastEnded = m_settings.PlayMode == PlayNormal
                               ? m_playlist.fullPaths().value(m_playlist.count() - 1) == m_state.CurrentFile
                               : m_sequence.cursor() == m_sequence.count() - 1;
    if (m_listEnded && lastEnded && m_settings.RepeatMode != RepeatSingleItem && m_engine.itemCount() > 0
        && m_listEnded())
        return;
    runEndOfItem(DecideEndOfItem(m_settings.PlayMode, m_settings.RepeatMode, m_sequence, m_engine.itemCount(),
                                 m_state.CurrentFile));
}

void Transport::runEndOfItem(EndOfItem next)
{
    // An entry that cannot play (its file gone or not openable) is skipped as
    // if it had played. Once as many entries in a row as the order holds
    // could not play, nothing in the list can: stop rather than try again on
    // every tick.
    auto nothingCanPlay = [this] {
        qCDebug(lcPlayback) << "nothing in the playlist can play";
        stop();
    };
    while (next.kind == EndOfItem::PlayEntry) {
        if (m_player.unplayableInRow() >= m_sequence.count())
            return nothingCanPlay();
        if (playEntry(next.index) != StartResult::FileMissing)
            return;
        next = DecideEndOfItem(m_settings.PlayMode, m_settings.RepeatMode, m_sequence, m_engine.itemCount(),
                               m_state.CurrentFile);
    }
    switch (next.kind) {
    case EndOfItem::Replay:
        if (m_player.unplayableInRow() > 0)
            return nothingCanPlay(); // the item would fail again
        stop([this] { play(); });
        break;
    case EndOfItem::StopAndAfterPlay:
        stop([this] { DoAfterFinishPlay(); });
        break;
    case EndOfItem::PlayEntry: // handled above
    case EndOfItem::Nothing:
        break;
    }
}

} // namespace quorvel
