// The load order of the skin and what a missing or broken file costs, with
// real files copied into a private program folder.
#include "skintestdata.h"

#include "skin/skinimages.h"

#include <QCursor>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QPainter>
#include <QSet>
#include <QTemporaryDir>
#include <QWidget>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// A program folder holding a copy of the committed skin.
struct SkinCopy {
    QTemporaryDir dir;
    SkinCopy()
    {
        const QString src = test::SkinProgramFolder() + "images";
        QDirIterator it(src, QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = it.next();
            const QString target = dir.filePath("images" + file.mid(src.size()));
            QDir().mkpath(QFileInfo(target).absolutePath());
            QFile::copy(file, target);
        }
    }
    QString folder() const { return dir.path() + "/"; }
    void remove(const QString &relative) { ASSERT_TRUE(QFile::remove(dir.filePath(relative))); }
};

int IndexOf(const QString &relative)
{
    const auto &order = SkinLoadOrder();
    for (size_t i = 0; i < order.size(); ++i)
        if (order[i].relativePath == relative)
            return int(i);
    return -1;
}

} // namespace

TEST(SkinImages, LoadOrderCoversTheNinetyFiveFiles)
{
    const auto &order = SkinLoadOrder();
    ASSERT_EQ(order.size(), 96u);
    QSet<QString> distinct;
    for (const auto &step : order)
        distinct.insert(step.relativePath);
    EXPECT_EQ(distinct.size(), 95);
    EXPECT_EQ(order.front().relativePath, "images/TLCorner.png");
    EXPECT_EQ(order[18].relativePath, "images/TitleBar.jpg");
    EXPECT_EQ(order[19].relativePath, "images/Normal/Minimize.jpg");
    EXPECT_EQ(order[22].relativePath, "images/About.png");
    EXPECT_EQ(order[23].relativePath, "images/Over/Minimize.jpg");
    EXPECT_EQ(order[29].relativePath, "images/Disabel/Minimize.jpg");
    EXPECT_EQ(order[32].relativePath, "images/menu.jpg");
    EXPECT_EQ(order[35].relativePath, "images/Normal/Play.jpg");
    EXPECT_EQ(order[38].relativePath, "images/Over/Play.jpg");
    EXPECT_EQ(order[47].relativePath, "images/Normal/Previous.jpg");
    EXPECT_EQ(order[50].relativePath, "images/Normal/ff.jpg");
    EXPECT_EQ(order[63].relativePath, "images/Normal/PlayList.jpg");
    EXPECT_EQ(order[75].relativePath, "images/Normal/SnapShoot.jpg");
    EXPECT_EQ(order[83].relativePath, "images/Normal/SoundOn.jpg");
    EXPECT_EQ(order[87].relativePath, "images/Normal/SoundOFF.jpg");
    EXPECT_EQ(order[91].relativePath, "images/Normal/Button.png");
    EXPECT_EQ(order[94].relativePath, "images/Disabel/Button.png");
    EXPECT_EQ(order.back().relativePath, "images/About.png");
    EXPECT_EQ(SkinStateFolder(3), "Disabel");

    // every file of the load order exists in the committed skin, and nothing else
    QSet<QString> onDisk;
    const QString root = test::SkinProgramFolder();
    QDirIterator it(root + "images", QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        onDisk.insert(it.next().mid(root.size()));
    onDisk.remove("images/ProgressBarBack.jpg");
    EXPECT_EQ(onDisk, distinct);
}

TEST(SkinImages, CompleteSkinLoadsEverySlotAtItsDrawingSize)
{
    SkinImages images;
    EXPECT_EQ(images.LoadSkinImages(test::SkinProgramFolder()), 96);
    EXPECT_TRUE(images.isComplete());
    EXPECT_TRUE(images.LoadProgressBack(test::SkinProgramFolder()));
    // button pictures are drawn unscaled: their sizes are the button table's
    EXPECT_EQ(images.button(SkinSet::Play, StateOver).size(), QSize(69, 83));
    EXPECT_EQ(images.button(SkinSet::Pause, StateNormal).size(), QSize(35, 44));
    EXPECT_EQ(images.button(SkinSet::Stop, StatePressed).size(), QSize(36, 47));
    EXPECT_EQ(images.button(SkinSet::SoundOFF, StateDisabled).size(), QSize(23, 31));
    EXPECT_EQ(images.button(SkinSet::Minimize, StateNormal).size(), QSize(22, 24));
    EXPECT_EQ(images.single(SkinSingle::BGDL).size(), QSize(58, 147));
    EXPECT_EQ(images.single(SkinSingle::TitleBar).height(), 31);
    EXPECT_FALSE(images.single(SkinSingle::AboutLogo).isNull());
    EXPECT_TRUE(images.button(SkinSet::Play, 4).isNull());
}

TEST(SkinImages, MissingOrBrokenFileEmptiesItsSlotAndAllLaterOnes)
{
    {   // the first file: nothing at all
        SkinCopy copy;
        copy.remove("images/TLCorner.png");
        SkinImages images;
        EXPECT_EQ(images.LoadSkinImages(copy.folder()), 0);
        EXPECT_TRUE(images.single(SkinSingle::TitleBar).isNull());
        EXPECT_TRUE(images.button(SkinSet::Play, StateNormal).isNull());
        // the seek bar background is loaded on its own
        EXPECT_TRUE(images.LoadProgressBack(copy.folder()));
    }
    {   // the window icon: slots 1-22 survive, the rest stay empty
        SkinCopy copy;
        copy.remove("images/About.png");
        SkinImages images;
        EXPECT_EQ(images.LoadSkinImages(copy.folder()), 22);
        EXPECT_FALSE(images.single(SkinSingle::TitleBar).isNull());
        EXPECT_FALSE(images.button(SkinSet::Close, StateNormal).isNull());
        EXPECT_TRUE(images.single(SkinSingle::WindowIcon).isNull());
        EXPECT_TRUE(images.button(SkinSet::Minimize, StateOver).isNull());
        EXPECT_TRUE(images.single(SkinSingle::Menu).isNull());
        EXPECT_TRUE(images.single(SkinSingle::AboutLogo).isNull());
    }
    {   // a file that is there but is no picture stops the loading as well
        SkinCopy copy;
        QFile broken(copy.dir.filePath("images/Over/Pause.jpg"));
        ASSERT_TRUE(broken.open(QIODevice::WriteOnly | QIODevice::Truncate));
        broken.write("this is not a picture");
        broken.close();
        SkinImages images;
        EXPECT_EQ(images.LoadSkinImages(copy.folder()), IndexOf("images/Over/Pause.jpg"));
        EXPECT_FALSE(images.button(SkinSet::Play, StateOver).isNull());
        EXPECT_TRUE(images.button(SkinSet::Pause, StateOver).isNull());
        EXPECT_TRUE(images.button(SkinSet::Stop, StateOver).isNull());
        EXPECT_FALSE(images.isComplete());
    }
    {   // no skin folder at all
        QTemporaryDir empty;
        SkinImages images;
        EXPECT_EQ(images.LoadSkinImages(empty.path() + "/"), 0);
        EXPECT_FALSE(images.LoadProgressBack(empty.path() + "/"));
    }
}

TEST(SkinImages, DrawSkinImageScalesIntoTheRectangle)
{
    QImage source(2, 1, QImage::Format_RGB32);
    source.setPixel(0, 0, qRgb(255, 0, 0));
    source.setPixel(1, 0, qRgb(0, 0, 255));
    QImage target(40, 20, QImage::Format_RGB32);
    target.fill(Qt::black);
    QPainter p(&target);
    const HitRect r = DrawSkinImage(p, source, 10, 5, 20, 10);
    EXPECT_EQ(r, (HitRect{10, 5, 30, 15}));
    // a picture that was never loaded draws nothing and cannot be hit
    EXPECT_TRUE(DrawSkinImage(p, QImage(), 0, 0, 40, 20).isEmpty());
    p.end();
    EXPECT_EQ(target.pixel(11, 6), qRgb(255, 0, 0));
    EXPECT_EQ(target.pixel(28, 14), qRgb(0, 0, 255));
    EXPECT_EQ(target.pixel(9, 5), qRgb(0, 0, 0));
    EXPECT_EQ(target.pixel(30, 10), qRgb(0, 0, 0));
    EXPECT_EQ(target.pixel(20, 15), qRgb(0, 0, 0));
}

TEST(SkinImages, HitTestFindsLowestIndexWithExclusiveEdges)
{
    std::array<HitRect, 24> rects{};
    rects[3] = {10, 10, 20, 20};
    rects[5] = {15, 15, 40, 40};
    EXPECT_EQ(HitTestButtons(rects, QPoint(10, 10)), 3);  // left and top edges are inside
    EXPECT_EQ(HitTestButtons(rects, QPoint(20, 12)), -1); // right edge is outside
    EXPECT_EQ(HitTestButtons(rects, QPoint(12, 20)), -1); // bottom edge is outside
    EXPECT_EQ(HitTestButtons(rects, QPoint(17, 17)), 3);  // overlap: lower index wins
    EXPECT_EQ(HitTestButtons(rects, QPoint(25, 25)), 5);
    EXPECT_EQ(HitTestButtons(rects, QPoint(-1, -1)), -1);
    std::array<HitRect, 24> empty{};
    empty[0] = {5, 5, 5, 9}; // no width: contains nothing
    EXPECT_EQ(HitTestButtons(empty, QPoint(5, 5)), -1);
    EXPECT_EQ(HitTestButtons(empty, static_cast<const QWidget *>(nullptr)), -1);
}

TEST(SkinImages, HitTestOverAWindowReadsTheLivePointer)
{
    QWidget window;
    window.setGeometry(100, 120, 388, 515);
    window.show();
    std::array<HitRect, 24> rects{};
    rects[8] = {160, 428, 229, 487};
    QCursor::setPos(window.mapToGlobal(QPoint(170, 430)));
    if (window.mapFromGlobal(QCursor::pos()) != QPoint(170, 430))
        GTEST_SKIP() << "this platform cannot place the pointer";
    EXPECT_EQ(HitTestButtons(rects, &window), 8);
    QCursor::setPos(window.mapToGlobal(QPoint(170, 487)));
    EXPECT_EQ(HitTestButtons(rects, &window), -1);
}
