// The thumbnail list widget, offscreen: scroll bar, painting of the visible
// rows, mouse, wheel, keys, drops and the events they raise.
#include "playlist/fancylist.h"

#include <QApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QUrl>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

QPalette Dark()
{
    QPalette p(QColor(0x34, 0x36, 0x3e), QColor(0x1e, 0x1f, 0x24));
    p.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x24));
    p.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xc9));
    return p;
}

// A list as the main window sets it up: 64 x 64 pictures in 80-pixel rows.
struct ListFixture {
    FancyList list;
    explicit ListFixture(int rows, QSize size = QSize(300, 400))
    {
        list.setPalette(Dark());
        list.setImageWidth(64);
        list.setImageHeight(64);
        list.setItemHeight(80);
        list.resize(size);
        list.show();
        for (int i = 0; i < rows; ++i)
            list.AddItem(QStringLiteral("clip %1.avi").arg(i));
    }
};

void Mouse(QWidget &w, QEvent::Type type, QPoint pos, Qt::MouseButton b = Qt::LeftButton,
           Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QMouseEvent e(type, pos, w.mapToGlobal(pos), b, type == QEvent::MouseButtonRelease ? Qt::NoButton : b, mods);
    QApplication::sendEvent(&w, &e);
}

void Click(QWidget &w, QPoint pos, Qt::MouseButton b = Qt::LeftButton, Qt::KeyboardModifiers mods = {})
{
    Mouse(w, QEvent::MouseButtonPress, pos, b, mods);
    Mouse(w, QEvent::MouseButtonRelease, pos, b);
}

void Key(QWidget &w, int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QKeyEvent press(QEvent::KeyPress, key, mods), release(QEvent::KeyRelease, key, mods);
    QApplication::sendEvent(&w, &press);
    QApplication::sendEvent(&w, &release);
}

QImage Render(FancyList &list)
{
    return list.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

TEST(FancyList, ScrollBarAndPaintingFollowTheRows)
{
    ListFixture f(5);
    EXPECT_FALSE(f.list.isScrollBarShown());
    for (int i = 5; i < 10; ++i)
        f.list.AddItem(QStringLiteral("more %1").arg(i));
    EXPECT_EQ(f.list.scrollMaximum(), 400);
    f.list.scrollBar()->setValue(400);
    f.list.resize(300, 800); // everything fits again
    EXPECT_FALSE(f.list.isScrollBarShown());
    EXPECT_EQ(f.list.scrollValue(), 0);
    // With Refresh off additions are only stored; turning it on updates the bar.
    f.list.setRefresh(false);
    for (int i = 0; i < 10; ++i)
        f.list.AddItem(QStringLiteral("quiet %1").arg(i));
    EXPECT_FALSE(f.list.isScrollBarShown());
    f.list.setRefresh(true);
    EXPECT_EQ(f.list.scrollMaximum(), 20 * 80 - 800);
    f.list.Clear();
    EXPECT_FALSE(f.list.isScrollBarShown());

    ListFixture big(10000);
    for (auto [scroll, rows] : {std::pair{0, 7}, {400000, 7}, {big.list.scrollMaximum(), 5}}) {
        big.list.scrollBar()->setValue(scroll);
        Render(big.list);
        EXPECT_EQ(big.list.lastPaintedRows(), rows) << scroll;
    }
}

// A 320 x 240 picture in the 64 x 64 box at (8, 8): 64 x 48 from y 16, on
// black unless asked otherwise; the selected row in the highlight colour.
TEST(FancyList, DrawsFittedThumbnailsAndTheSelection)
{
    ListFixture f(0);
    QImage frame(320, 240, QImage::Format_RGB32);
    frame.fill(QColor(0, 200, 0));
    f.list.AddItem(QStringLiteral("green.avi"), frame);
    f.list.AddItem(QStringLiteral("second.avi"), frame);
    f.list.setSelectedItem(1);
    const FancyListColours c = FancyListColours::fromPalette(Dark());
    const QColor green(0, 200, 0), black(Qt::black);
    for (bool noThumbBlack : {false, true}) {
        f.list.setNoThumbBlack(noThumbBlack);
        const QImage img = Render(f.list);
        EXPECT_EQ(img.pixelColor(40, 12), noThumbBlack ? c.window : black) << noThumbBlack;
        EXPECT_EQ(img.pixelColor(40, 40), green) << noThumbBlack;
        EXPECT_EQ(img.pixelColor(290, 82), c.highlight) << noThumbBlack;
    }
}

TEST(FancyList, MouseAndWheel)
{
    ListFixture f(20); // 1600 pixels in 400: range 0..1200
    QSignalSpy down(&f.list, &FancyList::MouseDown), click(&f.list, &FancyList::Click);
    QSignalSpy dbl(&f.list, &FancyList::DblClick);
    // MouseDown comes after the selection changed, with the press's arguments.
    int selectedInSlot = -2;
    QObject::connect(&f.list, &FancyList::MouseDown, &f.list, [&] { selectedInSlot = f.list.SelectedItem(); });
    Click(f.list, QPoint(20, 80), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(selectedInSlot, 1);
    ASSERT_EQ(down.count(), 1);
    EXPECT_EQ(std::tuple(down.at(0).at(0).value<Qt::MouseButton>(), down.at(0).at(1).value<Qt::KeyboardModifiers>(),
                         down.at(0).at(2).toInt(), down.at(0).at(3).toInt()),
              std::tuple(Qt::LeftButton, Qt::KeyboardModifiers(Qt::ShiftModifier), 20, 80));
    EXPECT_EQ(click.count(), 1);
    Click(f.list, QPoint(20, 200), Qt::RightButton); // MouseDown, but the selection stays
    EXPECT_EQ(f.list.SelectedItem(), 1);
    EXPECT_EQ(click.count(), 1);
    Click(f.list, QPoint(20, 239));
    Mouse(f.list, QEvent::MouseButtonDblClick, QPoint(20, 239));
    EXPECT_EQ(dbl.count(), 1);
    EXPECT_EQ(f.list.SelectedItem(), 2);

    // One notch is one row; far up or down stops at the ends.
    for (auto [angle, value] : {std::pair{-120, 80}, {-360, 320}, {120, 240}, {12000, 0}, {-12000, 1200}}) {
        QWheelEvent wheel(QPointF(50, 50), f.list.mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, angle),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&f.list, &wheel);
        EXPECT_EQ(f.list.scrollValue(), value) << angle;
    }
    // Scrolled to the end, a click takes the row under the pointer: y 79 is
    // the last pixel of row 15, y 80 the first of row 16.
    Click(f.list, QPoint(20, 79));
    EXPECT_EQ(f.list.SelectedItem(), 15);
    Click(f.list, QPoint(20, 80));
    EXPECT_EQ(f.list.SelectedItem(), 16);
}

TEST(FancyList, KeysMoveTheSelectionLikeClicks)
{
    ListFixture f(20);
    QSignalSpy click(&f.list, &FancyList::Click), dbl(&f.list, &FancyList::DblClick);
    QSignalSpy keyUp(&f.list, &FancyList::KeyUp);
    const struct {
        int key, selected, scroll, clicks;
    } steps[] = {
        {Qt::Key_Down, 0, 0, 1},         {Qt::Key_Down, 1, 0, 2},       {Qt::Key_Up, 0, 0, 3},
        {Qt::Key_Up, 0, 0, 3},           {Qt::Key_PageDown, 5, 80, 4},  {Qt::Key_End, 19, 1200, 5},
        {Qt::Key_PageDown, 19, 1200, 5}, {Qt::Key_PageUp, 14, 1120, 6}, {Qt::Key_Home, 0, 0, 7},
    };
    for (const auto &s : steps) {
        Key(f.list, s.key);
        EXPECT_EQ(std::tuple(f.list.SelectedItem(), f.list.scrollValue(), click.count()),
                  std::tuple(s.selected, s.scroll, s.clicks))
            << s.key;
    }
    Key(f.list, Qt::Key_Return);
    Key(f.list, Qt::Key_Enter);
    EXPECT_EQ(dbl.count(), 2);
    keyUp.clear();
    Key(f.list, Qt::Key_A, Qt::ShiftModifier);
    EXPECT_EQ(keyUp.value(0), (QVariantList{int(Qt::Key_A), true}));
    // After the selected last row was removed, Up goes to the new last row.
    f.list.RemoveItem(19);
    f.list.setSelectedItem(18);
    f.list.RemoveItem(18);
    Key(f.list, Qt::Key_Up);
    EXPECT_EQ(f.list.SelectedItem(), 17);
    f.list.Clear();
    Key(f.list, Qt::Key_Down);
    EXPECT_EQ(f.list.SelectedItem(), -1);
}

TEST(FancyList, DropsRaiseTheLocalFilesInOrderAndTextIsRefused)
{
    ListFixture f(0);
    QSignalSpy dropped(&f.list, &FancyList::OLEDragDrop);
    QMimeData files, text;
    files.setUrls({QUrl::fromLocalFile(QStringLiteral("/media/A.AVI")),
                   QUrl(QStringLiteral("https://example.org/r.mkv")),
                   QUrl::fromLocalFile(QStringLiteral("/media/with space & ü.mkv"))});
    text.setText(QStringLiteral("/media/c.mkv"));
    for (QMimeData *data : {&files, &text}) {
        QDragEnterEvent enter(QPoint(10, 20), Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&f.list, &enter);
        EXPECT_EQ(enter.isAccepted(), data == &files);
        QDropEvent drop(QPointF(10, 20), Qt::CopyAction, data, Qt::LeftButton, Qt::ControlModifier);
        QApplication::sendEvent(&f.list, &drop);
    }
    ASSERT_EQ(dropped.count(), 1);
    EXPECT_EQ(dropped.at(0).at(0).toStringList(),
              (QStringList{QStringLiteral("/media/A.AVI"), QStringLiteral("/media/with space & ü.mkv")}));
    EXPECT_EQ(dropped.at(0).at(3).value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    EXPECT_EQ(std::pair(dropped.at(0).at(4).toInt(), dropped.at(0).at(5).toInt()), std::pair(10, 20));
    EXPECT_EQ(f.list.Count(), 0); // a drop adds nothing by itself
}
