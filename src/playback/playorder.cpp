#include "playback/playorder.h"

#include "playback/rounding.h"

#include <QRandomGenerator>
#include <chrono>

namespace quorvel::playback {

const QStringList &PlayModeKeys()
{
    static const QStringList keys{QStringLiteral("PMNormal"), QStringLiteral("PMContinuous"),
                                  QStringLiteral("PMShuffle")};
    return keys;
}

const QStringList &RepeatModeKeys()
{
    static const QStringList keys{QStringLiteral("RMNoRepeat"), QStringLiteral("RMSingleRepeat"),
                                  QStringLiteral("RMRepeatAll")};
    return keys;
}

PlayOrder::PlayOrder(Random random) : m_random(std::move(random)) {}

void PlayOrder::setPlayMode(int mode)
{
    m_playMode = mode;
    m_playKey = PlayModeKeys().value(mode);
}

void PlayOrder::setRepeatMode(int mode)
{
    m_repeatMode = mode;
    m_repeatKey = RepeatModeKeys().value(mode);
}

void PlayOrder::PBNormal(int count, int selected)
{
    setPlayMode(PlayNormal);
    MakeSequentialOrder(count, selected);
}

void PlayOrder::PBCont(int count, int selected)
{
    setPlayMode(PlayContinuous);
    MakeSequentialOrder(count, selected);
}

void PlayOrder::PBShuffle(int count, int selected)
{
    setPlayMode(PlayShuffle);
    MakeShuffledOrder(count, selected);
}

void PlayOrder::RepeatNone() { setRepeatMode(RepeatNoRepeat); }
void PlayOrder::RepeatSingle() { setRepeatMode(RepeatSingleEntry); }
void PlayOrder::RepeatAll() { setRepeatMode(RepeatAllEntries); }

void PlayOrder::applyStoredModes(int playMode, int repeatMode, int count, int selected)
{
    switch (playMode) {
    case PlayNormal: PBNormal(count, selected); break;
    case PlayContinuous: PBCont(count, selected); break;
    case PlayShuffle: PBShuffle(count, selected); break;
    default:
        // An unknown stored value: remembered as it is (it is written back on
        // exit) but no menu entry claims it.
        m_playMode = playMode;
        m_playKey.clear();
        break;
    }
    switch (repeatMode) {
    case RepeatNoRepeat: RepeatNone(); break;
    case RepeatSingleEntry: RepeatSingle(); break;
    case RepeatAllEntries: RepeatAll(); break;
    default:
        m_repeatMode = repeatMode;
        m_repeatKey.clear();
        break;
    }
}

QList<QPair<QString, bool>> PlayOrder::menuChecks() const
{
    QList<QPair<QString, bool>> out;
    for (const QString &key : PlayModeKeys())
        out.append({key, key == m_playKey});
    for (const QString &key : RepeatModeKeys())
        out.append({key, key == m_repeatKey});
    return out;
}

void PlayOrder::MakeSequentialOrder(int count, int selected)
{
    m_entries.clear();
    for (int i = 0; i < count; ++i)
        m_entries.append(QString::number(i));
    m_cursor = selected;
}

int PlayOrder::draw(const Random &random, int n)
{
    double u = random();
    if (!(u >= 0.0) || u >= 1.0) // also catches NaN
        u = 0.0;
    return RoundHalfEven(u * (n - 1));
}

void PlayOrder::MakeShuffledOrder(int count, int selected)
{
    const int n = qMax(0, count);
    // Without an injected generator, one seeded from the clock for this
    // shuffle, so every shuffle of the same list gives a new order.
    const auto nanos = static_cast<quint64>(std::chrono::system_clock::now().time_since_epoch().count());
    const quint32 seed[2] = {static_cast<quint32>(nanos), static_cast<quint32>(nanos >> 32)};
    QRandomGenerator clockSeeded(seed, 2);
    const Random fromClock = [&clockSeeded] { return clockSeeded.generateDouble(); };
    const Random &random = m_random ? m_random : fromClock;
    m_entries = QStringList(n, QStringLiteral("-1"));
    for (int i = 0; i < n; ++i) {
        int r = draw(random, n);
        // Draw-and-retry ends with certainty for a uniform generator; the
        // bound only keeps a broken generator (one that repeats a value
        // forever) from hanging the window: then the first free position is
        // taken instead.
        for (qint64 tries = 0; m_entries.at(r) != QLatin1String("-1"); ++tries) {
            if (tries > 1000LL * n) {
                r = static_cast<int>(m_entries.indexOf(QStringLiteral("-1")));
                break;
            }
            r = draw(random, n);
        }
        m_entries[r] = QString::number(i);
    }
    m_cursor = selected;
}

void PlayOrder::rebuild(int count, int selected)
{
    if (m_playMode == PlayShuffle)
        MakeShuffledOrder(count, selected);
    else
        MakeSequentialOrder(count, selected);
}

int PlayOrder::indexAt(int position) const
{
    if (position < 0 || position >= count())
        return -1;
    bool ok = false;
    const int value = m_entries.at(position).toInt(&ok);
    return ok ? value : -1;
}

void PlayOrder::clickedEntry(int index)
{
    if (m_playMode != PlayShuffle)
        m_cursor = index;
}

void PlayOrder::removeAt(int k)
{
    if (k >= 0 && k < count())
        m_entries.removeAt(k);
}

void PlayOrder::clear()
{
    m_entries.clear();
    m_cursor = -1;
}

bool PlayOrder::stepNext()
{
    if (m_entries.isEmpty())
        return false;
    m_cursor = m_cursor >= count() - 1 ? 0 : m_cursor + 1;
    return true;
}

bool PlayOrder::stepPrevious()
{
    if (m_entries.isEmpty())
        return false;
    m_cursor = m_cursor <= 0 ? count() - 1 : m_cursor - 1;
    return true;
}

EndOfItemDecision DecideEndOfItem(int playMode, int repeatMode, const QStringList &order, int cursor,
                                  int engineItemCount, const QString &currentFile)
{
    EndOfItemDecision d;
    d.cursor = cursor;
    // A three-character path is a drive root (a disc started by hand), which
    // has no place in the play order.
    if (engineItemCount == 0 || currentFile.size() == 3)
        return d;
    if (repeatMode == RepeatSingleEntry) {
        d.action = EndOfItemDecision::StopThenPlayAgain;
        return d;
    }
    if (playMode == PlayNormal) {
        d.action = EndOfItemDecision::StopThenAfterPlay;
        return d;
    }
    const int last = static_cast<int>(order.size()) - 1;
    if (cursor == last) {
        if (repeatMode == RepeatNoRepeat) {
            d.action = EndOfItemDecision::StopThenAfterPlay;
            return d;
        }
        // Repeat all wraps; any other stored value leaves the cursor on the
        // last position, which then plays again.
        if (repeatMode == RepeatAllEntries)
            d.cursor = 0;
    } else {
        d.cursor = cursor + 1;
    }
    d.action = EndOfItemDecision::PlayIndex;
    bool ok = false;
    const int held = order.value(d.cursor).toInt(&ok);
    d.index = ok && d.cursor >= 0 ? held : -1;
    return d;
}

EndOfItemDecision DecideEndOfItem(PlayOrder &order, int engineItemCount, const QString &currentFile)
{
    const EndOfItemDecision d = DecideEndOfItem(order.playMode(), order.repeatMode(), order.entries(),
                                                order.cursor(), engineItemCount, currentFile);
    order.setCursor(d.cursor);
    return d;
}

} // namespace quorvel::playback
