#pragma once
// The playlist's entries shown in the thumbnail list widget.

#include "playlist/fancylist.h"
#include "playlist/thumblist.h"

namespace quorvel {

class FancyListThumbList final : public ThumbList {
public:
    explicit FancyListThumbList(FancyList *list) : m_list(list) {}

    int count() const override { return m_list->Count(); }
    void addItem(const QString &text, const QImage &image) override { m_list->AddItem(text, image); }
    void removeItem(int index) override { m_list->RemoveItem(index); }
    void clear() override { m_list->Clear(); }
    int selectedItem() const override { return m_list->SelectedItem(); }
    void setSelectedItem(int index) override { m_list->setSelectedItem(index); }
    QString selectedText() const override { return m_list->SelectedText(); }
    QString itemText(int index) const override { return m_list->itemText(index); }
    QImage itemImage(int index) const override { return m_list->itemImage(index); }
    void refresh() override { m_list->update(); }
    // Shown as far as the list itself goes, even while its pane is folded away.
    bool isVisible() const override { return !m_list->isHidden(); }
    void setVisible(bool visible) override { m_list->setVisible(visible); }

private:
    FancyList *m_list;
};

} // namespace quorvel
