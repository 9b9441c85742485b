// The RIFF walker on a file ffmpeg writes and on hand-made files with odd,
// missing and absurd sizes.

#include "media/riffparser.h"
#include "support/mediagen.h"
#include "test_riffbuilder.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>

using namespace quorvel;
using namespace quorvel::test;

namespace {

// The whole walk as "name size" per item; a list's name is in brackets. A
// list whose name is in `skip` is stepped over with SkipChunk.
QString walk(clsRIFFParser &parser, const QByteArray &skip = {})
{
    QStringList items;
    for (qint64 previous = -1; items.size() < 100000;) {
        if (!parser.GetChunk())
            return items.join(u' ') + u" error"_qs;
        if (parser.ChunkType() == u"eof")
            break;
        const bool isList = parser.ChunkType() == u"list";
        const qint64 start = parser.Position() - (isList ? 12 : 8);
        if (start <= previous)
            return items.join(u' ') + u" backwards"_qs;
        previous = start;
        const QString name = QString::fromLatin1(parser.ChunkName());
        items << (isList ? u'[' + name + u']' : name) + u':' + QString::number(parser.ChunkSize());
        if (isList && parser.ChunkName() == skip && !parser.SkipChunk())
            return items.join(u' ') + u" skip failed"_qs;
    }
    return items.join(u' ');
}

} // namespace

TEST(RiffParser, WalksEveryChunkOfAnAviFromFfmpeg)
{
    const QString path = makeMedia(QStringLiteral("riff-walk.avi"),
                                   {"-f", "lavfi", "-i", "testsrc2=size=64x48:rate=25:duration=2", "-f", "lavfi", "-i",
                                    "sine=duration=2", "-c:v", "mpeg4", "-c:a", "libmp3lame", "-b:a", "128k"});
    ASSERT_FALSE(path.isEmpty());
    clsRIFFParser parser;
    ASSERT_TRUE(parser.OpenFile(path));
    EXPECT_EQ(parser.FileType(), QByteArray("AVI "));
    EXPECT_EQ(parser.FileSize(), quint32(QFileInfo(path).size() - 8));
    const QStringList items = walk(parser).split(u' ');
    ASSERT_TRUE(items.first().startsWith(u"[hdrl]"_qs)) << items.first().toStdString();
    EXPECT_EQ(items.filter(u"[strl]"_qs).size(), 2);
    EXPECT_TRUE(items.last().startsWith(u"idx1:"_qs)) << items.last().toStdString();
    // Every non-empty data chunk is a packet ffmpeg reads back (the empty
    // ones stand for frames the muxer held back).
    QString out;
    ASSERT_EQ(runTool(u"ffprobe"_qs,
                      {u"-v"_qs, u"error"_qs, u"-count_packets"_qs, u"-show_entries"_qs, u"stream=nb_read_packets"_qs,
                       u"-of"_qs, u"csv=p=0"_qs, path},
                      &out),
              0);
    const auto data = [&items](const QString &id) {
        return std::count_if(items.begin(), items.end(),
                             [&id](const QString &i) { return i.startsWith(id) && i != id + u'0'; });
    };
    EXPECT_EQ(u"%1\n%2"_qs.arg(data(u"00dc:"_qs)).arg(data(u"01wb:"_qs)), out.trimmed());
}

TEST(RiffParser, OddSizesListsSkippingAndCutFiles)
{
    const QByteArray body = chunk("abcd", "12345") + chunk("efgh", "abc") + list("test", chunk("ijkl", "x"))
                            + chunk("mnop", {}) + chunk("qrst", "zz");
    const QByteArray start = riff("AVI ", chunk("avih", QByteArray(8, '\0')));
    const struct {
        QByteArray file;
        const char *skip;
        const char *want;
    } cases[] = {
        // Sizes rounded up to even, lists entered...
        {riff("TEST", body), "", "abcd:6 efgh:4 [test]:10 ijkl:2 mnop:0 qrst:2"},
        // ...or stepped over.
        {riff("TEST", body), "test", "abcd:6 efgh:4 [test]:10 mnop:0 qrst:2"},
        // A chunk that claims 4 GiB ends the walk.
        {"RIFF" + le32(0xFFFFFFFF) + "AVI JUNK" + le32(0xFFFFFFFF) + QByteArray(64, 'j'), "", "JUNK:4294967296"},
        // A list too short to hold its type is entered with size 0; skipping it never moves back.
        {"RIFF" + le32(40) + "AVI LIST" + le32(0) + "movi" + chunk("01wb", "ab"), "movi", "[movi]:0 01wb:2"},
        // Files that end inside an item header.
        {start + "LIS", "", "avih:8"},
        {start + QByteArray("LIST\x10\x00\x00\x00mo", 10), "", "avih:8"},
        {start + QByteArray("01wb\x02\x00", 6), "", "avih:8"},
    };
    QTemporaryDir dir;
    const QString path = dir.filePath(u"odd.riff"_qs);
    for (const auto &c : cases) {
        ASSERT_TRUE(writeBytes(path, c.file));
        clsRIFFParser parser;
        ASSERT_TRUE(parser.OpenFile(path));
        EXPECT_EQ(walk(parser, c.skip), QString::fromLatin1(c.want)) << c.file.left(40).toHex().constData();
        // "eof" stays "eof".
        EXPECT_TRUE(parser.GetChunk() && parser.ItemKind() == clsRIFFParser::Item::Eof);
    }

    // The read position stands at a chunk's data; reading part of it does not
    // move where the next item starts.
    ASSERT_TRUE(writeBytes(path, riff("TEST", body)));
    clsRIFFParser parser;
    ASSERT_TRUE(parser.OpenFile(path));
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.DeclaredSize(), 5u);
    char data[5];
    ASSERT_TRUE(parser.Read(data, 5));
    EXPECT_EQ(QByteArray(data, 5), QByteArray("12345"));
    ASSERT_TRUE(parser.GetChunk());
    EXPECT_EQ(parser.ChunkName(), QByteArray("efgh"));
}

TEST(RiffParser, RefusesWhatIsNotRiff)
{
    QTemporaryDir dir;
    clsRIFFParser parser;
    EXPECT_FALSE(parser.OpenFile(dir.filePath(u"missing.avi"_qs)));
    EXPECT_FALSE(parser.GetChunk()) << "no file, no items";
    EXPECT_FALSE(parser.OpenFile(dir.path())) << "a folder";
    const QString path = dir.filePath(u"file.avi"_qs);
    for (const QByteArray &bytes : {QByteArray(), QByteArray("RIFF\x04\x00", 6), "RIFX" + le32(4) + "AVI "}) {
        ASSERT_TRUE(writeBytes(path, bytes));
        EXPECT_FALSE(parser.OpenFile(path)) << bytes.toHex().constData();
    }
    ASSERT_TRUE(writeBytes(path, riff("WAVE", chunk("fmt ", QByteArray(16, '\1')))));
    ASSERT_TRUE(parser.OpenFile(path)) << "any RIFF form opens";
    EXPECT_EQ(parser.FileType(), QByteArray("WAVE"));
}
