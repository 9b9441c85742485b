#pragma once
// Resizing of the frameless window by its right and bottom edges. The window
// has no system frame, so the program tracks the drag itself: a press in the
// band along an edge starts it, every move sets the new size, the minimum
// size ends a width drag at once (a height drag only when both sizes are at
// their minimum). Sizes are in pixels.

#include <QSize>
#include <Qt>

namespace quorvel {

class WindowResizer {
public:
    static constexpr int kGripSize = 4; // pixels
    static constexpr int kMinWidth = 370;
    static constexpr int kMinHeight = 370;

    // A press at client pixel (x, y) in a window of the given outer size.
    void press(int x, int y, QSize outer);
    struct Move {
        QSize outer;            // the size to give the window
        Qt::CursorShape cursor; // the pointer to show
    };
    // A move at client pixel (x, y), with or without a button held.
    Move move(int x, int y, QSize outer);
    void release();

    bool resizingCorner() const { return m_corner; }
    bool resizingWidth() const { return m_width; }
    bool resizingHeight() const { return m_height; }
    bool isResizing() const { return m_corner || m_width || m_height; }

private:
    static bool inRightBand(int x, QSize outer) { return outer.width() - x <= kGripSize; }
    static bool inBottomBand(int y, QSize outer) { return outer.height() - y <= kGripSize; }

    int m_lastX = 0;
    int m_lastY = 0;
    bool m_corner = false;
    bool m_width = false;
    bool m_height = false;
};

} // namespace quorvel
