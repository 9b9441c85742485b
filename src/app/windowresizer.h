#pragma once
// Resizing of the frameless window by its right and bottom edges. The window
// has no system frame, so the program tracks the drag itself: a press in the
// band along an edge starts it, every move sets the new size, the minimum
// size ends a width drag at once (a height drag only when both sizes are at
// their minimum). Sizes are in twips, as the settings store them.

#include <QSize>
#include <Qt>

namespace quorvel {

class WindowResizer {
public:
    static constexpr int kGripSize = 64; // twips, about 4 pixels

    explicit WindowResizer(int twipsPerPixel = 15);

    void setMinimum(int widthTwips, int heightTwips);
    int minWidth() const { return m_minWidth; }
    int minHeight() const { return m_minHeight; }

    // A press at client pixel (x, y) in a window of the given outer size.
    void press(int x, int y, QSize outerTwips);
    struct Move {
        QSize outerTwips;       // the size to give the window
        Qt::CursorShape cursor; // the pointer to show
    };
    // A move at client pixel (x, y), with or without a button held.
    Move move(int x, int y, QSize outerTwips);
    void release();

    bool resizingCorner() const { return m_corner; }
    bool resizingWidth() const { return m_width; }
    bool resizingHeight() const { return m_height; }
    bool isResizing() const { return m_corner || m_width || m_height; }

private:
    bool inRightBand(int x, QSize outer) const { return outer.width() - x * m_tpp <= kGripSize; }
    bool inBottomBand(int y, QSize outer) const { return outer.height() - y * m_tpp <= kGripSize; }

    int m_tpp;
    int m_minWidth;
    int m_minHeight;
    int m_lastX = 0;
    int m_lastY = 0;
    bool m_corner = false;
    bool m_width = false;
    bool m_height = false;
};

} // namespace quorvel
