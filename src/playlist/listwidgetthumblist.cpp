#include "listwidgetthumblist.h"

#include <QPixmap>

namespace quorvel {

void ListWidgetThumbList::addItem(const QString &text, const QImage &image)
{
    auto *item = new QListWidgetItem(text);
    if (!image.isNull())
        item->setIcon(QIcon(QPixmap::fromImage(image)));
    m_widget->addItem(item); // the widget owns the item
}

void ListWidgetThumbList::removeItem(int index)
{
    if (index < 0 || index >= m_widget->count())
        return;
    delete m_widget->takeItem(index);
    // The current item keeps its number: the next entry, or none past the end.
    setSelectedItem(m_selected);
}

void ListWidgetThumbList::clear()
{
    m_widget->clear();
    m_selected = -1;
}

void ListWidgetThumbList::setSelectedItem(int index)
{
    m_selected = index;
    const QSignalBlocker block(m_widget);
    m_widget->setCurrentRow(index >= 0 && index < m_widget->count() ? index : -1);
}

QString ListWidgetThumbList::itemText(int index) const
{
    const QListWidgetItem *item = index >= 0 ? m_widget->item(index) : nullptr;
    return item ? item->text() : QString();
}

} // namespace quorvel
