#include "menubarview.h"

#include "skin/theme.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace quorvel {

MenuBarView::MenuBarView(MenuModel &model, QMenuBar *bar) : QObject(bar), m_model(model)
{
    bar->setStyleSheet(theme::menuBarStyleSheet());
    QSet<QString> parents;
    for (int i = 0; i < model.count(); ++i)
        parents.insert(model.item(i).parentKey);

    m_actions.resize(model.count());
    for (int i = 0; i < model.count(); ++i) {
        const MenuItem &item = model.item(i);
        QMenu *parentMenu = item.parentKey.isEmpty() ? nullptr : m_menus.value(item.parentKey);
        QAction *action = nullptr;
        if (item.kind == MenuItem::Separator) {
            if (parentMenu)
                action = parentMenu->addSeparator();
        } else if (parents.contains(item.key)) {
            QMenu *menu = parentMenu ? parentMenu->addMenu(item.caption) : bar->addMenu(item.caption);
            menu->setStyleSheet(theme::menuStyleSheet());
            m_menus.insert(item.key, menu);
            action = menu->menuAction();
        } else {
            action = parentMenu ? parentMenu->addAction(item.caption) : bar->addAction(item.caption);
            action->setShortcut(shortcutOf(item));
            action->setShortcutContext(Qt::ApplicationShortcut);
            action->setCheckable(item.kind == MenuItem::Check);
            connect(action, &QAction::triggered, this, [this, i] {
                m_model.choose(i);
                update(i); // the model, not the click, decides the check mark
            });
        }
        if (action)
            action->setObjectName(item.key);
        m_actions[i] = action;
        update(i);
    }
    connect(&model, &MenuModel::itemChanged, this, &MenuBarView::update);
}

QMenu *MenuBarView::menuFor(const QString &key) const
{
    return m_menus.value(key);
}

QAction *MenuBarView::actionFor(const QString &key) const
{
    const int i = m_model.IndexOfKey(key);
    return i >= 0 ? m_actions.value(i) : nullptr;
}

void MenuBarView::update(int position)
{
    QAction *action = m_actions.value(position);
    if (!action)
        return;
    const MenuItem &item = m_model.item(position);
    if (item.kind != MenuItem::Separator)
        action->setText(item.caption);
    action->setEnabled(item.enabled);
    action->setVisible(item.visible);
    if (action->isCheckable())
        action->setChecked(item.checked);
}

QKeySequence MenuBarView::shortcutOf(const MenuItem &item)
{
    int key = 0;
    switch (item.shortcutKey) {
    case 0:
        return {};
    case 33:
        key = Qt::Key_PageUp;
        break;
    case 34:
        key = Qt::Key_PageDown;
        break;
    case 38:
        key = Qt::Key_Up;
        break;
    case 40:
        key = Qt::Key_Down;
        break;
    case 112:
        key = Qt::Key_F1;
        break;
    default:
        key = item.shortcutKey; // letters share their codes
        break;
    }
    return QKeySequence(item.shortcutModifier == 2 ? (Qt::CTRL | key) : key);
}

} // namespace quorvel
