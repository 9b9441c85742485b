#include "app/recenthistory.h"

#include "menus/menumodel.h"
#include "support/memorystore.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace
{

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
    const QString a = QStringLiteral("/m/A.mkv"), b = QStringLiteral("/m/B.mkv"),
                  c = QStringLiteral("/m/C.mkv");
    const struct {
        const char *name;
        QStringList played;
        QStringList expected;
    } cases[] = {
        { "played in order", { a, b, c }, { a, b, c } },
        { "replay adds nothing", { a, b, a, b }, { a, b } },
        { "other letter case is another file", { a, QStringLiteral("/m/a.mkv") },
            { a, QStringLiteral("/m/a.mkv") } },
        { "eleven fill every slot", files(0, 10), files(0, 10) },
        { "twelfth drops the oldest", files(0, 11), files(1, 11) },
        { "thirteenth drops the next", files(0, 12), files(2, 12) },
        { "replay of a kept file when full", files(0, 11) << QStringLiteral("/m/f5.mkv"), files(1, 11) },
        { "replay of a dropped file when full", files(0, 11) << QStringLiteral("/m/f0.mkv"),
            files(2, 11) << QStringLiteral("/m/f0.mkv") },
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

TEST(RecentHistory, LoadStopsAtFirstEmptySlotAndFillsTheMenu)
{
    test::MemoryStore store;
    store.RegSetString(QStringLiteral("Software\\Brenlow\\Quorvel\\RecentFileNames"), QStringLiteral("0"),
        QStringLiteral("/m/Tom & Jerry.avi"));
    store.RegSetString(RecentHistory::kTitlesKey, QStringLiteral("0"), QStringLiteral("Tom & Jerry.avi"));
    store.RegSetString(RecentHistory::kNamesKey, QStringLiteral("1"), QStringLiteral("/m/b.mp3"));
    store.RegSetString(RecentHistory::kNamesKey, QStringLiteral("3"), QStringLiteral("/m/after-gap.mp3"));

    MenuModel menu;
    BuildMenu(menu);
    RecentHistory history(store);
    const struct {
        int loaded;
        QStringList captions; // "" = hidden
    } cases[] = {
        { 0, { QStringLiteral("<No History>"), {}, {} } },
        { 2, { QStringLiteral("Tom && Jerry.avi"), QString(), {} } },
    };
    for (const auto &tc : cases) {
        SCOPED_TRACE(tc.loaded);
        if (tc.loaded)
            history.LoadRecentFiles();
        EXPECT_EQ(history.size(), tc.loaded);
        ShowRecentFiles(history, menu);
        for (int n = 0; n < 3; ++n) {
            const MenuItem &item = menu.item(menu.IndexOfKey(QStringLiteral("History%1").arg(n)));
            EXPECT_EQ(item.visible, n < std::max(tc.loaded, 1)) << n;
            EXPECT_EQ(item.enabled, n < tc.loaded) << n;
            if (item.visible) {
                EXPECT_EQ(item.caption, tc.captions.at(n)) << n;
            }
        }
    }
}

} // namespace
