#pragma once
// The rows, selection and geometry of the thumbnail list, kept apart from the
// widget so the selection rules, the scroll range and the hit test can be
// checked without a window. All sizes are in pixels.

#include <QImage>
#include <QRect>
#include <QString>
#include <vector>

namespace quorvel {

struct FancyListItem {
    QString text;
    // Stored already fitted to the thumbnail box, so a row costs a few KB
    // however large the frame it came from.
    QImage image;
};

// First and last row that a paint at a given scroll position reaches; empty
// when last < first.
struct FancyListRows {
    int first = 0;
    int last = -1;
    int count() const { return last >= first ? last - first + 1 : 0; }
};

class FancyListModel {
public:
    int Count() const { return static_cast<int>(m_items.size()); }
    const FancyListItem &item(int index) const { return m_items.at(static_cast<size_t>(index)); }
    QString itemText(int index) const;

    // Appends a row; the selection does not change.
    void AddItem(const QString &text, const QImage &image = QImage());
    // Rows after index move up; the selection moves to the row that took the
    // removed one's place, or stays where it was when none did.
    void RemoveItem(int index);
    void Clear();

    int SelectedItem() const { return m_selected; }
    // Ignored unless 0 <= index < Count; returns whether it was taken.
    bool setSelectedItem(int index);
    // A left press at y: selects the row under it, or nothing (-1) below
    // the last row. Returns the new selection.
    int clickAt(int y, int scroll);
    // Empty when nothing valid is selected (also after removing the last row).
    QString SelectedText() const;

    int ItemHeight() const { return m_itemHeight; }
    void setItemHeight(int h) { m_itemHeight = h; }
    int Padding() const { return m_padding; }
    void setPadding(int p) { m_padding = p; }
    int ImageWidth() const { return m_imageWidth; }
    void setImageWidth(int w) { m_imageWidth = w; }
    int ImageHeight() const { return m_imageHeight; }
    void setImageHeight(int h) { m_imageHeight = h; }
    bool Thumbnails() const { return m_thumbnails; }
    void setThumbnails(bool on) { m_thumbnails = on; }
    bool NoThumbBlack() const { return m_noThumbBlack; }
    void setNoThumbBlack(bool on) { m_noThumbBlack = on; }

    // Largest scroll value for a surface of the given height.
    int scrollMax(int surfaceHeight) const;
    bool scrollBarVisible(int surfaceHeight) const;
    // Row under a point of the surface, or -1 below the last row.
    int hitTest(int y, int scroll) const;
    // Rows a paint of a surface of the given height draws.
    FancyListRows visibleRows(int scroll, int surfaceHeight) const;
    int rowTop(int index, int scroll) const { return index * m_itemHeight - scroll; }
    // A list too narrow for a readable title beside the thumbnail puts the
    // title under a smaller thumbnail instead, in the same row height.
    bool isStacked(int surfaceWidth) const;
    // Height of one text line, for the title under the thumbnail.
    void setTextLineHeight(int h) { m_textLineHeight = h; }
    QRect thumbRect(int index, int scroll, int surfaceWidth = kWide) const;
    QRect textRect(int index, int scroll, int surfaceWidth) const;
    // Scroll value that shows row index whole, starting from scroll.
    int scrollToShow(int index, int scroll, int surfaceHeight) const;

    // Fits a picture into the thumbnail box when it is larger than the box;
    // smaller pictures and a box without size keep the picture as it is.
    QImage fitToBox(const QImage &image) const;

    // Narrowest text beside the thumbnail that still shows a title.
    static constexpr int kMinTextBeside = 96;

private:
    static constexpr int kWide = 1 << 20;
    std::vector<FancyListItem> m_items;
    int m_selected = -1;
    int m_itemHeight = 64;
    int m_padding = 8;
    int m_imageWidth = 0;
    int m_imageHeight = 0;
    bool m_thumbnails = true;
    bool m_noThumbBlack = false;
    int m_textLineHeight = 15;
};

} // namespace quorvel
