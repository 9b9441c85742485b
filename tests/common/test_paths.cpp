#include "common/paths.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(Paths, TitleAndFolderSplitAtTheLastSeparatorOnly)
{
    const struct {
        QString path, title, folder;
    } cases[] = {
        {u"/media/films/a b.mkv"_qs, u"a b.mkv"_qs, u"/media/films"_qs},
        {u"plain.mp3"_qs, u"plain.mp3"_qs, u"plain.mp3"_qs},
        {u"/dir/"_qs, QString(), u"/dir"_qs},
        {u"/top"_qs, u"top"_qs, QString()},
        {u"/x/C:\\a\\b.avi"_qs, u"C:\\a\\b.avi"_qs, u"/x"_qs}, // a backslash is an ordinary letter
    };
    for (const auto &c : cases) {
        EXPECT_EQ(GetFileTitle(c.path), c.title) << c.path.toStdString();
        EXPECT_EQ(GetFolderOf(c.path), c.folder) << c.path.toStdString();
    }
}

TEST(Paths, SupportedFileLooksAtTheExtensionOfTheLastComponent)
{
    const std::pair<QString, bool> cases[] = {
        {u"/a/A.AVI"_qs, true},  {u"/a/x.HdMoV"_qs, true},         {u"-rf.mp4"_qs, true},
        {u"/a/b.txt"_qs, false}, {u"/a.mp4/noext"_qs, false},      {u"/a/trailingdot."_qs, false},
        {QString(), false},      {u"/a/movie.mp4.part"_qs, false},
    };
    for (const auto &[path, supported] : cases)
        EXPECT_EQ(IsSupportedFile(path), supported) << path.toStdString();
}
