#include "media/mediasource.h"

#include <gtest/gtest.h>

using namespace quorvel;

TEST(MediaSource, SerializeRoundTripsAndUnSerializeAppends)
{
    clsSource empty;
    EXPECT_EQ(empty.Serialize().keys(),
              (QStringList{u"FileName"_qs, u"Duration"_qs, u"StartTime"_qs, u"TimeStamp"_qs, u"IsAVI"_qs}));

    clsSource s;
    s.FileName = u"/m/a b.avi"_qs;
    s.Duration = 12.5f;
    s.StartTime = 0.25f;
    s.TimeStamp = u"today"_qs;
    s.IsAVI = true;
    StreamEntry v;
    v.Type = StreamEntry::Video;
    v.Index = 0;
    v.Width = 720;
    v.Height = 576;
    v.FPS = 25;
    v.SourceAR = 1.25f;
    v.DisplayAR = 16.0f / 9.0f;
    v.Interlaced = true;
    v.Compression = u"MPEG-2"_qs;
    StreamEntry a;
    a.Type = StreamEntry::Audio;
    a.Index = 1;
    a.Channels = 6;
    a.SampleRate = 48000;
    a.Delay = 120;
    a.BitRate = 448;
    s.Streams = {v, a};

    const OrderedMap m = s.Serialize();
    EXPECT_EQ(m.keys().mid(5), (QStringList{u"Stream0"_qs, u"Stream1"_qs}));
    EXPECT_EQ(m.value(u"Stream1"_qs).value<OrderedMap>().size(), 13);

    clsSource back;
    back.UnSerialize(m);
    EXPECT_EQ(back.FileName, s.FileName);
    EXPECT_FLOAT_EQ(back.Duration, 12.5f);
    EXPECT_TRUE(back.IsAVI);
    ASSERT_EQ(back.StreamCount(), 2);
    EXPECT_EQ(back.Streams[0].Width, 720);
    EXPECT_TRUE(back.Streams[0].Interlaced);
    EXPECT_FLOAT_EQ(back.Streams[0].DisplayAR, 16.0f / 9.0f);
    EXPECT_EQ(back.Streams[1].Delay, 120);
    back.UnSerialize(m); // appends
    EXPECT_EQ(back.StreamCount(), 4);

    EXPECT_EQ(s.StreamInfo(0).size(), 12);
    EXPECT_EQ(s.StreamInfo(1).size(), 9);
    EXPECT_EQ(s.StreamInfo(1).keys().first(), u"Channels"_qs);
    EXPECT_FLOAT_EQ(s.StreamInfo(1).value(u"Duration"_qs).toFloat(), 12.5f);
}
