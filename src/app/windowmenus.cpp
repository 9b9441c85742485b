#include "app/windowmenus.h"

#include "menus/commanddispatcher.h"
#include "menus/menuview.h"

#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QSystemTrayIcon>
#include <QWidget>

namespace quorvel {

WindowMenus::WindowMenus(QWidget &window, QMenuBar &bar) : m_window(window), m_bar(bar)
{
    m_window.installEventFilter(this);
}

WindowMenus::~WindowMenus()
{
    if (m_tray)
        m_tray->hide();
}

void WindowMenus::BuildMenu()
{
    quorvel::BuildMenu(m_menu);
    quorvel::BuildClassicMenu(m_classicMenu);
    m_barView = new MenuView(m_menu, &m_bar);
    m_classicView = new MenuView(m_classicMenu, &m_window);
    m_window.addActions(m_barView->shortcutActions());
}

QMenu *WindowMenus::barBranch(const QString &key) const
{
    return m_barView ? m_barView->menuFor(key) : nullptr;
}

void WindowMenus::popup(const QString &key, QPoint globalPos)
{
    if (QMenu *menu = m_classicView ? m_classicView->menuFor(key) : nullptr)
        menu->popup(globalPos);
}

void WindowMenus::setItemsEnabled(const std::vector<std::pair<QString, bool>> &items)
{
    for (const auto &[key, usable] : items)
        m_menu.setEnabled(key, usable);
}

void WindowMenus::showTray(bool shown)
{
    if (!shown) {
        if (m_tray)
            m_tray->hide();
        return;
    }
    if (!m_tray) {
        m_tray = new QSystemTrayIcon(m_window.windowIcon(), &m_window);
        m_tray->setToolTip(QStringLiteral("Quorvel"));
        // The right button opens the File branch; a left click does nothing.
        m_tray->setContextMenu(m_classicView->menuFor(QStringLiteral("mnuFileMenu")));
    }
    m_tray->show();
}

bool WindowMenus::eventFilter(QObject *watched, QEvent *event)
{
    // Key presses reach the window when the focused child left them alone.
    if (watched != &m_window || event->type() != QEvent::KeyPress || !m_dispatcher)
        return false;
    auto *key = static_cast<QKeyEvent *>(event);
    if (!m_dispatcher->runKey(QKeySequence(key->keyCombination())))
        return false;
    key->accept();
    return true;
}

} // namespace quorvel
