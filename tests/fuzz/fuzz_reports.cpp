// libFuzzer entry for the text parsers of the probe: ffmpeg's report, mpgtx's
// report and the codec map files, followed by the report text built from
// what was parsed. The input is read as UTF-8, as the tools' output is.

#include "media/ffmpegreport.h"
#include "media/mediatables.h"

#include <QString>

#include <cstddef>
#include <cstdint>

using namespace quorvel;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));

    MediaTables tables;
    tables.audioCodecMap = ParseMapText(text);
    tables.videoCodecMap = tables.audioCodecMap;
    MapCodec(tables.audioCodecMap, text.left(16));

    const ReportParse parsed = ParseFfmpegReport(text, QStringLiteral("/tmp/fuzz Input.avi"), tables);
    BuildReport(parsed.source);

    const MpgtxDetails mpgtx = ParseMpgtxReport(text);
    GetAspectName(mpgtx.aspectRatio);
    SingleText(mpgtx.fps);

    for (const QString &line : text.split(u'\n')) {
        ParseDuration(line);
        SplitStreamFields(line);
        IsUnsupportedAudio(line);
    }
    return 0;
}
