#pragma once
// The play order and the two modes that steer it.
//
// `lstSequence` is a permutation of playlist indices kept as decimal texts,
// with a cursor (its current position, -1 for none). Normal and continuous
// modes keep the identity order; shuffle mode keeps a random one. The
// automatic advance at the end of an item reads the index held at the
// cursor; next and previous only move the cursor and use the position itself
// as the playlist index.
//
// How the window uses it:
//  - after every add to the playlist: `rebuild(count, selected)`;
//  - menu "PMNormal"/"PMContinuous"/"PMShuffle": `PBNormal`/`PBCont`/`PBShuffle`
//    with the playlist's count and selection, then show `menuChecks()`;
//  - menu "RMNoRepeat"/"RMSingleRepeat"/"RMRepeatAll": `RepeatNone`/...;
//  - start-up: `applyStoredModes(settings.PlayMode, settings.RepeatMode, ...)`
//    and store `playMode()`/`repeatMode()` back on exit;
//  - click on an entry: `clickedEntry(index)`; double-click: `setCursor(index)`;
//  - remove selected / remove all: `removeAt(k)` / `clear()`;
//  - the monitor tick in the ended state: `DecideEndOfItem` (below);
//  - next and previous commands: `stepNext()` / `stepPrevious()`.

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <functional>

namespace quorvel::playback {

// The stored values of `PlayMode` and `RepeatMode`; the settings file keeps
// the plain numbers, so other numbers can arrive and are kept as they are.
enum PlayModeValue { PlayNormal = 0, PlayContinuous = 1, PlayShuffle = 2 };
enum RepeatModeValue { RepeatNoRepeat = 0, RepeatSingleEntry = 1, RepeatAllEntries = 2 };

inline constexpr int kDefaultPlayMode = PlayContinuous;
inline constexpr int kDefaultRepeatMode = RepeatAllEntries;

// The menu keys of each group, in value order.
const QStringList &PlayModeKeys();   // "PMNormal", "PMContinuous", "PMShuffle"
const QStringList &RepeatModeKeys(); // "RMNoRepeat", "RMSingleRepeat", "RMRepeatAll"

class PlayOrder {
public:
    // Uniform numbers in [0, 1). Without one, each shuffle draws from a
    // generator seeded from the clock; tests pass their own.
    using Random = std::function<double()>;
    explicit PlayOrder(Random random = {});

    // --- The modes and their menu marks -------------------------------------
    // Each setter stores the mode and makes its key the checked one of its
    // group; the play-mode setters also rebuild the order for `count`
    // playlist entries with the cursor on `selected`.
    void PBNormal(int count, int selected);
    void PBCont(int count, int selected);
    void PBShuffle(int count, int selected);
    void RepeatNone();
    void RepeatSingle();
    void RepeatAll();
    // Start-up: runs the setter of each stored value. A value outside 0..2 is
    // kept as the mode (it is written back on exit) but checks nothing in its
    // group and builds no order; the next add builds the sequential one.
    void applyStoredModes(int playMode, int repeatMode, int count, int selected);

    int playMode() const { return m_playMode; }
    int repeatMode() const { return m_repeatMode; }
    // The checked key of each group, empty before any setter ran.
    QString checkedPlayModeKey() const { return m_playKey; }
    QString checkedRepeatModeKey() const { return m_repeatKey; }
    // All six keys with their check marks, in menu order: what the menu shows.
    QList<QPair<QString, bool>> menuChecks() const;

    // --- The order ----------------------------------------------------------
    // Identity 0 .. count-1, cursor = selected.
    void MakeSequentialOrder(int count, int selected);
    // Fill with "-1"; for each index i in turn draw r = round-half-even(u*(n-1))
    // until position r is free, then put i there. Cursor = selected.
    void MakeShuffledOrder(int count, int selected);
    // After an add: shuffled in shuffle mode, sequential otherwise.
    void rebuild(int count, int selected);

    int count() const { return static_cast<int>(m_entries.size()); }
    const QStringList &entries() const { return m_entries; }
    // The playlist index held at `position`, or -1 when there is no such
    // position or its text is not a number.
    int indexAt(int position) const;
    int cursor() const { return m_cursor; }
    void setCursor(int position) { m_cursor = position; }
    // A click on an entry moves the cursor there, except in shuffle mode
    // where the cursor keeps following the shuffled order.
    void clickedEntry(int index);

    // The playlist lost entry k (the order is not rebuilt, so it may name
    // indices that are gone until the next add or mode change).
    void removeAt(int k);
    void clear();

    // Next / previous: one position on or back, wrapping at both ends; the
    // new cursor is also the playlist index to play. False (nothing moves)
    // when the order is empty.
    bool stepNext();
    bool stepPrevious();

private:
    void setPlayMode(int mode);
    void setRepeatMode(int mode);
    static int draw(const Random &random, int n);

    Random m_random;
    QStringList m_entries;
    int m_cursor = -1;
    int m_playMode = kDefaultPlayMode;
    int m_repeatMode = kDefaultRepeatMode;
    QString m_playKey;
    QString m_repeatKey;
};

// What the monitor does on the tick after an item ended.
struct EndOfItemDecision {
    enum Action {
        Nothing,            // engine playlist empty, or a drive root was playing
        StopThenPlayAgain,  // single repeat: stop command, then play command
        StopThenAfterPlay,  // the list is done: stop command, then the after-play action
        PlayIndex,          // select and start playlist entry `index`
    };
    Action action = Nothing;
    int index = -1;   // PlayIndex: the playlist index to start (may be out of range)
    int cursor = -1;  // the cursor after the decision (unchanged unless PlayIndex)

    bool operator==(const EndOfItemDecision &) const = default;
};

// The end-of-item table as a pure decision. `cursor` and `order` are the
// play order's; `engineItemCount` is the engine's playlist count and
// `currentFile` the path started last. The caller stores the new cursor.
//
// | PlayMode   | RepeatMode | result                                                    |
// | any        | 1          | StopThenPlayAgain                                         |
// | 0          | 0, 2       | StopThenAfterPlay                                         |
// | 1, 2       | 0          | cursor+1 plays its held index; past the end StopThenAfterPlay |
// | 1, 2       | 2          | as above, but past the end the cursor wraps to 0          |
EndOfItemDecision DecideEndOfItem(int playMode, int repeatMode, const QStringList &order, int cursor,
                                  int engineItemCount, const QString &currentFile);
// The same for a PlayOrder, storing the new cursor in it.
EndOfItemDecision DecideEndOfItem(PlayOrder &order, int engineItemCount, const QString &currentFile);

} // namespace quorvel::playback
