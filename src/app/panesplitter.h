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
