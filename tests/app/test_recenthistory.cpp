#include "app/recenthistory.h"

#include "menus/menumodel.h"
#include "support/memorystore.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

QStringList files(int from, int to)
{
    QStringList list;
    for (int i = from; i <= to; ++i)
        list << QStringLiteral("/m/f%1.mkv").arg(i);
    return list;
}

QStringList slotPaths(const RecentHistory &h)
{
    QStringList list;
    for (int n = 0; n < h.size(); ++n)
        list << h.path(n);
    return list;
}

TEST(RecentHistory, KeepsElevenSlotsOldestFirstAndSkipsReplays)
{
    const QString a = QStringLiteral("/m/A.mkv"), b = QStringLiteral("/m/B.mkv"), c = QStringLiteral("/m/C.mkv");
    const struct {
        const char *name;
        QStringList played;
        QStringList expected;
    } cases[] = {
        {"played in order", {a, b, c}, {a, b, c}},
        {"replay adds nothing", {a, b, a, b}, {a, b}},
        {"other letter case is another file", {a, QStringLiteral("/m/a.mkv")}, {a, QStringLiteral("/m/a.mkv")}},
        {"twelfth drops the oldest", files(0, 11), files(1, 11)},
        {"replay of a kept file when full", files(0, 11) << QStringLiteral("/m/f5.mkv"), files(1, 11)},
        {"replay of a dropped file when full", files(0, 11) << QStringLiteral("/m/f0.mkv"),
         files(2, 11) << QStringLiteral("/m/f0.mkv")},
    };
    for (const auto &tc : cases) {
        SCOPED_TRACE(tc.name);
        test::MemoryStore store;
        RecentHistory history(store);
        history.LoadRecentFiles();
        for (const QString &p : tc.played)
            history.AddRecentFile(p, p.mid(3));
        EXPECT_EQ(slotPaths(history), tc.expected);

        // The store holds the same slots, titles beside paths, and nothing beyond slot 10.
        RecentHistory reloaded(store);
        reloaded.LoadRecentFiles();
        EXPECT_EQ(slotPaths(reloaded), tc.expected);
        for (int n = 0; n < reloaded.size(); ++n)
            EXPECT_EQ(reloaded.title(n), tc.expected.at(n).mid(3));
        EXPECT_EQ(store.values.value(RecentHistory::kNamesKey).size(), tc.expected.size());
    }
}

// The first three history items as "caption" (disabled: "caption-off"), hidden "-".
QString shownItems(const MenuModel &menu)
{
    QStringList shown;
    for (int n = 0; n < 3; ++n) {
        const MenuItem &item = menu.item(menu.IndexOfKey(QStringLiteral("History%1").arg(n)));
        shown << (!item.visible ? u"-"_qs : item.caption + (item.enabled ? u""_qs : u"-off"_qs));
    }
    return shown.join(u'|');
}

TEST(RecentHistory, LoadStopsAtFirstEmptySlotAndFillsTheMenu)
{
    test::MemoryStore store;
    store.RegSetString(u"Software\\Brenlow\\Quorvel\\RecentFileNames"_qs, u"0"_qs, u"/m/Tom & Jerry.avi"_qs);
    store.RegSetString(RecentHistory::kTitlesKey, u"0"_qs, u"Tom & Jerry.avi"_qs);
    store.RegSetString(RecentHistory::kNamesKey, u"1"_qs, u"/m/b.mp3"_qs);
    store.RegSetString(RecentHistory::kNamesKey, u"3"_qs, u"/m/after-gap.mp3"_qs);
    MenuModel menu;
    BuildMenu(menu);
    RecentHistory history(store);
    ShowRecentFiles(history, menu);
    EXPECT_EQ(shownItems(menu), u"<No History>-off|-|-"_qs);
    history.LoadRecentFiles();
    ShowRecentFiles(history, menu);
    EXPECT_EQ(shownItems(menu), u"Tom && Jerry.avi||-"_qs);
}

} // namespace
