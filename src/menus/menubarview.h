#pragma once
// Shows the keyed menu as a menu bar (and its branches as pop-ups), following
// every change of the model and reporting choices back to it.

#include "menus/menumodel.h"

#include <QHash>
#include <QObject>
#include <QVector>

class QAction;
class QMenu;
class QMenuBar;

namespace quorvel {

class MenuBarView : public QObject {
    Q_OBJECT
public:
    MenuBarView(MenuModel &model, QMenuBar *bar);
    // The menu of a branch (an item with children), e.g. for a pop-up.
    QMenu *menuFor(const QString &key) const;
    QAction *actionFor(const QString &key) const;

private:
    void update(int position);
    static QKeySequence shortcutOf(const MenuItem &item);

    MenuModel &m_model;
    QVector<QAction *> m_actions; // by position
    QHash<QString, QMenu *> m_menus;
};

} // namespace quorvel
