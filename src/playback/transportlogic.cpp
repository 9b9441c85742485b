#include "playback/transportlogic.h"

#include "common/logging.h"
#include "playback/engine.h"

namespace quorvel::playback {

Transport::Transport(Engine &engine, PlaybackState &state, TransportHost &host, PowerControl &power,
                     PlayOrder::Random random)
    : m_engine(engine), m_state(state), m_host(host), m_order(std::move(random)),
      m_afterPlay(power, [this] { m_host.exitProgram(); })
{
}

void Transport::setMediaControl(MediaAction action)
{
    m_state.apply(action);
    m_speed.setMenuItemsEnabled(action != MediaAction::Stopped);
    m_host.enableMediaControl(action);
}

void Transport::itemStarted()
{
    m_speed.itemStarted();
    m_speed.setMenuItemsEnabled(true);
    m_state.Rate = m_speed.Rate();
}

void Transport::playEntry(int index)
{
    m_host.selectEntry(index);
    m_host.PlayItem(index, false);
}

void Transport::CMDPlayClick()
{
    const PlayDecision d = DecidePlay(m_host.playlistCount(), m_state.IsHalted, m_host.selectedItem());
    switch (d.action) {
    case PlayDecision::OpenFiles:
        m_host.openFiles(false);
        break;
    case PlayDecision::ResumeEngine:
        m_engine.play(); // resumes, or starts the stopped item from its beginning
        setMediaControl(MediaAction::Playing);
        break;
    case PlayDecision::StartSelected:
        m_order.setCursor(d.index);
        m_host.PlayItem(d.index, false);
        break;
    }
}

void Transport::CMDPauseClick()
{
    const PauseDecision d = DecidePause(m_state.MediaLoaded, m_state.IsHalted);
    if (d == PauseDecision::Ignore)
        return;
    m_engine.togglePause();
    setMediaControl(d == PauseDecision::TogglePauseThenPaused ? MediaAction::Paused : MediaAction::Playing);
}

void Transport::cmdStopClick(std::function<void()> then)
{
    if (m_stopping)
        return; // a stop is already settling; its own follow-up runs then
    if (!StopActs(m_engine.itemCount())) {
        if (then)
            then();
        return;
    }
    m_engine.stop();
    m_state.IsStopped = true;
    m_host.setProgressPercent(0);
    m_host.setTimeText(ResetTimeText());
    m_stopping = true;
    m_host.afterStopPause([this, then = std::move(then)] {
        m_stopping = false;
        setMediaControl(MediaAction::Stopped);
        if (then)
            then();
    });
}

void Transport::cmdNextClick()
{
    if (m_state.MediaLoaded && m_order.stepNext())
        playEntry(m_order.cursor());
}

void Transport::cmdPreviousClick()
{
    if (m_state.MediaLoaded && m_order.stepPrevious())
        playEntry(m_order.cursor());
}

void Transport::cmdffMouseDown()
{
    if (const auto rate = FastForwardRate(true, m_state.MediaLoaded))
        m_engine.setRate(*rate);
}

void Transport::cmdffMouseUp()
{
    if (const auto rate = FastForwardRate(false, m_state.MediaLoaded))
        m_engine.setRate(*rate);
}

void Transport::StartRewind()
{
    if (!m_state.MediaLoaded)
        return;
    m_rewindStep = kRewindStep;
    m_host.setRewindTimer(true);
}

void Transport::StopRewind()
{
    m_host.setRewindTimer(false);
}

void Transport::tmrRewind_Timer()
{
    if (const auto position = RewindPosition(m_engine.position(), m_rewindStep))
        m_engine.setPosition(*position);
}

void Transport::cmdFulScreenClick()
{
    if (m_state.MediaLoaded)
        m_engine.setFullscreen(true);
}

void Transport::cmdMuteClick()
{
    m_engine.toggleMute();
    m_state.IsMuted = !m_state.IsMuted;
    m_host.controlsChanged();
}

void Transport::cmdPlayListClick()
{
    m_host.togglePlaylist();
}

void Transport::applySpeed(const SpeedOutcome &outcome)
{
    m_state.Rate = m_speed.Rate();
    if (outcome.engineRate)
        m_engine.setRate(*outcome.engineRate);
    if (outcome.rateText)
        m_host.setRateLabel(*outcome.rateText, true);
    for (const auto &[key, enabled] : outcome.menuEnables)
        m_host.setMenuEnabled(key, enabled);
}

void Transport::IncreaseRate() { applySpeed(m_speed.IncreaseRate(m_state.MediaLoaded)); }
void Transport::DecreaseRate() { applySpeed(m_speed.DecreaseRate(m_state.MediaLoaded)); }
void Transport::ResetRate() { applySpeed(m_speed.ResetRate(m_state.MediaLoaded)); }

void Transport::showModeChecks()
{
    for (const auto &[key, checked] : m_order.menuChecks())
        m_host.setMenuChecked(key, checked);
}

void Transport::PBNormal()
{
    m_order.PBNormal(m_host.playlistCount(), m_host.selectedItem());
    showModeChecks();
}

void Transport::PBCont()
{
    m_order.PBCont(m_host.playlistCount(), m_host.selectedItem());
    showModeChecks();
}

void Transport::PBShuffle()
{
    m_order.PBShuffle(m_host.playlistCount(), m_host.selectedItem());
    showModeChecks();
}

void Transport::RepeatNone()
{
    m_order.RepeatNone();
    showModeChecks();
}

void Transport::RepeatSingle()
{
    m_order.RepeatSingle();
    showModeChecks();
}

void Transport::RepeatAll()
{
    m_order.RepeatAll();
    showModeChecks();
}

void Transport::applyStoredModes(int playMode, int repeatMode)
{
    m_order.applyStoredModes(playMode, repeatMode, m_host.playlistCount(), m_host.selectedItem());
    showModeChecks();
}

void Transport::DoAfter(int toDo)
{
    m_afterPlay.DoAfter(toDo);
    if (toDo < 0 || toDo >= AfterPlayKeys().size())
        return; // no mark changes for other values
    for (const QString &key : AfterPlayKeys())
        m_host.setMenuChecked(key, key == m_afterPlay.checkedKey());
}

void Transport::tmrMovie_Timer()
{
    if (m_stopping)
        return; // the stop's half second: nothing runs meanwhile
    const TickPlan plan = PlanTick(m_engine.hasControl(), m_state.MediaLoaded, m_state.IsHalted, m_state.IsStopped);
    if (plan.readEngine) {
        const MonitorUpdate u =
            MonitorTick({m_engine.state(), m_engine.position(), m_engine.time(), m_engine.length()});
        m_host.setRateLabel(LoadingText(), u.loadingVisible);
        if (u.progressPercent)
            m_host.setProgressPercent(*u.progressPercent);
        m_host.setTimeText(u.timeText);
        if (u.ended) {
            // The buttons keep their playing states; the rules run next tick.
            m_state.MediaLoaded = false;
            qCDebug(lcPlayback) << "item ended:" << m_state.CurrentFile;
        }
    }
    if (plan.enableDvdCheck)
        m_host.enableDvdCheck();
    if (!plan.runEndOfItem)
        return;
    const EndOfItemDecision d = DecideEndOfItem(m_order, m_engine.itemCount(), m_state.CurrentFile);
    switch (d.action) {
    case EndOfItemDecision::Nothing:
        break;
    case EndOfItemDecision::StopThenPlayAgain:
        cmdStopClick([this] { CMDPlayClick(); });
        break;
    case EndOfItemDecision::StopThenAfterPlay:
        cmdStopClick([this] { m_afterPlay.DoAfterFinishPlay(); });
        break;
    case EndOfItemDecision::PlayIndex:
        playEntry(d.index);
        break;
    }
}

} // namespace quorvel::playback
