#include "media/mediasource.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(MediaSource, SerializeRoundTripsAndUnSerializeAppends)
{
    clsSource s;
    s.FileName = u"/m/a b.avi"_qs;
    s.Duration = 12.5f;
    s.IsAVI = true;
    StreamEntry v;
    v.Type = StreamEntry::Video;
    v.Width = 720;
    v.DisplayAR = 16.0f / 9.0f;
    v.Interlaced = true;
    StreamEntry a;
    a.Type = StreamEntry::Audio;
    a.Index = 1;
    a.Delay = 120;
    s.Streams = {v, a};

    clsSource back;
    back.UnSerialize(s.Serialize());
    EXPECT_EQ(back.FileName, s.FileName);
    EXPECT_FLOAT_EQ(back.Duration, 12.5f);
    EXPECT_TRUE(back.IsAVI);
    ASSERT_EQ(back.StreamCount(), 2);
    EXPECT_EQ(back.Streams[0].Width, 720);
    EXPECT_TRUE(back.Streams[0].Interlaced);
    EXPECT_FLOAT_EQ(back.Streams[0].DisplayAR, 16.0f / 9.0f);
    EXPECT_EQ(back.Streams[1].Delay, 120);
    back.UnSerialize(s.Serialize()); // appends
    EXPECT_EQ(back.StreamCount(), 4);
    EXPECT_EQ(s.Serialize().keys().first(), u"FileName"_qs);
    EXPECT_EQ(s.StreamInfo(0).value(u"Width"_qs).toInt(), 720);
    EXPECT_FLOAT_EQ(s.StreamInfo(1).value(u"Duration"_qs).toFloat(), 12.5f);
}
