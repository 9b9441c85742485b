#include "menuview.h"

#include "skin/theme.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace quorvel {

MenuView::MenuView(MenuModel &model, QMenuBar *bar) : QObject(bar), m_model(model), m_ownsKeys(true)
{
    bar->setStyleSheet(theme::menuBarStyleSheet());
    build(bar, bar);
}

MenuView::MenuView(MenuModel &model, QWidget *owner) : QObject(owner), m_model(model)
{
    build(nullptr, owner);
}

void MenuView::build(QMenuBar *bar, QWidget *owner)
{
    QSet<QString> parents;
    for (int i = 0; i < m_model.count(); ++i)
        parents.insert(m_model.item(i).parentKey);

    m_actions.resize(m_model.count());
    for (int i = 0; i < m_model.count(); ++i) {
        const MenuItem &item = m_model.item(i);
        QMenu *parentMenu = item.parentKey.isEmpty() ? nullptr : m_menus.value(item.parentKey);
        QAction *action = nullptr;
        if (item.kind == MenuItem::Separator) {
            if (parentMenu)
                action = parentMenu->addSeparator();
        } else if (parents.contains(item.key)) {
            QMenu *menu = parentMenu ? parentMenu->addMenu(item.caption)
                          : bar      ? bar->addMenu(item.caption)
                                     : new QMenu(item.caption, owner);
            menu->setStyleSheet(theme::menuStyleSheet());
            m_menus.insert(item.key, menu);
            action = menu->menuAction();
            connect(menu, &QMenu::aboutToShow, this, [this, i] { m_model.open(i); });
        } else {
            action = parentMenu ? parentMenu->addAction(item.caption) : bar->addAction(item.caption);
            if (m_ownsKeys) {
                action->setShortcut(item.shortcut);
                action->setShortcutContext(Qt::ApplicationShortcut);
            }
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
    connect(&m_model, &MenuModel::itemChanged, this, &MenuView::update);
}

QMenu *MenuView::menuFor(const QString &key) const
{
    return m_menus.value(key);
}

QAction *MenuView::actionFor(const QString &key) const
{
    const int i = m_model.IndexOfKey(key);
    return i >= 0 ? m_actions.value(i) : nullptr;
}

QList<QAction *> MenuView::shortcutActions() const
{
    QList<QAction *> keyed;
    for (int i = 0; i < m_model.count(); ++i) {
        if (m_actions[i] && !m_model.item(i).shortcut.isEmpty() && !m_menus.contains(m_model.item(i).key))
            keyed << m_actions[i];
    }
    return keyed;
}

void MenuView::update(int position)
{
    QAction *action = m_actions.value(position);
    if (!action)
        return;
    const MenuItem &item = m_model.item(position);
    if (item.kind != MenuItem::Separator) {
        // A tab puts the shortcut text in the menu's shortcut column.
        const bool textOnly = !m_ownsKeys && !item.shortcut.isEmpty();
        action->setText(textOnly ? item.caption + u'\t' + item.shortcut.toString(QKeySequence::NativeText)
                                 : item.caption);
    }
    action->setEnabled(item.enabled);
    action->setVisible(item.visible);
    if (action->isCheckable())
        action->setChecked(item.checked);
}

} // namespace quorvel
