#include "menubarview.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

namespace quorvel {

MenuBarView::MenuBarView(MenuModel &model, QMenuBar *bar) : QObject(bar), m_model(model)
{
    bar->setStyleSheet(barStyleSheet());
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
            menu->setStyleSheet(styleSheet());
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

QString MenuBarView::barStyleSheet()
{
    // The bar lies on the skin's dark menu strip, which shows through; an
    // open or pointed-at caption takes the look of the skin's menu button.
    return QStringLiteral(
        "QMenuBar { background: transparent; color: #F2FFFF; border: none; }"
        "QMenuBar::item { background: transparent; padding: 3px 8px; margin: 2px 0; border-radius: 3px; }"
        "QMenuBar::item:selected, QMenuBar::item:pressed { background: #33404D; color: #FFFFFF; }"
        "QMenuBar::item:disabled { color: #7D8792; }");
}

QString MenuBarView::styleSheet()
{
    return QStringLiteral(
        "QMenuBar, QMenu { background: #717171; color: #F2FFFF; }"
        "QMenuBar::item { background: transparent; padding: 2px 8px; }"
        "QMenuBar::item:selected, QMenu::item:selected { background: #E0E0E0; color: #202020; }"
        "QMenu::item:disabled { color: #B8B8B8; }"
        "QMenu::separator { height: 1px; background: #E0E0E0; margin: 3px 6px; }"
        "QMenu::indicator { width: 12px; height: 12px; background: #404040; border: 1px solid #E0E0E0; }"
        "QMenu::indicator:checked { background: #FFFFFF; }");
}

} // namespace quorvel
