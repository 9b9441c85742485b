#include "playback/speed.h"

#include "playback/rounding.h"

#include <cmath>

namespace quorvel::playback {

namespace {
const QString kIncrease = QStringLiteral("IncreaseSpeed");
const QString kDecrease = QStringLiteral("DecreaseSpeed");
} // namespace

QString RateText(double rate)
{
    // 'g' with enough digits writes 2 as "2" and 0.125 as "0.125".
    return QStringLiteral("Playing rate:") + QString::number(rate, 'g', 12) + u'x';
}

double TidyRate(double rate)
{
    return rate > 1 ? std::trunc(rate) : RoundToDecimals(rate, 3);
}

void SpeedControl::setEnabled(SpeedOutcome &o, const QString &key, bool on)
{
    (key == kIncrease ? m_increaseEnabled : m_decreaseEnabled) = on;
    o.menuEnables.append({key, on});
}

SpeedOutcome SpeedControl::applied(bool increased, bool mediaLoaded)
{
    SpeedOutcome o;
    o.changed = true;
    if (!mediaLoaded)
        return o;
    o.engineRate = m_rate;
    o.rateText = RateText(m_rate);
    setEnabled(o, increased ? kDecrease : kIncrease, true);
    if (increased && m_rate >= kMaxRate)
        setEnabled(o, kIncrease, false);
    if (!increased && m_rate <= kMinRate)
        setEnabled(o, kDecrease, false);
    return o;
}

SpeedOutcome SpeedControl::IncreaseRate(bool mediaLoaded)
{
    if (!(m_rate < kMaxRate))
        return {};
    m_rate = TidyRate(m_rate * 2);
    return applied(true, mediaLoaded);
}

SpeedOutcome SpeedControl::DecreaseRate(bool mediaLoaded)
{
    if (!(m_rate > kMinRate))
        return {};
    m_rate = TidyRate(m_rate / 2);
    return applied(false, mediaLoaded);
}

SpeedOutcome SpeedControl::ResetRate(bool mediaLoaded)
{
    SpeedOutcome o;
    if (!mediaLoaded)
        return o;
    o.changed = m_rate != kNormalRate;
    m_rate = kNormalRate;
    o.engineRate = kNormalRate;
    o.rateText = RateText(kNormalRate);
    setEnabled(o, kIncrease, true);
    setEnabled(o, kDecrease, true);
    return o;
}

void SpeedControl::setMenuItemsEnabled(bool enabled)
{
    m_increaseEnabled = enabled;
    m_decreaseEnabled = enabled;
}

bool SpeedControl::isEnabled(const QString &key) const
{
    if (key == kIncrease)
        return m_increaseEnabled;
    if (key == kDecrease)
        return m_decreaseEnabled;
    return false;
}

std::optional<double> FastForwardRate(bool pressed, bool mediaLoaded)
{
    if (!mediaLoaded)
        return std::nullopt;
    return pressed ? kFastForwardRate : kNormalRate;
}

PauseDecision DecidePause(bool mediaLoaded, bool isHalted)
{
    if (!mediaLoaded && !isHalted)
        return PauseDecision::Ignore;
    return isHalted ? PauseDecision::TogglePauseThenPlaying : PauseDecision::TogglePauseThenPaused;
}

PlayDecision DecidePlay(int playlistCount, bool isHalted, int selectedItem)
{
    if (playlistCount < 1)
        return {PlayDecision::OpenFiles, -1};
    if (isHalted)
        return {PlayDecision::ResumeEngine, -1};
    return {PlayDecision::StartSelected, selectedItem};
}

} // namespace quorvel::playback
