#pragma once
// What the playlist needs of the list that shows its entries: titles with
// thumbnails and the current item. The thumbnail list widget is adapted to
// this, and tests use a plain in-memory list.

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
    virtual void refresh() = 0;
    virtual bool isVisible() const = 0;
    virtual void setVisible(bool visible) = 0;
};

// A list without a window, with the same selection rules.
class MemoryThumbList final : public ThumbList {
public:
    int count() const override { return static_cast<int>(m_texts.size()); }
    void addItem(const QString &text, const QImage &) override { m_texts << text; }
    void removeItem(int index) override
    {
        if (index >= 0 && index < count())
            m_texts.removeAt(index);
    }
    void clear() override
    {
        m_texts.clear();
        m_selected = -1;
    }
    int selectedItem() const override { return m_selected; }
    void setSelectedItem(int index) override { m_selected = index; }
    QString selectedText() const override { return itemText(m_selected); }
    QString itemText(int index) const override { return index >= 0 && index < count() ? m_texts.at(index) : QString(); }
    void refresh() override {}
    bool isVisible() const override { return m_visible; }
    void setVisible(bool visible) override { m_visible = visible; }

private:
    QStringList m_texts;
    int m_selected = -1;
    bool m_visible = true;
};

} // namespace quorvel
