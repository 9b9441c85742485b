// What a missing or broken skin file costs, with real files copied into a
// private program folder.
#include "skintestdata.h"

#include "skin/skinimages.h"
#include "support/files.h"

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

} // namespace

// Loading stops at the first file that is missing or no picture: the skin
// is incomplete and the pictures from there on stay empty, without a crash.
TEST(SkinImages, MissingOrBrokenFileStopsTheLoad)
{
    for (bool broken : {false, true}) { // there but no picture, else removed
        SkinCopy copy;
        const QString pause = copy.dir.filePath("images/Over/Pause.jpg");
        ASSERT_TRUE(broken ? test::writeFile(pause, "this is not a picture") : QFile::remove(pause));
        SkinImages images;
        EXPECT_GT(images.LoadSkinImages(copy.folder()), 0) << broken;
        EXPECT_FALSE(images.isComplete());
        EXPECT_TRUE(images.button(SkinSet::Stop, StateOver).isNull());
        EXPECT_TRUE(images.LoadProgressBack(copy.folder())); // the seek bar background loads on its own
    }
    QTemporaryDir empty; // no skin folder at all
    SkinImages images;
    EXPECT_EQ(images.LoadSkinImages(empty.path() + "/"), 0);
    EXPECT_FALSE(images.LoadProgressBack(empty.path() + "/"));
}
