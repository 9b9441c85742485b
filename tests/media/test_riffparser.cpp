// The RIFF walker on files ffmpeg writes and on hand-made files with odd,
// missing and absurd sizes.

#include "media/riffparser.h"
#include "support/mediagen.h"
#include "test_riffbuilder.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace quorvel;
using namespace quorvel::test;

namespace {

struct WalkItem {
    QString type;
    QByteArray name;
    qint64 size = 0;
    qint64 start = 0; // where the item's header began
};

// Walks the whole file; stops at "eof" or a read error (reported as type "error").
QList<WalkItem> walk(clsRIFFParser &parser, int maxItems = 100000)
{
    QList<WalkItem> items;
    for (int i = 0; i < maxItems; ++i) {
        WalkItem item;
        if (!parser.GetChunk()) {
            item.type = QStringLiteral("error");
            items.append(item);
            break;
        }
        item.type = parser.ChunkType();
        item.name = parser.ChunkName();
        item.size = parser.ChunkSize();
        item.start = parser.Position() - (item.type == u"list" ? 12 : 8);
        items.append(item);
        if (item.type == u"eof")
            break;
    }
    return items;
}

int countPackets(const QString &path, const QString &stream)
{
    QString out;
    if (runTool(QStringLiteral("ffprobe"), {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-count_packets"),
                                            QStringLiteral("-select_streams"), stream, QStringLiteral("-show_entries"),
                                            QStringLiteral("stream=nb_read_packets"), QStringLiteral("-of"),
                                            QStringLiteral("csv=p=0"), path},
                &out)
        != 0)
        return -1;
    return out.trimmed().toInt();
}

} // namespace

TEST(RiffParser, WalksEveryChunkOfAnAviFromFfmpeg)
{
    const QString path = makeMedia(QStringLiteral("riff-walk.avi"),
                                   {"-f", "lavfi", "-i", "testsrc2=size=64x48:rate=25:duration=2", "-f", "lavfi", "-i",
                                    "sine=duration=2", "-c:v", "mpeg4", "-c:a", "libmp3lame", "-b:a", "128k"});
    ASSERT_FALSE(path.isEmpty());
    const qint64 length = QFileInfo(path).size();

    clsRIFFParser parser;
    ASSERT_TRUE(parser.OpenFile(path));
    EXPECT_EQ(parser.FileType(), QByteArray("AVI "));
    EXPECT_EQ(parser.FileSize(), quint32(length - 8));
    EXPECT_EQ(parser.FileName(), path);

    const QList<WalkItem> items = walk(parser);
    ASSERT_FALSE(items.isEmpty());
    EXPECT_EQ(items.last().type, u"eof");
    EXPECT_EQ(items.first().type, u"list");
    EXPECT_EQ(items.first().name, QByteArray("hdrl"));

    int strh = 0, strl = 0, video = 0, audio = 0;
    bool movi = false;
    qint64 previousStart = -1;
    qint64 endOfLastChunk = 0;
    for (const WalkItem &item : items) {
        if (item.type == u"eof")
            break;
        EXPECT_GT(item.start, previousStart) << "items must move forward";
        previousStart = item.start;
        if (item.type == u"list") {
            strl += item.name == "strl";
            movi |= item.name == "movi";
        } else {
            EXPECT_EQ(item.size % 2, 0) << "chunk sizes are rounded up to even";
            strh += item.name == "strh";
            video += item.name == "00dc" && item.size > 0;
            audio += item.name == "01wb" && item.size > 0;
            endOfLastChunk = item.start + 8 + item.size;
        }
    }
    EXPECT_EQ(strl, 2);
    EXPECT_EQ(strh, 2);
    EXPECT_TRUE(movi);
    // The data chunks the walk saw are the packets ffmpeg reads back (it
    // drops the empty ones the muxer writes for frames it holds back).
    EXPECT_EQ(video, countPackets(path, QStringLiteral("v")));
    EXPECT_EQ(audio, countPackets(path, QStringLiteral("a")));
    EXPECT_GT(audio, 10);
    // The index closes the file, and the walk ended exactly at its end.
    EXPECT_EQ(items.at(items.size() - 2).name, QByteArray("idx1"));
    EXPECT_EQ(endOfLastChunk, length);
}

TEST(RiffParser, OddSizesPadsListsAndSkipping)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("odd.riff"));
    const QByteArray inner = chunk("ijkl", "x");                     // 8 + 1 + pad
    const QByteArray body = chunk("abcd", "12345") + chunk("efgh", "abc") + list("test", inner)
                            + chunk("mnop", QByteArray()) + chunk("qrst", "zz");
    ASSERT_TRUE(writeBytes(path, riff("TEST", body)));

    clsRIFFParser parser;
    ASSERT_TRUE(parser.OpenFile(path));
    EXPECT_EQ(parser.FileType(), QByteArray("TEST"));

    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"chunk");
    EXPECT_EQ(parser.ChunkName(), QByteArray("abcd"));
    EXPECT_EQ(parser.ChunkSize(), 6);
    EXPECT_EQ(parser.DeclaredSize(), 5u);
    // The read position stands at the data.
    char data[5];
    ASSERT_TRUE(parser.Read(data, 5));
    EXPECT_EQ(QByteArray(data, 5), QByteArray("12345"));

    // Reading part of the data does not disturb where the next item starts.
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("efgh"));
    EXPECT_EQ(parser.ChunkSize(), 4);

    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"list");
    EXPECT_EQ(parser.ChunkName(), QByteArray("test"));
    EXPECT_EQ(parser.ChunkSize(), inner.size());

    // Lists are entered.
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("ijkl"));
    EXPECT_EQ(parser.ChunkSize(), 2);

    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("mnop"));
    EXPECT_EQ(parser.ChunkSize(), 0);

    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("qrst"));
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"eof");
    // "eof" stays "eof".
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"eof");

    // SkipChunk after a list passes over its contents; after a chunk it
    // changes nothing about the next item.
    clsRIFFParser skipping;
    ASSERT_TRUE(skipping.OpenFile(path));
    ASSERT_TRUE(skipping.GetChunk());
    ASSERT_TRUE(skipping.SkipChunk());
    ASSERT_TRUE(skipping.GetChunk());
    EXPECT_EQ(skipping.ChunkName(), QByteArray("efgh"));
    ASSERT_TRUE(skipping.GetChunk());
    ASSERT_EQ(skipping.ChunkName(), QByteArray("test"));
    ASSERT_TRUE(skipping.SkipChunk());
    ASSERT_TRUE(skipping.GetChunk());
    EXPECT_EQ(skipping.ChunkName(), QByteArray("mnop"));
}

TEST(RiffParser, RefusesWhatIsNotRiff)
{
    QTemporaryDir dir;
    clsRIFFParser parser;
    EXPECT_FALSE(parser.OpenFile(dir.filePath(QStringLiteral("missing.avi"))));
    EXPECT_FALSE(parser.GetChunk()) << "no file, no items";

    const QString empty = dir.filePath(QStringLiteral("empty.avi"));
    ASSERT_TRUE(writeBytes(empty, QByteArray()));
    EXPECT_FALSE(parser.OpenFile(empty));

    const QString shortFile = dir.filePath(QStringLiteral("short.avi"));
    ASSERT_TRUE(writeBytes(shortFile, QByteArray("RIFF\x04\x00", 6)));
    EXPECT_FALSE(parser.OpenFile(shortFile)) << "a header cut short is not a RIFF file";

    const QString rifx = dir.filePath(QStringLiteral("rifx.avi"));
    ASSERT_TRUE(writeBytes(rifx, QByteArray("RIFX") + le32(4) + QByteArray("AVI ")));
    EXPECT_FALSE(parser.OpenFile(rifx));

    // A folder cannot be read as a file.
    EXPECT_FALSE(parser.OpenFile(dir.path()));

    const QString wave = dir.filePath(QStringLiteral("tone.wav"));
    ASSERT_TRUE(writeBytes(wave, riff("WAVE", chunk("fmt ", QByteArray(16, '\1')))));
    ASSERT_TRUE(parser.OpenFile(wave)) << "any RIFF form opens";
    EXPECT_EQ(parser.FileType(), QByteArray("WAVE"));
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("fmt "));
}

TEST(RiffParser, AbsurdSizesAndCutHeadersEndTheWalk)
{
    QTemporaryDir dir;
    clsRIFFParser parser;

    // A file header that claims 4 GiB, and a chunk that claims as much.
    const QString huge = dir.filePath(QStringLiteral("huge.avi"));
    ASSERT_TRUE(writeBytes(huge, QByteArray("RIFF") + le32(0xFFFFFFFF) + QByteArray("AVI ") + QByteArray("JUNK")
                                     + le32(0xFFFFFFFF) + QByteArray(64, 'j')));
    ASSERT_TRUE(parser.OpenFile(huge));
    EXPECT_EQ(parser.FileSize(), 0xFFFFFFFFu);
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"chunk");
    EXPECT_EQ(parser.ChunkSize(), qint64(0x100000000));
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"eof");

    // A list too short to hold its own type is entered with size 0, and
    // skipping it never moves backwards.
    const QString tiny = dir.filePath(QStringLiteral("tiny-list.avi"));
    ASSERT_TRUE(writeBytes(tiny, QByteArray("RIFF") + le32(40) + QByteArray("AVI ") + QByteArray("LIST") + le32(0)
                                     + QByteArray("movi") + chunk("01wb", "ab")));
    ASSERT_TRUE(parser.OpenFile(tiny));
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkType(), u"list");
    EXPECT_EQ(parser.ChunkSize(), 0);
    const qint64 before = parser.Position();
    ASSERT_TRUE(parser.SkipChunk());
    EXPECT_EQ(parser.Position(), before);
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("01wb"));

    // Files that end inside an item header: three bytes of a chunk header,
    // and a list header without its full type.
    const QByteArray start = riff("AVI ", chunk("avih", QByteArray(8, '\0')));
    for (const QByteArray &tail : {QByteArray("LIS"), QByteArray("LIST\x10\x00\x00\x00mo", 10), QByteArray("01wb\x02\x00", 6)}) {
        const QString cut = dir.filePath(QStringLiteral("cut.avi"));
        ASSERT_TRUE(writeBytes(cut, start + tail));
        ASSERT_TRUE(parser.OpenFile(cut));
        ASSERT_TRUE(parser.GetChunk());
        EXPECT_EQ(parser.ChunkName(), QByteArray("avih"));
        ASSERT_TRUE(parser.GetChunk());
        EXPECT_EQ(parser.ChunkType(), u"eof") << tail.toHex().constData();
    }
}
