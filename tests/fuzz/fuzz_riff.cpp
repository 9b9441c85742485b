// libFuzzer entry for the RIFF walker and the AVI delay scan. The input is
// served as a real file (an anonymous memory file reached through /proc), so
// the code under test reads it exactly as it reads files on disk.

#include "media/avidelay.h"
#include "media/riffparser.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

using namespace quorvel;

namespace {

int memoryFile()
{
    static const int fd = memfd_create("riff-fuzz", 0);
    if (fd < 0)
        abort();
    return fd;
}

bool serve(const uint8_t *data, size_t size)
{
    const int fd = memoryFile();
    if (ftruncate(fd, 0) != 0)
        return false;
    size_t done = 0;
    while (done < size) {
        const ssize_t n = pwrite(fd, data + done, size - done, off_t(done));
        if (n <= 0)
            return false;
        done += size_t(n);
    }
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (!serve(data, size))
        return 0;
    const QString path = QStringLiteral("/proc/self/fd/%1").arg(memoryFile());

    clsAVIDelay delay;
    delay.OpenFile(path);
    for (int i = 0; i < delay.StreamCount(); ++i) {
        if (delay.StreamDelay(i) < clsAVIDelay::kDelayGivenUp)
            abort();
        delay.StreamIsAudio(i);
    }

    // The bare walk, stepping over every second list: every item must start
    // further on than the one before.
    clsRIFFParser parser;
    if (parser.OpenFile(path)) {
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
