#pragma once
// The main window's menus: the menu bar and the pop-up tree built from their
// models, the branches popped up over the list, the video and the DVD
// button, the tray icon with the File branch, and the player keys that the
// focused child leaves alone (the playlist keeps its arrows).

#include "menus/menumodel.h"

#include <QObject>
#include <QPoint>
#include <utility>
#include <vector>

class QMenu;
class QMenuBar;
class QSystemTrayIcon;
class QWidget;

namespace quorvel {

class CommandDispatcher;
class MenuView;

class WindowMenus : public QObject {
    Q_OBJECT
public:
    WindowMenus(QWidget &window, QMenuBar &bar);
    ~WindowMenus() override;

    MenuModel &menu() { return m_menu; }
    MenuModel &classicMenu() { return m_classicMenu; }
    // Builds both trees. The window owns the bar's keys too, so they work
    // while the bar is hidden (full screen).
    void BuildMenu();
    // The player keys go to `dispatcher`.
    void setDispatcher(CommandDispatcher &dispatcher) { m_dispatcher = &dispatcher; }

    QMenu *barBranch(const QString &key) const;
    // Pops up the pop-up tree's branch `key` at `globalPos`.
    void popup(const QString &key, QPoint globalPos);
    void setItemsEnabled(const std::vector<std::pair<QString, bool>> &items);
    // Shows the tray icon (its right button opens the File branch) or hides it.
    void showTray(bool shown);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget &m_window;
    QMenuBar &m_bar;
    MenuModel m_menu;
    MenuModel m_classicMenu;
    MenuView *m_barView = nullptr;
    MenuView *m_classicView = nullptr;
    QSystemTrayIcon *m_tray = nullptr;
    CommandDispatcher *m_dispatcher = nullptr;
};

} // namespace quorvel
