#pragma once
// Where the playlist sits in the main window: in a pane beside, above or
// below the video, over the video (layout codes 0-4), or out of the panes (5).

class QWidget;

namespace quorvel {

class FancyList;
class PaneSplitter;

class PlaylistPlacement {
public:
    PlaylistPlacement(QWidget &window, PaneSplitter &splitter, FancyList &list);

    void SetPlaylistPosition(int layoutCode);
    // After the window changed size: a list over the video covers it again.
    void followResize();

private:
    QWidget &m_window;
    PaneSplitter &m_splitter;
    FancyList &m_list;
    bool m_fillsVideo = false;
};

} // namespace quorvel
