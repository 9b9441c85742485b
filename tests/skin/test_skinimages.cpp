// What a missing or broken skin file costs, with real files copied into a
// private program folder.
#include "skintestdata.h"

#include "skin/skinimages.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
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

// Loading stops at the first file that is missing or no picture: that slot and
// every later one stay empty, the earlier ones are kept.
TEST(SkinImages, MissingOrBrokenFileEmptiesItsSlotAndAllLaterOnes)
{
    const struct {
        const char *file;
        bool broken; // there but no picture, else removed
    } cases[] = {{"images/TLCorner.png", false}, {"images/About.png", false}, {"images/Over/Pause.jpg", true}};
    for (const auto &c : cases) {
        SCOPED_TRACE(c.file);
        SkinCopy copy;
        QFile file(copy.dir.filePath(c.file));
        if (c.broken) {
            ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
            file.write("this is not a picture");
            file.close();
        } else {
            ASSERT_TRUE(file.remove());
        }
        SkinImages images;
        const int stop = IndexOf(c.file);
        EXPECT_EQ(images.LoadSkinImages(copy.folder()), stop);
        EXPECT_FALSE(images.isComplete());
        EXPECT_EQ(images.single(SkinSingle::TitleBar).isNull(), stop <= IndexOf("images/TitleBar.jpg"));
        EXPECT_TRUE(images.single(SkinSingle::AboutLogo).isNull());
        EXPECT_TRUE(images.button(SkinSet::Stop, StateOver).isNull());
        // the seek bar background is loaded on its own
        EXPECT_TRUE(images.LoadProgressBack(copy.folder()));
    }
    QTemporaryDir empty; // no skin folder at all
    SkinImages images;
    EXPECT_EQ(images.LoadSkinImages(empty.path() + "/"), 0);
    EXPECT_FALSE(images.LoadProgressBack(empty.path() + "/"));
    EXPECT_TRUE(test::CommittedSkin().button(SkinSet::Play, 4).isNull());
}
