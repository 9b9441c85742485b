#pragma once
// Shows the playlist in a plain list widget: titles with their thumbnails.

#include "playlist/thumblist.h"

#include <QListWidget>

namespace quorvel {

class ListWidgetThumbList final : public ThumbList {
public:
    explicit ListWidgetThumbList(QListWidget *widget) : m_widget(widget) {}

    int count() const override { return m_widget->count(); }
    void addItem(const QString &text, const QImage &image) override;
    void removeItem(int index) override;
    void clear() override;
    int selectedItem() const override { return m_selected; }
    void setSelectedItem(int index) override;
    QString selectedText() const override { return itemText(m_selected); }
    QString itemText(int index) const override;
    void refresh() override { m_widget->viewport()->update(); }
    // Shown as far as the list itself goes, even while its pane is folded away.
    bool isVisible() const override { return !m_widget->isHidden(); }
    void setVisible(bool visible) override { m_widget->setVisible(visible); }

    // The widget reports a user's choice of row.
    void noteUserSelection(int index) { m_selected = index; }

private:
    QListWidget *m_widget;
    int m_selected = -1;
};

} // namespace quorvel
