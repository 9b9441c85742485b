#include "resumekeeper.h"

#include "common/logging.h"
#include "common/tracelines.h"
#include "playback/engine.h"
#include "playback/playbackstate.h"

#include <QFileInfo>

namespace quorvel {

namespace {
constexpr int kSaveEveryMs = 10'000;
// Right after a seek the engine may still report the old time.
constexpr int kSeekSettleMs = 1'000;
} // namespace

ResumeKeeper::ResumeKeeper(Engine &engine, const PlaybackState &state, ResumeStore &store, const PlaybackPrefs &prefs,
                           QObject *parent)
    : QObject(parent), m_engine(engine), m_state(state), m_store(store), m_prefs(prefs)
{
    m_sampleTimer.setInterval(500);
    connect(&m_sampleTimer, &QTimer::timeout, this, &ResumeKeeper::sample);
    m_sampleTimer.start();
    m_offerTimer.setSingleShot(true);
    m_offerTimer.setInterval(5'000);
    connect(&m_offerTimer, &QTimer::timeout, this, &ResumeKeeper::keepResume);
}

void ResumeKeeper::setStartHint(const QString &path, qint64 positionMs)
{
    m_hintPath = path;
    m_hintMs = positionMs;
}

void ResumeKeeper::itemBegins(const QString &path)
{
    closeOffer();
    m_path = path;
    m_absolute.clear();
    m_size = -1;
    m_pendingMs = -1;
    m_lastTimeMs = 0;
    m_savedMs = -1;
    m_lengthMs = 0;
    m_sinceSave.restart();
    const bool hinted = std::exchange(m_hintPath, QString()) == path;
    if (path.isEmpty() || IsEngineLocation(path))
        return; // discs and streams have no file to key a position by
    const QFileInfo file(path);
    m_absolute = file.absoluteFilePath();
    m_size = file.size();
    if (m_prefs.resume == ResumeMode::Never)
        return;
    if (const auto stored = m_store.find(m_absolute, m_size))
        m_pendingMs = stored->positionMs;
    else if (hinted && m_hintMs > 0)
        m_pendingMs = m_hintMs;
}

void ResumeKeeper::sample()
{
    if (m_path.isEmpty())
        return;
    if (m_state.CurrentFile != m_path) {
        m_path.clear(); // something else was started past us (a disc)
        return;
    }
    const Engine::State st = m_engine.state();
    if (!m_engine.hasControl() || (st != Engine::Playing && st != Engine::Paused))
        return;
    const qint64 time = qint64(m_engine.time());
    const qint64 length = qint64(m_engine.length());
    if (length <= 0)
        return;
    if (m_pendingMs >= 0) {
        if (st != Engine::Playing)
            return;
        const qint64 target = std::exchange(m_pendingMs, -1);
        if (target >= length - 1'000)
            return;
        m_engine.setPosition(double(target) / double(length));
        m_lastTimeMs = target;
        m_lengthMs = length;
        m_sinceSeek.restart();
        const bool ask = m_prefs.resume == ResumeMode::Ask && m_store.find(m_absolute, m_size).has_value();
        qCDebug(lcPlayback).noquote() << trace::kResumed << target << m_path << "asked=" << int(ask);
        if (ask) {
            m_offerTimer.start();
            m_offerOpen = true;
            emit offered(target);
        }
        return;
    }
    if (m_sinceSeek.isValid() && m_sinceSeek.elapsed() < kSeekSettleMs)
        return;
    m_lastTimeMs = time;
    m_lengthMs = length;
    if (m_sinceSave.elapsed() >= kSaveEveryMs)
        persist();
}

void ResumeKeeper::leavingItem()
{
    if (m_path.isEmpty())
        return;
    if (m_state.CurrentFile == m_path && m_pendingMs < 0) {
        sample(); // the latest position, unless the engine has already ended
        persist();
    }
    closeOffer();
    m_path.clear();
}

void ResumeKeeper::persist()
{
    m_sinceSave.restart();
    if (m_absolute.isEmpty() || m_pendingMs >= 0)
        return; // nothing to key it by, or the resume has not been applied yet
    if (m_lengthMs > kResumeMinLengthMs && m_lastTimeMs != std::exchange(m_savedMs, m_lastTimeMs)) {
        // Paused, the place stays where it is: nothing new to write.
        if (IsWorthResuming(m_lastTimeMs, m_lengthMs))
            m_store.remember(m_absolute, m_size, {m_lastTimeMs, m_lengthMs});
        else
            m_store.forget(m_absolute, m_size);
        m_store.save();
        qCDebug(lcPlayback).noquote() << trace::kResumeSaved << m_lastTimeMs << m_path;
    }
    emit saved();
}

void ResumeKeeper::startOver()
{
    if (!m_path.isEmpty() && m_engine.hasControl()) {
        m_engine.setPosition(0);
        m_lastTimeMs = 0;
        m_sinceSeek.restart();
        m_store.forget(m_absolute, m_size);
        m_store.save();
    }
    closeOffer();
}

void ResumeKeeper::keepResume()
{
    closeOffer();
}

void ResumeKeeper::closeOffer()
{
    const bool open = m_offerTimer.isActive() || m_offerOpen;
    m_offerTimer.stop();
    m_offerOpen = false;
    if (open)
        emit offerClosed();
}

} // namespace quorvel
