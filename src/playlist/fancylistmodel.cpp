#include "playlist/fancylistmodel.h"

#include <algorithm>
#include <climits>

namespace quorvel {

QString FancyListModel::itemText(int index) const
{
    return index >= 0 && index < Count() ? item(index).text : QString();
}

void FancyListModel::AddItem(const QString &text, const QImage &image)
{
    m_items.push_back({text, fitToBox(image)});
}

void FancyListModel::RemoveItem(int index)
{
    if (index < 0 || index >= Count())
        return;
    m_items.erase(m_items.begin() + index);
    // The playlist removes the same index from its other stores, so the
    // selection must keep pointing at index, even when that is past the end.
    if (Count() > 0 && index < Count())
        m_selected = index;
}

void FancyListModel::Clear()
{
    m_items.clear();
    m_items.shrink_to_fit();
    m_selected = -1;
}

bool FancyListModel::setSelectedItem(int index)
{
    if (index < 0 || index >= Count())
        return false;
    m_selected = index;
    return true;
}

int FancyListModel::clickAt(int y, int scroll)
{
    m_selected = hitTest(y, scroll);
    return m_selected;
}

QString FancyListModel::SelectedText() const
{
    return itemText(m_selected);
}

int FancyListModel::scrollMax(int surfaceHeight) const
{
    if (Count() == 0)
        return 0;
    const qint64 overflow = qint64(Count()) * m_itemHeight - surfaceHeight;
    return overflow >= 1 ? int(std::min<qint64>(overflow, INT_MAX)) : 0;
}

bool FancyListModel::scrollBarVisible(int surfaceHeight) const
{
    return qint64(Count()) * m_itemHeight > surfaceHeight;
}

int FancyListModel::hitTest(int y, int scroll) const
{
    if (m_itemHeight <= 0)
        return -1;
    const qint64 pos = qint64(scroll) + y;
    if (pos < 0)
        return -1;
    const qint64 row = pos / m_itemHeight;
    return row >= Count() ? -1 : int(row);
}

FancyListRows FancyListModel::visibleRows(int scroll, int surfaceHeight) const
{
    if (m_itemHeight <= 0 || Count() == 0)
        return {};
    FancyListRows rows;
    rows.first = std::max(0, scroll / m_itemHeight);
    rows.last = std::min(rows.first + surfaceHeight / m_itemHeight + 1, Count() - 1);
    return rows;
}

bool FancyListModel::isStacked(int surfaceWidth) const
{
    return m_thumbnails && surfaceWidth - m_imageWidth - 3 * m_padding < kMinTextBeside;
}

QRect FancyListModel::thumbRect(int index, int scroll, int surfaceWidth) const
{
    const int top = rowTop(index, scroll);
    if (!isStacked(surfaceWidth))
        return QRect(m_padding, top + m_padding, m_imageWidth, m_imageHeight);
    // Two text lines under the picture; the picture takes the rest of the row.
    const int h = std::max(0, m_itemHeight - m_padding / 2 - 2 * m_textLineHeight - 3);
    return QRect(m_padding, top + m_padding / 2, std::max(0, surfaceWidth - 2 * m_padding), std::min(h, m_imageHeight));
}

QRect FancyListModel::textRect(int index, int scroll, int surfaceWidth) const
{
    const int top = rowTop(index, scroll);
    if (isStacked(surfaceWidth)) {
        const QRect thumb = thumbRect(index, scroll, surfaceWidth);
        return QRect(QPoint(m_padding, thumb.bottom() + 2),
                     QPoint(surfaceWidth - m_padding - 1, top + m_itemHeight - 2));
    }
    int left = m_padding;
    if (m_thumbnails)
        left += m_imageWidth + m_padding;
    // right and bottom exclusive
    return QRect(QPoint(left, top + m_padding), QPoint(surfaceWidth - m_padding - 1, top + m_itemHeight - 1));
}

int FancyListModel::scrollToShow(int index, int scroll, int surfaceHeight) const
{
    if (index < 0 || index >= Count())
        return scroll;
    const int top = index * m_itemHeight;
    if (top < scroll)
        scroll = top;
    else if (top + m_itemHeight > scroll + surfaceHeight)
        scroll = top + m_itemHeight - surfaceHeight;
    return std::clamp(scroll, 0, scrollMax(surfaceHeight));
}

QImage FancyListModel::fitToBox(const QImage &image) const
{
    if (image.isNull() || m_imageWidth <= 0 || m_imageHeight <= 0)
        return image;
    if (image.width() <= m_imageWidth && image.height() <= m_imageHeight)
        return image;
    return image.scaled(m_imageWidth, m_imageHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace quorvel
