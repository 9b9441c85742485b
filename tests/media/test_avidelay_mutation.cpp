// Thousands of damaged copies of a real AVI file, made from a fixed seed so a
// failure can be replayed: the scan must end on every one of them, give the
// same answer twice, and never invent delays a cut-short file cannot hold.

#include "media/avidelay.h"
#include "media/riffparser.h"
#include "support/mediagen.h"
#include "test_riffbuilder.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <random>

using namespace quorvel;
using namespace quorvel::test;

namespace {

constexpr int kMutants = 4000;

QString baseClip()
{
    return makeMedia(QStringLiteral("riff-mutation-base.avi"),
                     {"-f", "lavfi", "-i", "testsrc2=size=32x24:rate=10:duration=1", "-f", "lavfi", "-i",
                      "sine=duration=1", "-f", "lavfi", "-i", "sine=frequency=880:duration=1", "-map", "0", "-map", "1",
                      "-map", "2", "-c:v", "mpeg4", "-c:a:0", "ac3", "-c:a:1", "libmp3lame", "-b:a:1", "64k"});
}

// Where the item headers of the original file start; mutations aimed there
// reach the size and id fields the parser trusts most.
QList<qint64> itemOffsets(const QString &path)
{
    QList<qint64> offsets{0};
    clsRIFFParser parser;
    if (!parser.OpenFile(path))
        return offsets;
    while (parser.GetChunk() && parser.ItemKind() != clsRIFFParser::Item::Eof)
        offsets.append(parser.Position() - (parser.ItemKind() == clsRIFFParser::Item::List ? 12 : 8));
    return offsets;
}

class Mutator {
public:
    Mutator(const QByteArray &base, QList<qint64> offsets)
        : m_base(base), m_offsets(std::move(offsets)), m_random(20261123)
    {
    }

    QByteArray next()
    {
        QByteArray b = m_base;
        const int rounds = 1 + int(pick(3));
        for (int r = 0; r < rounds; ++r)
            mutate(b);
        return b;
    }

private:
    quint32 pick(quint32 n) { return n ? quint32(m_random() % n) : 0; }

    void mutate(QByteArray &b)
    {
        static const quint32 interesting[] = {0, 1, 2, 3, 4, 7, 8, 0x7F, 0x80, 0xFF, 0x7FFF, 0xFFFF, 0x7FFFFFFF,
                                              0x80000000, 0xFFFFFFF0, 0xFFFFFFFE, 0xFFFFFFFF};
        static const char *const ids[] = {"LIST", "RIFF", "strh", "strf", "00wb", "01wb", "02wb", "99wb",
                                          "x1wb", "movi", "auds", "idx1"};
        if (b.isEmpty()) {
            b = m_base;
            return;
        }
        const qint64 header = m_offsets.at(pick(m_offsets.size()));
        switch (pick(9)) {
        case 0: // flip bits
            for (int i = 0, n = 1 + pick(4); i < n; ++i)
                b[pick(b.size())] ^= char(1 << pick(8));
            break;
        case 1: // random bytes
            for (int i = 0, n = 1 + pick(16); i < n; ++i)
                b[pick(b.size())] = char(pick(256));
            break;
        case 2: // a boundary value into a size field
            if (header + 8 <= b.size())
                qToLittleEndian<quint32>(interesting[pick(std::size(interesting))], b.data() + header + 4);
            break;
        case 3: // a size field off by a little
            if (header + 8 <= b.size())
                qToLittleEndian<quint32>(qFromLittleEndian<quint32>(b.constData() + header + 4) + pick(9) - 4,
                                         b.data() + header + 4);
            break;
        case 4: // another id
            if (header + 4 <= b.size())
                memcpy(b.data() + header, ids[pick(std::size(ids))], 4);
            break;
        case 5: // cut short
            b.truncate(pick(b.size()));
            break;
        case 6: { // insert
            QByteArray extra(1 + pick(64), '\0');
            for (char &c : extra)
                c = char(pick(256));
            b.insert(pick(b.size() + 1), extra);
            break;
        }
        case 7: // remove a range
            b.remove(pick(b.size()), 1 + pick(256));
            break;
        case 8: { // copy a range of the file somewhere else
            const qsizetype from = pick(b.size());
            const QByteArray piece = b.mid(from, 1 + pick(512));
            b.insert(pick(b.size() + 1), piece);
            break;
        }
        }
    }

    QByteArray m_base;
    QList<qint64> m_offsets;
    std::mt19937 m_random;
};

struct Outcome {
    bool ok = false;
    QList<qint32> delays;
    QList<bool> audio;
    bool operator==(const Outcome &) const = default;
};

Outcome scanFile(const QString &path)
{
    clsAVIDelay delay;
    Outcome o;
    o.ok = delay.OpenFile(path);
    for (int i = 0; i < delay.StreamCount(); ++i) {
        o.delays.append(delay.StreamDelay(i));
        o.audio.append(delay.StreamIsAudio(i));
    }
    return o;
}

// Walks the file with the bare parser; every item must start further on than
// the one before, so the walk ends within one item per eight bytes.
::testing::AssertionResult walkEnds(const QString &path, qint64 size)
{
    clsRIFFParser parser;
    if (!parser.OpenFile(path))
        return ::testing::AssertionSuccess();
    qint64 previous = -1;
    for (qint64 items = 0; items <= size / 8 + 2; ++items) {
        if (!parser.GetChunk())
            return ::testing::AssertionFailure() << "read error";
        if (parser.ItemKind() == clsRIFFParser::Item::Eof)
            return ::testing::AssertionSuccess();
        const qint64 start = parser.Position() - (parser.ItemKind() == clsRIFFParser::Item::List ? 12 : 8);
        if (start <= previous)
            return ::testing::AssertionFailure() << "item at " << start << " after item at " << previous;
        previous = start;
    }
    return ::testing::AssertionFailure() << "no end after " << size / 8 + 2 << " items";
}

} // namespace

TEST(AviDelayMutation, DamagedCopiesOfARealFile)
{
    const QString base = baseClip();
    ASSERT_FALSE(base.isEmpty());
    const QByteArray original = readBytes(base);
    const Outcome reference = scanFile(base);
    ASSERT_TRUE(reference.ok);
    ASSERT_EQ(reference.delays, (QList<qint32>{clsAVIDelay::kDelayUnknown, 0, 0}));

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("mutant.avi"));
    Mutator mutator(original, itemOffsets(base));
    int accepted = 0, withDelay = 0;
    for (int i = 0; i < kMutants; ++i) {
        const QByteArray mutant = mutator.next();
        ASSERT_TRUE(writeBytes(path, mutant));
        const Outcome first = scanFile(path);
        const Outcome again = scanFile(path);
        ASSERT_EQ(first, again) << "mutant " << i << " gave two answers";
        ASSERT_LE(first.delays.size(), mutant.size() / 8) << "mutant " << i;
        for (qint32 d : first.delays)
            ASSERT_GE(d, clsAVIDelay::kDelayGivenUp) << "mutant " << i;
        if (!mutant.startsWith("RIFF") || mutant.mid(8, 4) != "AVI ") {
            ASSERT_FALSE(first.ok) << "mutant " << i;
        }
        ASSERT_TRUE(walkEnds(path, mutant.size())) << "mutant " << i;
        accepted += first.ok;
        withDelay += first.ok && first.delays.count(0) > 0;
    }
    // The damage must leave enough files readable for the delay rules to run.
    EXPECT_GT(accepted, kMutants / 5);
    EXPECT_GT(withDelay, kMutants / 10);
}

TEST(AviDelayMutation, CutShortCopiesKeepTheDelaysTheyReached)
{
    // A file cut anywhere either fails, or reports the streams it reached with
    // the delays of the whole file or "not yet known" - never other values.
    const QString base = baseClip();
    ASSERT_FALSE(base.isEmpty());
    const QByteArray original = readBytes(base);
    const Outcome whole = scanFile(base);
    ASSERT_TRUE(whole.ok);

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("cut.avi"));
    const qsizetype step = std::max<qsizetype>(1, original.size() / 3000);
    int failed = 0, complete = 0;
    for (qsizetype length = 0; length <= original.size(); length += step) {
        ASSERT_TRUE(writeBytes(path, original.left(length)));
        const Outcome cut = scanFile(path);
        if (!cut.ok) {
            ++failed;
            continue;
        }
        ASSERT_LE(cut.delays.size(), whole.delays.size()) << "cut at " << length;
        for (int s = 0; s < cut.delays.size(); ++s) {
            ASSERT_TRUE(cut.delays[s] == whole.delays[s] || cut.delays[s] == clsAVIDelay::kDelayUnknown)
                << "cut at " << length << ", stream " << s << ": " << cut.delays[s];
            ASSERT_EQ(cut.audio[s], whole.audio[s]);
        }
        complete += cut == whole;
    }
    EXPECT_GT(failed, 0);
    EXPECT_GT(complete, 0);
}
