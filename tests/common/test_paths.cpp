#include "common/paths.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

TEST(Paths, TitleAndFolderSplitAtTheLastSeparatorOnly)
{
    EXPECT_EQ(GetFileTitle(u"/media/films/a b.mkv"_qs), u"a b.mkv"_qs);
    EXPECT_EQ(GetFolderOf(u"/media/films/a b.mkv"_qs), u"/media/films"_qs);
    EXPECT_EQ(GetFileTitle(u"plain.mp3"_qs), u"plain.mp3"_qs);
    EXPECT_EQ(GetFolderOf(u"plain.mp3"_qs), u"plain.mp3"_qs);
    EXPECT_EQ(GetFileTitle(u"/dir/"_qs), QString());
    EXPECT_EQ(GetFolderOf(u"/top"_qs), QString());
    // A backslash is an ordinary letter of a Linux file name.
    EXPECT_EQ(GetFileTitle(u"/x/C:\\a\\b.avi"_qs), u"C:\\a\\b.avi"_qs);
}

TEST(Paths, SupportedFileLooksAtTheExtensionOfTheLastComponent)
{
    EXPECT_TRUE(IsSupportedFile(u"/a/A.AVI"_qs));
    EXPECT_TRUE(IsSupportedFile(u"/a/x.HdMoV"_qs));
    EXPECT_TRUE(IsSupportedFile(u"-rf.mp4"_qs));
    EXPECT_FALSE(IsSupportedFile(u"/a/b.txt"_qs));
    EXPECT_FALSE(IsSupportedFile(u"/a.mp4/noext"_qs));
    EXPECT_FALSE(IsSupportedFile(u"/a/trailingdot."_qs));
    EXPECT_FALSE(IsSupportedFile(QString()));
    EXPECT_FALSE(IsSupportedFile(u"/a/movie.mp4.part"_qs));
    EXPECT_EQ(MediaExtensionIndex(u"x.wav"_qs), 0);
    EXPECT_EQ(MediaExtensionIndex(u"x.asf"_qs), 23);
}

TEST(Paths, FilterListsTheTableInOrder)
{
    const QString f = MediaFileFilter();
    EXPECT_TRUE(f.startsWith(u"*.wav;*.flv;"_qs));
    EXPECT_TRUE(f.endsWith(u";*.asf"_qs));
    EXPECT_EQ(f.count(u';'), kMediaExtensionCount - 1);
}

TEST(Paths, DeleteIfExists)
{
    QTemporaryDir dir;
    const QString p = dir.filePath(u"f.txt"_qs);
    EXPECT_TRUE(DeleteIfExists(p));
    QFile f(p);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.close();
    EXPECT_TRUE(DeleteIfExists(p));
    EXPECT_FALSE(QFile::exists(p));
}
