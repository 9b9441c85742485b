#pragma once
// The playlist's list without a window, with the same selection rules.

#include "playlist/thumblist.h"

#include <QStringList>

namespace quorvel::test {

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

} // namespace quorvel::test
