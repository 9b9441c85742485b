// The seek bar's frame grabber on generated files: key frames at whole
// seconds, the bounded cache and its nearest frame, only the latest of a
// burst of requests, and files without a picture.
#include "media/framegrabber.h"
#include "support/files.h"
#include "support/mediagen.h"
#include "support/waituntil.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;

namespace {

// 10 s of 320x180 with a key frame every second.
QString clip()
{
    return test::makeMedia(u"grabber-10s.mp4"_qs,
                           u"-f lavfi -i testsrc2=size=320x180:rate=25:duration=10 -c:v libx264 "
                           u"-preset ultrafast -g 25 -keyint_min 25 -sc_threshold 0 -pix_fmt yuv420p"_qs);
}

class Answers {
public:
    explicit Answers(FrameGrabber &g)
    {
        QObject::connect(&g, &FrameGrabber::frameReady, &g, [this](const PreviewFrame &f) { all.push_back(f); });
    }
    // The answer for `ms` of `file`, waited for.
    PreviewFrame of(const QString &file, qint64 ms)
    {
        auto found = [&] {
            return std::ranges::find_if(all,
                                        [&](const PreviewFrame &f) { return f.file == file && f.requestedMs == ms; });
        };
        EXPECT_TRUE(test::waitUntil([&] { return found() != all.end(); })) << ms;
        return found() != all.end() ? *found() : PreviewFrame{};
    }
    std::vector<PreviewFrame> all;
};

PreviewFrame grab(FrameGrabber &g, Answers &a, const QString &file, qint64 ms)
{
    g.request(file, ms);
    return a.of(file, ms);
}

} // namespace

TEST(FrameGrabberTest, KeyFramesAreKeptBoundedAndTheNearestAnswersAtOnce)
{
    const QString file = clip();
    ASSERT_FALSE(file.isEmpty());
    FrameGrabber g(FrameGrabber::Limits{.files = 2, .framesPerFile = 3});
    Answers a(g);
    // Asked time, key frame decoded; 2000 is asked again before 9000 comes,
    // so the least recently used one that goes is 4000.
    const std::pair<qint64, qint64> asked[] = {{2500, 2000}, {4100, 4000}, {7999, 7000}, {2900, 2000}, {9500, 9000}};
    for (const auto &[ms, key] : asked) {
        const PreviewFrame f = grab(g, a, file, ms);
        EXPECT_EQ(f.kind, PreviewFrame::Frame) << ms;
        EXPECT_EQ(f.keyframeMs, key) << ms;
        EXPECT_EQ(f.image.size(), QSize(160, 90)) << ms;
    }
    // Kept now: 2000, 7000, 9000.
    const std::vector<std::pair<qint64, qint64>> nearest{{0, 2000},    {3900, 2000}, {4400, 2000},
                                                         {4600, 7000}, {8100, 9000}, {60000, 9000}};
    for (const auto &[ms, key] : nearest) {
        const PreviewFrame f = g.nearestCached(file, ms);
        EXPECT_EQ(f.keyframeMs, key) << ms;
        EXPECT_EQ(f.requestedMs, ms);
        EXPECT_FALSE(f.image.isNull()) << ms;
    }

    // Two files are kept: a third one pushes out the one used longest ago.
    QTemporaryDir dir;
    const QString second = dir.filePath(u"b.mp4"_qs), third = dir.filePath(u"c.mp4"_qs);
    QFile::copy(file, second);
    QFile::copy(file, third);
    grab(g, a, second, 1000);
    grab(g, a, third, 1000);
    EXPECT_EQ(g.nearestCached(file, 2000).kind, PreviewFrame::None);
    EXPECT_EQ(g.nearestCached(second, 2000).keyframeMs, 1000);
}

TEST(FrameGrabberTest, OnlyTheLatestOfABurstIsWorkedOn)
{
    LatestRequest<int> slot;
    const std::vector<bool> replaced{slot.post(1), slot.post(2), slot.post(3)};
    EXPECT_EQ(replaced, (std::vector<bool>{false, true, true}));
    EXPECT_EQ(slot.take(), 3);
    EXPECT_FALSE(slot.pending());

    const QString file = clip();
    FrameGrabber g;
    Answers a(g);
    for (qint64 ms = 0; ms < 9600; ms += 400)
        g.request(file, ms);
    const PreviewFrame last = a.of(file, 9200);
    EXPECT_EQ(last.keyframeMs, 9000);
    // The worker took at most a few of the 24 before the last one came.
    EXPECT_LT(a.all.size(), 24u);
    EXPECT_EQ(a.all.back().requestedMs, 9200);
}

TEST(FrameGrabberTest, FilesWithoutFramesShowTheirCoverOrTheTimeAlone)
{
    const QString tone = u" -f lavfi -i sine=frequency=330:duration=2"_qs;
    const QString covered = test::makeMedia(
        u"grabber-cover.mp3"_qs, u"-f lavfi -i testsrc2=size=120x90:duration=1"_qs + tone
                                     + u" -map 1:a -map 0:v -frames:v 1 -c:v png -disposition:v attached_pic"_qs);
    const QString bare = test::makeMedia(u"grabber-bare.mp3"_qs, tone);
    QTemporaryDir dir;
    const QString junk = dir.filePath(u"junk.mp4"_qs), gone = dir.filePath(u"gone.mp4"_qs);
    ASSERT_TRUE(test::writeFile(junk, QByteArray(4096, 'x')));
    const auto cover = PreviewFrame::Cover, none = PreviewFrame::None;
    const std::pair<QString, PreviewFrame::Kind> files[] = {{covered, cover}, {bare, none}, {junk, none}, {gone, none}};
    FrameGrabber g;
    Answers a(g);
    for (const auto &[file, kind] : files) {
        EXPECT_EQ(grab(g, a, file, 1000).kind, kind) << file.toStdString();
        EXPECT_EQ(g.nearestCached(file, 500).kind, kind) << file.toStdString();
    }
    EXPECT_EQ(g.nearestCached(covered, 0).image.width(), 160);
}
