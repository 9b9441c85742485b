#include "reportcommand.h"

#include "common/paths.h"
#include "media/ffmpegprobe.h"

#include <cstdio>

namespace quorvel {

int RunReportCommand(const QString &file)
{
    FfmpegProbe probe(LoadMediaTables(ProgramFolder()));
    const ProbeResult r = probe.probe(file);
    for (const QString &notice : r.notices)
        std::fprintf(stderr, "%s\n", notice.toLocal8Bit().constData());
    if (!r.ok) {
        std::fprintf(stderr, "Cannot open file <%s>\n%s\n", file.toLocal8Bit().constData(),
                     r.error.toLocal8Bit().constData());
        return 1;
    }
    std::fprintf(stdout, "%s\n", r.mediaInfo.toUtf8().constData());
    std::fflush(stdout);
    return 0;
}

} // namespace quorvel
