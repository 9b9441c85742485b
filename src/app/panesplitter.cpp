#include "panesplitter.h"

#include <QSplitter>
#include <QVBoxLayout>
#include <cmath>
#include <numeric>

namespace quorvel {

PaneSplitter::PaneSplitter(QWidget *parent)
    : QWidget(parent), m_outer(new QSplitter(Qt::Horizontal, this)), m_middle(new QSplitter(Qt::Vertical))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_outer);
    for (int i = 0; i < 5; ++i) {
        m_panes[i] = new QWidget;
        auto *paneLayout = new QVBoxLayout(m_panes[i]);
        paneLayout->setContentsMargins(0, 0, 0, 0);
    }
    m_outer->addWidget(m_panes[0]);
    m_outer->addWidget(m_middle);
    m_outer->addWidget(m_panes[4]);
    m_middle->addWidget(m_panes[1]);
    m_middle->addWidget(m_panes[2]);
    m_middle->addWidget(m_panes[3]);
    for (QSplitter *s : {m_outer, m_middle}) {
        s->setChildrenCollapsible(false);
        s->setHandleWidth(4);
        s->setOpaqueResize(true);
    }
    for (int i : {0, 1, 3, 4})
        m_panes[i]->setMinimumSize(0, 0);
    m_outer->setStretchFactor(1, 1);
    m_middle->setStretchFactor(1, 1);
    for (int i : {0, 1, 3, 4})
        setPaneSize(i, 0);
}

QSplitter *PaneSplitter::splitterOf(int index) const
{
    return index == 0 || index == 4 ? m_outer : m_middle;
}

int PaneSplitter::slotOf(int index) const
{
    switch (index) {
    case 0:
    case 1:
        return 0;
    case 2:
        return 1;
    default:
        return 2;
    }
}

void PaneSplitter::setPaneContent(int index, QWidget *content)
{
    if (index < 0 || index > 4 || m_contents[index] == content)
        return;
    if (QWidget *old = m_contents[index]) {
        m_panes[index]->layout()->removeWidget(old);
        if (old->parentWidget() == m_panes[index])
            old->setParent(nullptr);
    }
    m_contents[index] = content;
    if (content) {
        for (int i = 0; i < 5; ++i) {
            if (i != index && m_contents[i] == content) {
                m_panes[i]->layout()->removeWidget(content);
                m_contents[i] = nullptr;
            }
        }
        const bool visible = !content->isHidden();
        m_panes[index]->layout()->addWidget(content);
        content->setVisible(visible);
    }
}

QWidget *PaneSplitter::paneContent(int index) const
{
    return index >= 0 && index <= 4 ? m_contents[index] : nullptr;
}

void PaneSplitter::setPaneSize(int index, int pixels)
{
    if (index < 0 || index > 4 || index == kCentre)
        return;
    m_wanted[index] = qMax(0, pixels);
    m_panes[index]->setVisible(m_wanted[index] > 0);
    apply();
}

void PaneSplitter::apply()
{
    // The centre takes whatever the side panes leave; sizes follow this
    // widget's own size, which is final before the inner splitters' are.
    auto place = [this](QSplitter *s, int first, int last, int length) {
        const bool a = m_wanted[first] > 0;
        const bool b = m_wanted[last] > 0;
        const int handles = (a ? s->handleWidth() : 0) + (b ? s->handleWidth() : 0);
        const int centre = qMax(0, length - handles - m_wanted[first] - m_wanted[last]);
        s->setSizes({m_wanted[first], centre, m_wanted[last]});
    };
    place(m_outer, 0, 4, width());
    place(m_middle, 1, 3, height());
    updateHandles();
}

void PaneSplitter::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    apply();
}

int PaneSplitter::paneSize(int index) const
{
    if (index < 0 || index > 4)
        return 0;
    if (!m_panes[index]->isVisibleTo(this))
        return 0;
    return splitterOf(index)->sizes().value(slotOf(index));
}

void PaneSplitter::setLock(int index, bool locked)
{
    if (index < 0 || index > 4)
        return;
    m_locks[index] = locked;
    if (index != kCentre)
        splitterOf(index)->setStretchFactor(slotOf(index), locked ? 0 : 1);
}

void PaneSplitter::updateHandles()
{
    // A handle beside a hidden pane would be a stray line in the picture.
    m_outer->handle(1)->setVisible(m_panes[0]->isVisibleTo(this));
    m_outer->handle(2)->setVisible(m_panes[4]->isVisibleTo(this));
    m_middle->handle(1)->setVisible(m_panes[1]->isVisibleTo(this));
    m_middle->handle(2)->setVisible(m_panes[3]->isVisibleTo(this));
}

} // namespace quorvel
