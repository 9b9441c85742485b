#pragma once
// The probe every file goes through before it enters the playlist: ffmpeg's
// report parsed into the media record, mpgtx's details for MPEG files, the
// AVI audio delays, a thumbnail per video stream and the report text.
// Safe on several worker threads at once: each probe has its own work files.

#include "media/mediaprobe.h"
#include "media/mediasource.h"
#include "media/mediatables.h"

namespace quorvel {

// Where the report and the frame come from: the ffmpeg tool (two process
// starts per file) or ffmpeg's libraries inside the process (same report text,
// same parser, a decoded frame). mpgtx stays a tool either way. The libraries
// are the default: adding many files takes a small part of the time.
enum class ProbeEngine { Tools, Libraries };

class FfmpegProbe final : public MediaProbe {
public:
    explicit FfmpegProbe(MediaTables tables, ProbeEngine engine = ProbeEngine::Libraries)
        : m_tables(std::move(tables)), m_engine(engine)
    {
    }
    ProbeResult probe(const QString &path) override;

    // How long the libraries may spend on one file before it is refused:
    // a file on a drive or share that stops answering must not hold up the
    // files added after it.
    void setDeadline(int milliseconds) { m_deadlineMs = milliseconds; }

    // `GetVideoInformation`: fills `source`; on refusal `result.error` says why.
    bool GetVideoInformation(const QString &fileName, clsSource &source, ProbeResult &result) const;

    // The thumbnail size of a video: fitted into 90 x 72, each side made even.
    static QSize ThumbnailSize(int width, int height);
    // Where the frame is taken: a tenth into the file, or at one second for short ones.
    static float ThumbnailOffset(float duration);

private:
    MediaTables m_tables;
    ProbeEngine m_engine;
    int m_deadlineMs = 10000;
};

// Why a file is refused before any probing.
inline const QString kFileNotFound = QStringLiteral("The file was not found.");
inline const QString kNotAFile = QStringLiteral("It is a folder, pipe or device, not a media file.");
inline const QString kFileUnreadable = QStringLiteral("The file cannot be read (no permission).");
// Why a file that the libraries could not finish in time is refused.
QString ProbeTimeoutText(int milliseconds);

// The extensions probed a second time with mpgtx.
bool IsMpegFile(const QString &path);

// Loads the codec maps and default pictures from the program folder.
MediaTables LoadMediaTables(const QString &programFolder);

} // namespace quorvel
