#pragma once
// ffmpeg's libraries inside the process, for the two things the probe asks of
// the ffmpeg tool: the report text (av_dump_format prints the very lines the
// tool prints, so the same parser reads them) and one scaled frame. Saves two
// process starts per file. Safe on several threads: the log capture is per
// thread.

#include <QImage>
#include <QString>

namespace quorvel {

// Every call gives up once `timeoutMs` have passed (a file on a drive or
// share that stops answering); `*timedOut` then says so.

// The report of `fileName` as the tool would print it after its command line:
// the "Input #0 ..." block, or the error line when the file cannot be opened.
QString LibavReport(const QString &fileName, int timeoutMs, bool *timedOut = nullptr);

// One frame at `offset` seconds scaled to width x height; null when no frame
// could be decoded.
QImage LibavFrame(const QString &fileName, int width, int height, float offset, int timeoutMs);

// The first attached picture (cover art) scaled to width x height; null when
// the file has none or it cannot be read.
QImage LibavCoverArt(const QString &fileName, int width, int height, int timeoutMs);

} // namespace quorvel
