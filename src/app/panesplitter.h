#pragma once
// The video area's splitter: five panes around the video (0 left, 1 above,
// 2 centre, 3 below, 4 right). The centre holds the video; the playlist can
// sit in one of the four side panes. A side pane of size 0 is hidden with
// its handle. A locked pane keeps its size when the splitter is resized; the
// unlocked ones share the change.

#include <QWidget>
#include <array>

class QSplitter;

namespace quorvel {

// Where the playlist goes for a layout code, and the side-pane sizes.
struct PlaylistLayout {
    bool applies = false;            // codes 0..5 change panes; others only release the locks
    std::array<double, 4> sizes{};   // panes 0, 1, 3, 4 (widths of 0 and 4, heights of 1 and 3)
    int holder = -1;                 // pane that takes the playlist (0, 1, 3, 4), or -1
    bool fill = false;               // code 4: the playlist lies over the whole video area
    bool contentsChange = false;     // codes 0..4 move the playlist; 5 leaves it where it is
    std::array<bool, 4> locks{};     // width 0, width 4, height 1, height 3

    static PlaylistLayout forCode(int code, double splitterWidth, double splitterHeight);
};

class PaneSplitter : public QWidget {
    Q_OBJECT
public:
    static constexpr int kCentre = 2;

    explicit PaneSplitter(QWidget *parent = nullptr);

    // Puts `content` into pane `index` (nullptr empties it). The content is
    // re-parented into the pane.
    void setPaneContent(int index, QWidget *content);
    QWidget *paneContent(int index) const;
    // Width of panes 0 and 4, height of panes 1 and 3.
    void setPaneSize(int index, int pixels);
    int paneSize(int index) const;
    void setLock(int index, bool locked);
    bool isLocked(int index) const { return m_locks[index]; }

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void apply();
    QSplitter *splitterOf(int index) const;
    int slotOf(int index) const;
    void updateHandles();

    QSplitter *m_outer;
    QSplitter *m_middle;
    std::array<QWidget *, 5> m_panes{};
    std::array<QWidget *, 5> m_contents{};
    std::array<bool, 5> m_locks{};
    std::array<int, 5> m_wanted{};
};

} // namespace quorvel
