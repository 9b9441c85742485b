#include "windowresizer.h"

namespace quorvel {

void WindowResizer::press(int x, int y, QSize outer)
{
    // Later tests win: the corner beats either edge alone.
    if (inRightBand(x, outer)) {
        m_width = true;
        m_height = m_corner = false;
    }
    if (inBottomBand(y, outer)) {
        m_height = true;
        m_width = m_corner = false;
    }
    if (inRightBand(x, outer) && inBottomBand(y, outer)) {
        m_corner = true;
        m_width = m_height = false;
    }
}

WindowResizer::Move WindowResizer::move(int x, int y, QSize outer)
{
    Move result{outer, Qt::ArrowCursor};
    if (inRightBand(x, outer))
        result.cursor = Qt::SizeHorCursor;
    if (inBottomBand(y, outer))
        result.cursor = Qt::SizeVerCursor;
    if (inRightBand(x, outer) && inBottomBand(y, outer))
        result.cursor = Qt::SizeFDiagCursor;

    int newW = outer.width();
    int newH = outer.height();
    // A pointer past the left or top edge snaps to the minimum at once.
    auto grow = [](int size, int pos, int last, int minimum) {
        const int grown = pos > 0 ? size + (pos - last) : minimum;
        return grown < minimum ? minimum : grown;
    };
    if (m_corner) {
        newW = grow(newW, x, m_lastX, kMinWidth);
        newH = grow(newH, y, m_lastY, kMinHeight);
        if (newH <= kMinHeight && newW <= kMinWidth)
            m_corner = false;
    }
    if (m_width) {
        newW = grow(newW, x, m_lastX, kMinWidth);
        if (newW <= kMinWidth)
            m_width = false;
    }
    if (m_height) {
        newH = grow(newH, y, m_lastY, kMinHeight);
        if (newH <= kMinHeight && newW <= kMinWidth)
            m_height = false;
    }
    result.outer = QSize(newW, newH);
    m_lastX = x;
    m_lastY = y;
    return result;
}

void WindowResizer::release()
{
    m_corner = m_width = m_height = false;
}

} // namespace quorvel
