#pragma once
// ffmpeg's libraries inside the process, for the two things the probe asks of
// the ffmpeg tool: the report text (av_dump_format prints the very lines the
// tool prints, so the same parser reads them) and one scaled frame. Saves two
// process starts per file. Safe on several threads: the log capture is per
// thread. The seek bar's preview keeps a reader open instead (below).

#include <QImage>
#include <QString>

#include <atomic>
#include <memory>

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

// One file kept open for frames at many times: the seek bar's preview asks
// again and again while the pointer moves, so opening, probing and setting
// up the decoder are paid once. Frames are key frames only (one decode per
// answer, no decoding up to the exact time). One thread at a time.
class LibavFrameReader {
public:
    LibavFrameReader();
    ~LibavFrameReader();
    LibavFrameReader(const LibavFrameReader &) = delete;
    LibavFrameReader &operator=(const LibavFrameReader &) = delete;

    // Opens `fileName` and its best video stream's decoder; false when the
    // file cannot be read at all. A file without video opens too. Once
    // `cancel` is set, every step of this reader gives up at once.
    bool open(const QString &fileName, int timeoutMs, const std::atomic<bool> *cancel = nullptr);
    bool hasVideo() const;
    // The cover art `width` pixels wide, aspect kept; null when there is none.
    QImage coverArt(int width) const;
    // Goes to the key frame at or before `ms` (from the stream's start) and
    // returns its time, or -1 when none could be read.
    qint64 seekKeyframe(qint64 ms, int timeoutMs);
    // Decodes the key frame the last seek found, `width` pixels wide with
    // the picture's aspect; null when it cannot be decoded.
    QImage decodeKeyframe(int width, int timeoutMs);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace quorvel
