// The RIFF walker on hand-made files with odd, missing and absurd sizes (the
// delay scan's tests walk files ffmpeg writes).

#include "media/riffparser.h"
#include "test_riffbuilder.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

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

TEST(RiffParser, OddSizesListsSkippingAndCutFiles)
{
    const QByteArray body = chunk("abcd", "12345") + chunk("efgh", "abc") + list("test", chunk("ijkl", "x"))
                            + chunk("mnop", {}) + chunk("qrst", "zz");
    const QByteArray start = riff("AVI ", chunk("avih", QByteArray(8, '\0')));
    const std::tuple<QByteArray, const char *, const char *> cases[] = {
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
    for (const auto &[file, skip, want] : cases) {
        ASSERT_TRUE(writeFile(path, file));
        clsRIFFParser parser;
        ASSERT_TRUE(parser.OpenFile(path));
        EXPECT_EQ(walk(parser, skip), QString::fromLatin1(want)) << file.left(40).toHex().constData();
        // "eof" stays "eof".
        EXPECT_TRUE(parser.GetChunk() && parser.ItemKind() == clsRIFFParser::Item::Eof);
    }
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
        ASSERT_TRUE(writeFile(path, bytes));
        EXPECT_FALSE(parser.OpenFile(path)) << bytes.toHex().constData();
    }
    ASSERT_TRUE(writeFile(path, riff("WAVE", chunk("fmt ", QByteArray(16, '\1')))));
    ASSERT_TRUE(parser.OpenFile(path)) << "any RIFF form opens";
    EXPECT_EQ(parser.FileType(), QByteArray("WAVE"));
}
