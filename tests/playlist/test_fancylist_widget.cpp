// The thumbnail list widget, offscreen: the scroll bar, painting of only the
// visible rows, the drawn picture box, mouse, wheel, keys, drops and the
// events they raise, and a screenshot of a small list.
#include "playlist/fancylist.h"

#include <QApplication>
#include <QDir>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QUrl>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

QPalette DarkPalette()
{
    QPalette p;
    p.setColor(QPalette::Base, QColor(0x1e, 0x1f, 0x24));
    p.setColor(QPalette::Window, QColor(0x1e, 0x1f, 0x24));
    p.setColor(QPalette::Text, QColor(0xe6, 0xe6, 0xea));
    p.setColor(QPalette::ButtonText, QColor(0xe6, 0xe6, 0xea));
    p.setColor(QPalette::Button, QColor(0x34, 0x36, 0x3e));
    p.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xc9));
    p.setColor(QPalette::HighlightedText, Qt::white);
    return p;
}

// A list as the main window sets it up: 64 x 64 pictures in 80-pixel rows.
struct ListFixture {
    FancyList list;
    explicit ListFixture(int rows, QSize size = QSize(300, 400))
    {
        list.setPalette(DarkPalette());
        list.setImageWidth(64);
        list.setImageHeight(64);
        list.setItemHeight(80);
        list.resize(size);
        list.show();
        for (int i = 0; i < rows; ++i)
            list.AddItem(QStringLiteral("clip %1.avi").arg(i));
    }
};

void Press(QWidget &w, QPoint pos, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QMouseEvent press(QEvent::MouseButtonPress, pos, w.mapToGlobal(pos), button, button, mods);
    QApplication::sendEvent(&w, &press);
}

void Release(QWidget &w, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent release(QEvent::MouseButtonRelease, pos, w.mapToGlobal(pos), button, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(&w, &release);
}

void DoubleClick(QWidget &w, QPoint pos)
{
    QMouseEvent dbl(QEvent::MouseButtonDblClick, pos, w.mapToGlobal(pos), Qt::LeftButton, Qt::LeftButton,
                    Qt::NoModifier);
    QApplication::sendEvent(&w, &dbl);
}

void Key(QWidget &w, int key, Qt::KeyboardModifiers mods = Qt::NoModifier)
{
    QKeyEvent press(QEvent::KeyPress, key, mods);
    QApplication::sendEvent(&w, &press);
    QKeyEvent release(QEvent::KeyRelease, key, mods);
    QApplication::sendEvent(&w, &release);
}

void Wheel(QWidget &w, int angleY)
{
    const QPointF pos(50, 50);
    QWheelEvent wheel(pos, w.mapToGlobal(pos), QPoint(), QPoint(0, angleY), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&w, &wheel);
}

QString OutputFolder()
{
    const QString dir = QStringLiteral(QUORVEL_PROGRAM_DIR) + QStringLiteral("/test-output");
    QDir().mkpath(dir);
    return dir;
}

QImage Render(FancyList &list)
{
    return list.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

TEST(FancyList, ScrollBarShowsOnlyWhileRowsOverflow)
{
    ListFixture f(5);
    EXPECT_FALSE(f.list.isScrollBarShown());
    EXPECT_EQ(f.list.scrollMaximum(), 0);

    for (int i = 5; i < 10; ++i)
        f.list.AddItem(QStringLiteral("more %1").arg(i));
    EXPECT_TRUE(f.list.isScrollBarShown());
    EXPECT_EQ(f.list.scrollMaximum(), 400);
    f.list.scrollBar()->setValue(400);

    // Growing the list makes everything fit again.
    f.list.resize(300, 800);
    EXPECT_FALSE(f.list.isScrollBarShown());
    EXPECT_EQ(f.list.scrollMaximum(), 0);
    EXPECT_EQ(f.list.scrollValue(), 0);

    // With Refresh off additions are only stored; turning it on updates the bar.
    f.list.setRefresh(false);
    for (int i = 0; i < 10; ++i)
        f.list.AddItem(QStringLiteral("quiet %1").arg(i));
    EXPECT_FALSE(f.list.isScrollBarShown());
    f.list.setRefresh(true);
    EXPECT_TRUE(f.list.isScrollBarShown());
    EXPECT_EQ(f.list.scrollMaximum(), 20 * 80 - 800);

    f.list.Clear();
    EXPECT_FALSE(f.list.isScrollBarShown());
}

TEST(FancyList, PaintsOnlyTheVisibleRows)
{
    ListFixture big(10000);
    Render(big.list);
    EXPECT_EQ(big.list.lastPaintedRows(), 7); // rows 0..6: 400/80 + 1 past the first
    big.list.scrollBar()->setValue(400000);
    Render(big.list);
    EXPECT_EQ(big.list.lastPaintedRows(), 7);
    big.list.scrollBar()->setValue(big.list.scrollMaximum());
    Render(big.list);
    EXPECT_EQ(big.list.lastPaintedRows(), 5); // the last five rows fill the surface
}

TEST(FancyList, DrawsRowsSeparatorsSelectionAndFittedThumbnail)
{
    ListFixture f(0);
    QImage frame(320, 240, QImage::Format_RGB32);
    frame.fill(QColor(0, 200, 0));
    f.list.AddItem(QStringLiteral("green.avi"), frame);
    f.list.AddItem(QStringLiteral("second.avi"), frame);
    const QPalette pal = DarkPalette();
    const FancyListColours colours = FancyListColours::fromPalette(pal);

    QImage img = Render(f.list);
    // A 320 x 240 picture in the 64 x 64 box at (8, 8): 64 x 48, 8 pixels down, on black.
    EXPECT_EQ(img.pixelColor(10, 10), QColor(Qt::black));
    EXPECT_EQ(img.pixelColor(40, 15), QColor(Qt::black)); // above the picture
    EXPECT_EQ(img.pixelColor(40, 17), QColor(0, 200, 0)); // picture starts at y 16
    EXPECT_EQ(img.pixelColor(40, 62), QColor(0, 200, 0)); // ends at y 63
    EXPECT_EQ(img.pixelColor(40, 65), QColor(Qt::black)); // black below
    EXPECT_EQ(img.pixelColor(4, 40), colours.window);     // padding in the row colour
    // The separator in the row's last pixel row, then the next row.
    EXPECT_EQ(img.pixelColor(150, 79), colours.separator);
    EXPECT_EQ(img.pixelColor(290, 90), colours.window);
    // Beyond the rows: surface colour.
    EXPECT_EQ(img.pixelColor(150, 300), colours.window);

    f.list.setSelectedItem(1);
    img = Render(f.list);
    EXPECT_EQ(img.pixelColor(290, 82), colours.highlight);
    EXPECT_EQ(img.pixelColor(290, 158), colours.highlight);
    EXPECT_EQ(img.pixelColor(290, 10), colours.window);

    // Without the black box the picture's margins keep the row colour.
    f.list.setNoThumbBlack(true);
    img = Render(f.list);
    EXPECT_EQ(img.pixelColor(40, 10), colours.window);
    EXPECT_EQ(img.pixelColor(40, 40), QColor(0, 200, 0));
    EXPECT_EQ(img.pixelColor(40, 90), colours.highlight); // selected row behind row 1's picture

    // Without thumbnails nothing is drawn in the picture box.
    f.list.setNoThumbBlack(false);
    f.list.setThumbnails(false);
    img = Render(f.list);
    EXPECT_EQ(img.pixelColor(40, 40), colours.window);
}

TEST(FancyList, RenderThumbFitsAndCentres)
{
    // 10 x 40 becomes 16 x 64, centred at x 34..49; 8 x 8 enlarged fills the box.
    const struct {
        QSize size;
        bool noThumbBlack;
        QColor colour;
        std::vector<std::pair<QPoint, QColor>> pixels;
    } cases[] = {
        {{10, 40},
         false,
         Qt::red,
         {{{33, 40}, Qt::black},
          {{35, 40}, Qt::red},
          {{48, 40}, Qt::red},
          {{51, 40}, Qt::black},
          {{9, 40}, Qt::white},
          {{74, 40}, Qt::white}}},
        {{8, 8}, true, Qt::blue, {{{11, 11}, Qt::blue}, {{72, 72}, Qt::blue}, {{76, 76}, Qt::white}}},
    };
    for (const auto &c : cases) {
        QImage target(100, 100, QImage::Format_RGB32);
        target.fill(Qt::white);
        QImage picture(c.size, QImage::Format_RGB32);
        picture.fill(c.colour);
        QPainter p(&target);
        RenderThumb(p, picture, 10, 10, 64, 64, c.noThumbBlack);
        p.end();
        for (const auto &[at, colour] : c.pixels)
            EXPECT_EQ(target.pixelColor(at), colour) << at.x() << "," << at.y();
    }
}

TEST(FancyList, MousePressSelectsAndRaisesEvents)
{
    ListFixture f(3);
    QSignalSpy down(&f.list, &FancyList::MouseDown);
    QSignalSpy click(&f.list, &FancyList::Click);
    QSignalSpy dbl(&f.list, &FancyList::DblClick);

    f.list.setSelectedItem(0);
    // MouseDown comes after the selection changed, with the press's arguments.
    int selectedInSlot = -2;
    QObject::connect(&f.list, &FancyList::MouseDown, &f.list, [&] { selectedInSlot = f.list.SelectedItem(); });
    Press(f.list, QPoint(20, 80), Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_EQ(f.list.SelectedItem(), 1);
    EXPECT_EQ(selectedInSlot, 1);
    ASSERT_EQ(down.count(), 1);
    EXPECT_EQ(down.at(0).at(0).value<Qt::MouseButton>(), Qt::LeftButton);
    EXPECT_EQ(down.at(0).at(1).value<Qt::KeyboardModifiers>(), Qt::ShiftModifier);
    EXPECT_EQ(down.at(0).at(2).toInt(), 20);
    EXPECT_EQ(down.at(0).at(3).toInt(), 80);
    EXPECT_EQ(click.count(), 0);
    Release(f.list, QPoint(20, 80));
    EXPECT_EQ(click.count(), 1);

    // The right button raises MouseDown but keeps the selection.
    Press(f.list, QPoint(20, 200), Qt::RightButton);
    Release(f.list, QPoint(20, 200), Qt::RightButton);
    EXPECT_EQ(f.list.SelectedItem(), 1);
    ASSERT_EQ(down.count(), 2);
    EXPECT_EQ(down.at(1).at(0).value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_EQ(click.count(), 1);

    // Below the last row: nothing selected.
    Press(f.list, QPoint(20, 250));
    Release(f.list, QPoint(20, 250));
    EXPECT_EQ(f.list.SelectedItem(), -1);
    EXPECT_EQ(f.list.SelectedText(), QString());

    // Double-click on row 2.
    Press(f.list, QPoint(20, 239));
    Release(f.list, QPoint(20, 239));
    DoubleClick(f.list, QPoint(20, 239));
    Release(f.list, QPoint(20, 239));
    EXPECT_EQ(dbl.count(), 1);
    EXPECT_EQ(f.list.SelectedItem(), 2);
}

TEST(FancyList, WheelAndScrollMoveTheView)
{
    ListFixture f(20); // 1600 pixels in 400: range 0..1200
    EXPECT_EQ(f.list.scrollMaximum(), 1200);
    // One notch down is one row; far up or down stops at the ends.
    for (auto [angle, value] : {std::pair{-120, 80}, {-360, 320}, {120, 240}, {12000, 0}, {-12000, 1200}}) {
        Wheel(f.list, angle);
        EXPECT_EQ(f.list.scrollValue(), value) << angle;
    }

    // Scroll(Delta) moves by Delta / 16 pixels, rounded.
    f.list.scrollBar()->setValue(100);
    f.list.Scroll(160);
    EXPECT_EQ(f.list.scrollValue(), 90);
    f.list.Scroll(-24); // 1.5 pixels down rounds to 2
    EXPECT_EQ(f.list.scrollValue(), 92);
    f.list.Scroll(1 << 20);
    EXPECT_EQ(f.list.scrollValue(), 0);
    // The selection is not touched by scrolling.
    EXPECT_EQ(f.list.SelectedItem(), -1);
}

TEST(FancyList, KeysMoveTheSelectionLikeClicks)
{
    ListFixture f(20);
    QSignalSpy click(&f.list, &FancyList::Click);
    QSignalSpy dbl(&f.list, &FancyList::DblClick);
    QSignalSpy keyUp(&f.list, &FancyList::KeyUp);

    const struct {
        int key, selected, scroll, clicks;
    } steps[] = {
        {Qt::Key_Down, 0, 0, 1}, // nothing selected: first row
        {Qt::Key_Down, 1, 0, 2},       {Qt::Key_Up, 0, 0, 3},
        {Qt::Key_Up, 0, 0, 3},        // already at the top: no change, no click
        {Qt::Key_PageDown, 5, 80, 4}, // five rows in a page; row 5 brought into view whole
        {Qt::Key_End, 19, 1200, 5},    {Qt::Key_PageDown, 19, 1200, 5},
        {Qt::Key_PageUp, 14, 1120, 6}, {Qt::Key_Home, 0, 0, 7},
    };
    for (const auto &s : steps) {
        Key(f.list, s.key);
        EXPECT_EQ(f.list.SelectedItem(), s.selected) << s.key;
        EXPECT_EQ(f.list.scrollValue(), s.scroll) << s.key;
        EXPECT_EQ(click.count(), s.clicks) << s.key;
    }

    Key(f.list, Qt::Key_Return);
    Key(f.list, Qt::Key_Enter);
    EXPECT_EQ(dbl.count(), 2);

    // KeyUp carries the key and whether shift was down.
    keyUp.clear();
    Key(f.list, Qt::Key_A, Qt::ShiftModifier);
    ASSERT_EQ(keyUp.count(), 1);
    EXPECT_EQ(keyUp.at(0).at(0).toInt(), int(Qt::Key_A));
    EXPECT_TRUE(keyUp.at(0).at(1).toBool());

    // After the selected last row was removed, Up goes to the new last row.
    f.list.RemoveItem(19);
    f.list.setSelectedItem(18);
    f.list.RemoveItem(18);
    EXPECT_EQ(f.list.SelectedItem(), 18);
    Key(f.list, Qt::Key_Up);
    EXPECT_EQ(f.list.SelectedItem(), 17);

    // Keys on an empty list do nothing.
    f.list.Clear();
    click.clear();
    Key(f.list, Qt::Key_Down);
    EXPECT_EQ(f.list.SelectedItem(), -1);
    EXPECT_EQ(click.count(), 0);
}

TEST(FancyList, DropsRaiseTheFileList)
{
    ListFixture f(0);
    QSignalSpy dropped(&f.list, &FancyList::OLEDragDrop);
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/media/A.AVI")),
                  QUrl(QStringLiteral("https://example.org/remote.mkv")),
                  QUrl::fromLocalFile(QStringLiteral("/media/b.txt")),
                  QUrl::fromLocalFile(QStringLiteral("/media/with space & ü.mkv"))});
    QDragEnterEvent enter(QPoint(10, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&f.list, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::ControlModifier);
    QApplication::sendEvent(&f.list, &drop);
    ASSERT_EQ(dropped.count(), 1);
    // Every local file in order; choosing the supported ones is the playlist's job.
    const QStringList files = dropped.at(0).at(0).toStringList();
    EXPECT_EQ(files, (QStringList{QStringLiteral("/media/A.AVI"), QStringLiteral("/media/b.txt"),
                                  QStringLiteral("/media/with space & ü.mkv")}));
    EXPECT_EQ(dropped.at(0).at(3).value<Qt::KeyboardModifiers>(), Qt::ControlModifier);
    EXPECT_EQ(dropped.at(0).at(4).toInt(), 10);
    EXPECT_EQ(dropped.at(0).at(5).toInt(), 20);
    EXPECT_EQ(f.list.Count(), 0); // a drop adds nothing by itself

    // Text without files is refused.
    QMimeData text;
    text.setText(QStringLiteral("/media/c.mkv"));
    QDragEnterEvent enterText(QPoint(10, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&f.list, &enterText);
    EXPECT_FALSE(enterText.isAccepted());
    QDropEvent dropText(QPointF(10, 20), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&f.list, &dropText);
    EXPECT_EQ(dropped.count(), 1);
}

TEST(FancyList, ScreenshotOfFiveItems)
{
    ListFixture f(0, QSize(360, 330));
    // Long, odd and short titles over wide, tall, tiny and square pictures.
    const std::pair<QString, QSize> clips[] = {
        {QStringLiteral("Holiday at the lake, summer 2024 - part one of three.mkv"), QSize(320, 180)},
        {QStringLiteral("portrait phone clip.mp4"), QSize(180, 320)},
        {QStringLiteral("square & tiny.avi"), QSize(24, 24)},
        {QStringLiteral("An extremely long title without any spaces_0123456789_abcdefghij.flv"), QSize(400, 300)},
        {QStringLiteral("song.mp3"), QSize(64, 64)},
    };
    int hue = 0;
    for (const auto &[title, size] : clips) {
        QImage pic(size, QImage::Format_RGB32);
        pic.fill(QColor::fromHsv(hue += 60, 160, 200));
        QPainter(&pic).fillRect(QRect(0, size.height() * 2 / 3, size.width(), size.height()), Qt::darkGreen);
        f.list.AddItem(title, pic);
    }
    f.list.setSelectedItem(1);
    ASSERT_TRUE(f.list.isScrollBarShown()); // five 80-pixel rows in 330 pixels
    const QImage shot = Render(f.list);
    const QString path = OutputFolder() + QStringLiteral("/fancylist.png");
    ASSERT_TRUE(shot.save(path));
    EXPECT_EQ(f.list.lastPaintedRows(), 5);
    // The selected row and a thumbnail appear where they belong.
    const FancyListColours colours = FancyListColours::fromPalette(DarkPalette());
    EXPECT_EQ(shot.pixelColor(200, 155), colours.highlight);
    EXPECT_NE(shot.pixelColor(40, 40), colours.window);

    // With focus the selected row carries a frame in its text colour.
    QImage focused(f.list.size(), QImage::Format_RGB32);
    {
        QPainter p(&focused);
        FancyListPaint how;
        how.surface = f.list.size();
        how.focusFrame = true;
        PaintFancyList(p, f.list.model(), colours, f.list.Font(), how);
    }
    ASSERT_TRUE(focused.save(OutputFolder() + QStringLiteral("/fancylist-focus.png")));
}

TEST(FancyList, SeparatorStaysVisibleButQuietOnDarkPalettes)
{
    QPalette p = DarkPalette();
    // Button face equal to the rows: the line is lifted so it still shows.
    p.setColor(QPalette::Button, p.color(QPalette::Base));
    FancyListColours c = FancyListColours::fromPalette(p);
    EXPECT_GE(c.separator.lightness() - c.window.lightness(), 16);
    // A light button face under dark rows: a line between the two.
    p.setColor(QPalette::Button, QColor(0xef, 0xef, 0xef));
    c = FancyListColours::fromPalette(p);
    EXPECT_GT(c.separator.lightness(), c.window.lightness() + 16);
    EXPECT_LT(c.separator.lightness(), 0x80);
    // The highlight colours come straight from the palette.
    EXPECT_EQ(c.highlight, p.color(QPalette::Highlight));
    EXPECT_EQ(c.highlightText, p.color(QPalette::HighlightedText));
}
