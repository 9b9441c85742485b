// libFuzzer entry for the RIFF walker and the AVI delay scan. The input is
// served as a real file (an anonymous memory file reached through /proc), so
// the code under test reads it exactly as it reads files on disk.
//
// Besides libFuzzer's own mutations, half of the new inputs are damaged
// copies aimed at the item headers (boundary values in size fields, other
// ids, cuts, removed and copied ranges), the fields the parser trusts most.
// Every input must give the same answer twice, never more streams than it
// has bytes for, and a copy cut short must report only the delays of the
// whole file or "not yet known".

#include "media/avidelay.h"
#include "media/riffparser.h"

#include <QString>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <random>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

using namespace quorvel;

extern "C" size_t LLVMFuzzerMutate(uint8_t *data, size_t size, size_t maxSize);

namespace {

// Serves the bytes as the memory file; returns its path, empty on failure.
QString serve(const uint8_t *data, size_t size)
{
    static const int fd = memfd_create("riff-fuzz", 0);
    if (fd < 0 || ftruncate(fd, 0) != 0 || pwrite(fd, data, size, 0) != ssize_t(size))
        abort();
    return QStringLiteral("/proc/self/fd/%1").arg(fd);
}

struct Outcome {
    bool ok = false;
    std::vector<qint32> delays;
    std::vector<bool> audio;
    bool operator==(const Outcome &) const = default;
};

Outcome scan(const uint8_t *data, size_t size)
{
    Outcome o;
    clsAVIDelay delay;
    o.ok = delay.OpenFile(serve(data, size));
    for (int i = 0; i < delay.StreamCount(); ++i) {
        o.delays.push_back(delay.StreamDelay(i));
        o.audio.push_back(delay.StreamIsAudio(i));
    }
    return o;
}

// One damage of the kinds a broken download or a bad muxer leaves, at the
// header of an item read straight from the bytes (lists are entered).
size_t damage(uint8_t *data, size_t size, size_t maxSize, std::mt19937 &random)
{
    static const quint32 sizes[] = {0, 1, 2, 3, 4, 7, 8, 0xFF, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFF0, 0xFFFFFFFF};
    static const char *const ids[] = {"LIST", "RIFF", "strh", "strf", "00wb", "01wb", "99wb", "movi", "auds", "idx1"};
    const auto pick = [&random](size_t n) { return n ? size_t(random() % n) : 0; };
    std::vector<size_t> offsets{0};
    for (size_t at = 12; at + 8 <= size && offsets.size() < 4096;) {
        offsets.push_back(at);
        const quint32 length = qFromLittleEndian<quint32>(data + at + 4);
        at += memcmp(data + at, "LIST", 4) == 0 ? 12 : 8 + size_t(length) + (length & 1);
    }
    const size_t header = offsets[pick(offsets.size())];
    const size_t from = pick(size), n = std::min({size - from, 1 + pick(512), maxSize - size});
    std::vector<uint8_t> bytes(data, data + size);
    switch (pick(5)) {
    case 0: // a boundary value, or one off by a little, into a size field
        if (header + 8 <= size)
            qToLittleEndian<quint32>(pick(2) ? sizes[pick(std::size(sizes))]
                                             : qFromLittleEndian<quint32>(data + header + 4) + quint32(pick(9)) - 4,
                                     data + header + 4);
        return size;
    case 1: // another id
        if (header + 4 <= size)
            memcpy(data + header, ids[pick(std::size(ids))], 4);
        return size;
    case 2: // cut short
        return pick(size);
    case 3: // remove a range
        bytes.erase(bytes.begin() + from, bytes.begin() + from + n);
        break;
    default: // copy a range of the file somewhere else
        bytes.insert(bytes.begin() + pick(size + 1), data + from, data + from + n);
    }
    std::copy(bytes.begin(), bytes.end(), data);
    return bytes.size();
}

} // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t *data, size_t size, size_t maxSize, unsigned int seed)
{
    std::mt19937 random(seed);
    if (random() % 2)
        return LLVMFuzzerMutate(data, size, maxSize);
    for (int rounds = 1 + int(random() % 3); rounds > 0; --rounds)
        size = damage(data, size, maxSize, random);
    return size;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const Outcome first = scan(data, size);
    if (!(scan(data, size) == first) || first.delays.size() > size / 8
        || std::ranges::any_of(first.delays, [](qint32 d) { return d < clsAVIDelay::kDelayGivenUp; }))
        abort(); // two answers for one file, streams from nothing, or a delay below "given up"
    if (first.ok && (size < 12 || memcmp(data, "RIFF", 4) != 0 || memcmp(data + 8, "AVI ", 4) != 0))
        abort(); // only RIFF "AVI " files are read
    if (first.ok && size > 0) {
        const Outcome cut = scan(data, size - 1 - data[size / 2] * (size - 1) / 255);
        for (size_t s = 0; cut.ok && s < cut.delays.size(); ++s) {
            if (s >= first.delays.size() || cut.audio[s] != first.audio[s]
                || (cut.delays[s] != first.delays[s] && cut.delays[s] != clsAVIDelay::kDelayUnknown))
                abort();
        }
    }
    // The bare walk, stepping over every second list: every item must start
    // further on than the one before.
    clsRIFFParser parser;
    if (parser.OpenFile(serve(data, size))) {
        qint64 previous = -1;
        bool skip = false;
        while (parser.GetChunk() && parser.ItemKind() != clsRIFFParser::Item::Eof) {
            const qint64 start = parser.Position() - (parser.ItemKind() == clsRIFFParser::Item::List ? 12 : 8);
            if (start <= previous)
                abort();
            previous = start;
            if (parser.ItemKind() == clsRIFFParser::Item::List && (skip = !skip))
                parser.SkipChunk();
        }
    }
    return 0;
}
