#include "app/commandline.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(CommandLine, JoinsArgumentsRemovesQuotesAndCutsTheAddMarker)
{
    CommandLine c = CommandLine::parse({u"/films/my clip.mp4"_qs});
    EXPECT_EQ(c.commandPath, u"/films/my clip.mp4"_qs);
    EXPECT_EQ(c.handOffText, u"/films/my clip.mp4"_qs);
    EXPECT_TRUE(c.forcePlay);

    c = CommandLine::parse({u"\"/films/my clip.mp4\""_qs});
    EXPECT_EQ(c.commandPath, u"/films/my clip.mp4"_qs);

    c = CommandLine::parse({u"/films/a.mp3"_qs, u"*Add"_qs});
    EXPECT_FALSE(c.forcePlay);
    EXPECT_EQ(c.commandPath, u"/films/a.mp3"_qs);
    EXPECT_EQ(c.handOffText, u"/films/a.mp3 *Add"_qs); // the receiver cuts it itself

    // Two paths are one text: no such file exists.
    c = CommandLine::parse({u"/a.mp3"_qs, u"/b.mp3"_qs});
    EXPECT_EQ(c.commandPath, u"/a.mp3 /b.mp3"_qs);

    c = CommandLine::parse({});
    EXPECT_TRUE(c.handOffText.isEmpty());
    EXPECT_TRUE(c.forcePlay);

    // Only the trailing marker counts; a lone marker leaves nothing.
    c = CommandLine::parse({u"/x/*Add/y.mp4"_qs});
    EXPECT_TRUE(c.forcePlay);
    EXPECT_EQ(CommandLine::stripAddMarker(u"*Add"_qs), QString());
    EXPECT_EQ(CommandLine::stripAddMarker(u"/a.mp4 *Add"_qs), u"/a.mp4"_qs);
}
