#pragma once
// What the playlist needs of the list that shows its entries: titles with
// thumbnails and the current item. The thumbnail list widget is adapted to
// this.

#include <QImage>
#include <QString>
#include <QStringList>

namespace quorvel {

class ThumbList {
public:
    virtual ~ThumbList() = default;
    virtual int count() const = 0;
    virtual void addItem(const QString &text, const QImage &image) = 0;
    // Removes item k; the current item stays at k (so it may point past the end).
    virtual void removeItem(int index) = 0;
    // Removes everything; no current item (-1).
    virtual void clear() = 0;
    virtual int selectedItem() const = 0;
    virtual void setSelectedItem(int index) = 0;
    // Title of the current item, empty when there is none.
    virtual QString selectedText() const = 0;
    virtual QString itemText(int index) const = 0;
    // Thumbnail of item `index`; null when it has none or there is no such item.
    virtual QImage itemImage(int) const { return {}; }
    virtual void refresh() = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

} // namespace quorvel
