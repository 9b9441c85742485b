#include "menus/menumodel.h"
#include "menus/menuview.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(MenuView, FollowsTheModelAndReportsChoices)
{
    MenuModel m;
    BuildMenu(m);
    QMenuBar bar;
    MenuView view(m, &bar);
    QAction *stop = view.actionFor(u"Stop"_qs);
    ASSERT_TRUE(stop);
    m.setEnabled(u"Stop"_qs, false);
    EXPECT_FALSE(stop->isEnabled());
    QAction *shuffle = view.actionFor(u"PMShuffle"_qs);
    ASSERT_TRUE(shuffle && shuffle->isCheckable());
    m.setChecked(u"PMShuffle"_qs, true);
    EXPECT_TRUE(shuffle->isChecked());

    QStringList chosen;
    QObject::connect(&m, &MenuModel::MenuItemClick, [&](int p) { chosen << m.KeyAt(p); });
    // A click does not check an item by itself: the program decides.
    QAction *exitAfter = view.actionFor(u"ExitQuorvel"_qs);
    exitAfter->trigger();
    EXPECT_EQ(chosen, QStringList{u"ExitQuorvel"_qs});
    EXPECT_FALSE(exitAfter->isChecked());
    // Full screen hides the bar: the window owns the keyed items as well.
    EXPECT_TRUE(view.shortcutActions().contains(stop));
}

TEST(MenuView, PopupTreeShowsShortcutsWithoutTakingTheKeysAndReportsOpening)
{
    MenuModel m;
    BuildClassicMenu(m);
    QWidget owner;
    MenuView view(m, &owner);
    QAction *faster = view.actionFor(u"mnuincspeed"_qs);
    ASSERT_TRUE(faster);
    EXPECT_EQ(faster->text(), u"Increase Speed\tCtrl+Up"_qs);
    EXPECT_TRUE(faster->shortcut().isEmpty()); // the menu bar's Ctrl+Up has one owner
    QStringList opened;
    QObject::connect(&m, &MenuModel::branchOpening, [&](int p) { opened << m.KeyAt(p); });
    emit view.menuFor(u"mnuPlayBackMenu"_qs)->aboutToShow();
    EXPECT_EQ(opened, QStringList{u"mnuPlayBackMenu"_qs});
}
