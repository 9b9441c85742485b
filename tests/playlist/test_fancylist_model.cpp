// The window-free rules of the thumbnail list: selection after removals and
// the narrow list's rows.
#include "playlist/fancylistmodel.h"

#include <gtest/gtest.h>

using namespace quorvel;

namespace {

FancyListModel ModelWith(int rows, int itemHeight = 80)
{
    FancyListModel m;
    m.setItemHeight(itemHeight);
    m.setImageWidth(64);
    m.setImageHeight(64);
    for (int i = 0; i < rows; ++i)
        m.AddItem(QStringLiteral("item %1").arg(i));
    return m;
}

} // namespace

TEST(FancyListModel, SelectionFollowsAddRemoveAndClear)
{
    FancyListModel m = ModelWith(3);
    // Out-of-range writes are ignored, adding leaves the selection alone.
    EXPECT_FALSE(m.setSelectedItem(-1) || m.setSelectedItem(3));
    EXPECT_TRUE(m.setSelectedItem(1));
    m.AddItem(QStringLiteral("late"));
    EXPECT_FALSE(m.setSelectedItem(-1));
    // Each removal (the selection set first when given) and the selection after it.
    const struct {
        int select, remove, selected;
        const char *text;
    } steps[] = {
        {-1, 0, 0, "item 1"},                // before the selection: it moves to the removed index
        {1, 1, 1, "late"},                   // the selected row: the one that moved up
        {-1, 1, 1, ""},                      // the selected last row: the old index, now past the end
        {-1, 1, 1, ""},                      // out of range: nothing
        {-1, -1, 1, ""},      {0, 0, 0, ""}, // the only row: the selection stays as it was
    };
    for (const auto &s : steps) {
        if (s.select >= 0)
            m.setSelectedItem(s.select);
        m.RemoveItem(s.remove);
        EXPECT_EQ(std::pair(m.SelectedItem(), m.SelectedText()), std::pair(s.selected, QString::fromLatin1(s.text)))
            << s.remove;
    }
    EXPECT_EQ(m.Count(), 0);
    m = ModelWith(4);
    m.setSelectedItem(2);
    m.Clear();
    EXPECT_EQ(std::pair(m.Count(), m.SelectedItem()), std::pair(0, -1));
}

TEST(FancyListModel, NarrowListStacksTheTitleUnderThePicture)
{
    FancyListModel m = ModelWith(100);
    // Rows scroll with the list: row 2 scrolled by 30 starts at 160 - 30.
    m.setPadding(8);
    EXPECT_EQ(m.textRect(2, 30, 300).top(), 160 - 30 + 8);
    // At the default window size the list is 119 pixels wide: the title goes
    // under a smaller picture, across the row, two lines high.
    EXPECT_FALSE(m.isStacked(300));
    ASSERT_TRUE(m.isStacked(119));
    const QRect narrowThumb = m.thumbRect(0, 0, 119);
    const QRect narrowText = m.textRect(0, 0, 119);
    EXPECT_EQ(narrowText.width(), 119 - 16);
    EXPECT_GT(narrowText.top(), narrowThumb.bottom());
    EXPECT_GE(narrowText.height(), 2 * 15);
    EXPECT_LE(narrowText.bottom(), 79);
    EXPECT_GE(narrowThumb.height(), 40);
    m.setThumbnails(false);
    EXPECT_EQ(m.textRect(0, 0, 300).left(), 8);
}
