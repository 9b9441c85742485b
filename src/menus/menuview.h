#pragma once
// Shows a menu model as Qt menus, following every change of the model and
// reporting choices and opening branches back to it. The menu bar's items own
// their keys (they work wherever the window is active, full screen too); the
// pop-up tree shows its shortcuts beside the captions only.

#include "menus/menumodel.h"

#include <QHash>
#include <QObject>
#include <QVector>

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace quorvel {

class MenuView : public QObject {
    Q_OBJECT
public:
    // The top-level entries go into `bar`.
    MenuView(MenuModel &model, QMenuBar *bar);
    // The top-level entries are pop-up menus owned by `owner`.
    MenuView(MenuModel &model, QWidget *owner);
    // The menu of a branch (an item with children), e.g. for a pop-up.
    QMenu *menuFor(const QString &key) const;
    QAction *actionFor(const QString &key) const;
    // The items that carry a key, for a window to own them as well.
    QList<QAction *> shortcutActions() const;

private:
    void build(QMenuBar *bar, QWidget *owner);
    void update(int position);

    MenuModel &m_model;
    bool m_ownsKeys = false;
    QVector<QAction *> m_actions; // by position
    QHash<QString, QMenu *> m_menus;
};

} // namespace quorvel
