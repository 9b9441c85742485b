#pragma once
// The play order: a permutation of the playlist's indices with a cursor,
// sequential in the normal and continuous modes, shuffled in shuffle mode.
// The automatic advance at the end of an item follows the order; the next
// and previous commands use the cursor position itself as the index.

#include "common/geometry.h"

#include <functional>
#include <vector>

namespace quorvel {

enum PlayMode { PlayNormal = 0, PlayContinuous = 1, PlayShuffle = 2 };
enum RepeatMode { RepeatNoRepeat = 0, RepeatSingleItem = 1, RepeatAllItems = 2 };

class PlaySequence {
public:
    // Uniform numbers in [0, 1); by default a generator seeded from the clock.
    using Random = std::function<double()>;
    explicit PlaySequence(Random random = {});

    // `MakeSequentialOrder`: 0, 1, ... count - 1; the cursor on `selected`.
    void MakeSequentialOrder(int count, int selected);
    // `MakeShuffledOrder`: draw a position for each index in turn, drawing
    // again while the position is taken; the cursor on `selected`.
    void MakeShuffledOrder(int count, int selected);
    void build(int playMode, int count, int selected);

    // Follows the playlist: entry k removed (the order is not rebuilt, so
    // later entries may name indices that no longer exist), or all (-1).
    void removeAt(int k);

    int count() const { return static_cast<int>(m_entries.size()); }
    // The playlist index held at position p, or -1 outside the order.
    int indexAt(int position) const;
    const std::vector<int> &entries() const { return m_entries; }
    int cursor() const { return m_cursor; }
    void setCursor(int position) { m_cursor = position; }

    // Next and previous: one position on or back, wrapping at the ends.
    // False when the order is empty.
    bool stepNext();
    bool stepPrevious();

private:
    int draw(int count);

    Random m_random;
    std::vector<int> m_entries;
    int m_cursor = -1;
};

// What happens when an item has ended.
struct EndOfItem {
    enum Kind {
        Nothing,          // nothing was playing from a file
        Replay,           // stop, then play the same engine item again
        StopAndAfterPlay, // stop, then the after-play action
        PlayEntry,        // start playlist entry `index`
    };
    Kind kind = Nothing;
    int index = -1;
};

// The end-of-item rules; moves the cursor of `order` as they say.
EndOfItem DecideEndOfItem(int playMode, int repeatMode, PlaySequence &order, int engineItemCount,
                          const QString &currentFile);

} // namespace quorvel
