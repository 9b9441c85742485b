#include "playsequence.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace quorvel {

PlaySequence::PlaySequence(Random random) : m_random(std::move(random))
{
    if (!m_random) {
        m_random = [] {
            // A fresh seed from the clock at every shuffle, as users expect a new order.
            static QRandomGenerator generator(static_cast<quint32>(QDateTime::currentMSecsSinceEpoch()));
            return generator.generateDouble();
        };
    }
}

void PlaySequence::MakeSequentialOrder(int count, int selected)
{
    m_entries.resize(std::max(count, 0));
    std::iota(m_entries.begin(), m_entries.end(), 0);
    m_cursor = selected;
}

int PlaySequence::draw(int count)
{
    return RoundHalfEven(m_random() * (count - 1));
}

void PlaySequence::MakeShuffledOrder(int count, int selected)
{
    constexpr int kFree = -1;
    m_entries.assign(std::max(count, 0), kFree);
    for (int i = 0; i < count; ++i) {
        int r = draw(count);
        while (m_entries[r] != kFree)
            r = draw(count);
        m_entries[r] = i;
    }
    m_cursor = selected;
}

void PlaySequence::build(int playMode, int count, int selected)
{
    if (playMode == PlayShuffle)
        MakeShuffledOrder(count, selected);
    else
        MakeSequentialOrder(count, selected);
}

void PlaySequence::removeAt(int k)
{
    if (k < 0) {
        m_entries.clear();
        m_cursor = -1;
        return;
    }
    if (k < count())
        m_entries.erase(m_entries.begin() + k);
}

int PlaySequence::indexAt(int position) const
{
    return position >= 0 && position < count() ? m_entries[position] : -1;
}

bool PlaySequence::stepNext()
{
    if (m_entries.empty())
        return false;
    m_cursor = m_cursor >= count() - 1 ? 0 : m_cursor + 1;
    return true;
}

bool PlaySequence::stepPrevious()
{
    if (m_entries.empty())
        return false;
    m_cursor = m_cursor <= 0 ? count() - 1 : m_cursor - 1;
    return true;
}

EndOfItem DecideEndOfItem(int playMode, int repeatMode, PlaySequence &order, int engineItemCount,
                          const QString &currentFile)
{
    // A three-letter path is a drive root: such an item has no successor.
    if (engineItemCount == 0 || currentFile.size() == 3)
        return {};
    if (repeatMode == RepeatSingleItem)
        return {EndOfItem::Replay};
    if (playMode == PlayNormal)
        return {EndOfItem::StopAndAfterPlay};
    if (order.cursor() == order.count() - 1) {
        if (repeatMode == RepeatNoRepeat)
            return {EndOfItem::StopAndAfterPlay};
        order.setCursor(0);
    } else {
        order.setCursor(order.cursor() + 1);
    }
    return {EndOfItem::PlayEntry, order.indexAt(order.cursor())};
}

} // namespace quorvel
