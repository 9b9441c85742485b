#include "ffmpegprobe.h"

#include "common/geometry.h"
#include "common/logging.h"
#include "common/paths.h"
#include "media/avidelay.h"
#include "media/ffmpegreport.h"
#include "media/libavreader.h"
#include "media/processrunner.h"
#include "media/thumbnail.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <algorithm>
#include <cmath>

namespace quorvel {

namespace {

QString readText(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    // A report is small; a runaway tool's output is cut rather than read whole.
    return QString::fromUtf8(f.read(8 << 20));
}

// Tools read "proto:..." as a protocol: the file is always named by its
// absolute path, marked as a file.
QString toolPathOf(const QString &path)
{
    return QStringLiteral("file:") + QFileInfo(path).absoluteFilePath();
}

} // namespace

QString ProbeTimeoutText(int milliseconds)
{
    return QStringLiteral(
               "Reading the file took longer than %1 seconds; the drive or share it lies on may not be answering.")
        .arg(QString::number(milliseconds / 1000.0, 'g', 3));
}

bool IsMpegFile(const QString &path)
{
    static const QStringList mpeg{QStringLiteral("mpg"), QStringLiteral("vob"), QStringLiteral("mpeg"),
                                  QStringLiteral("m2p"), QStringLiteral("mpv"), QStringLiteral("m1v"),
                                  QStringLiteral("m2v")};
    return mpeg.contains(QFileInfo(path).suffix().toLower());
}

MediaTables LoadMediaTables(const QString &programFolder)
{
    MediaTables t;
    t.audioCodecMap = LoadMapFile(programFolder + QStringLiteral("audiomaps.txt"));
    t.videoCodecMap = LoadMapFile(programFolder + QStringLiteral("videomaps.txt"));
    t.defaultVideoThumb.load(programFolder + QStringLiteral("Video.JPG"));
    t.defaultAudioThumb.load(programFolder + QStringLiteral("Audio.JPG"));
    return t;
}

QSize FfmpegProbe::ThumbnailSize(int width, int height)
{
    const double s = FitScale(width, height, 90, 72);
    int tw = RoundHalfEven(width * s);
    int th = RoundHalfEven(height * s);
    tw += tw % 2;
    th += th % 2;
    return {tw, th};
}

float FfmpegProbe::ThumbnailOffset(float duration)
{
    return duration >= 2 ? duration * 0.1f : 1.0f;
}

ProbeResult FfmpegProbe::probe(const QString &path)
{
    ProbeResult result;
    clsSource source;
    try {
        result.ok = GetVideoInformation(path, source, result);
    } catch (const ProcessError &e) {
        result.ok = false;
        result.error = QString::fromStdString(e.what());
    }
    if (result.ok) {
        for (const StreamEntry &e : source.Streams) {
            if (!e.Image.isNull())
                result.thumb = e.Image;
        }
        result.mediaInfo = BuildReport(source);
    } else if (result.error.isEmpty()) {
        result.error = kUnsupportedFormat;
    }
    return result;
}

bool FfmpegProbe::GetVideoInformation(const QString &fileName, clsSource &source, ProbeResult &result) const
{
    source.reset();
    // A pipe or device would block the reader until someone writes to it;
    // only regular files are read at all.
    const QFileInfo info(fileName);
    if (!info.exists()) {
        result.error = kFileNotFound;
        return false;
    }
    if (!info.isFile()) {
        result.error = kNotAFile;
        return false;
    }
    if (!info.isReadable()) {
        result.error = kFileUnreadable;
        return false;
    }
    QTemporaryDir work; // private work files: parallel probes never meet
    if (!work.isValid()) {
        result.error = QStringLiteral("No room for the probe's work files.");
        return false;
    }
    const QString ffmpeg = ToolPath(QStringLiteral("ffmpeg"));
    const QStringList reportArgs{QStringLiteral("-hide_banner"), QStringLiteral("-i"), toolPathOf(fileName)};
    QString report;
    if (m_engine == ProbeEngine::Libraries) {
        // The command line heads the text as it heads the tool's work file.
        bool timedOut = false;
        report = CommandLineText(ffmpeg, reportArgs) + QStringLiteral("\r\n")
                 + LibavReport(fileName, m_deadlineMs, &timedOut);
        if (timedOut) {
            qCWarning(lcMedia) << "probe deadline passed for" << fileName;
            result.error = ProbeTimeoutText(m_deadlineMs);
            return false;
        }
    } else {
        const QString analyse = work.filePath(QStringLiteral("analyse.txt"));
        RunPiped(ffmpeg, reportArgs, analyse);
        if (QFileInfo(analyse).size() == 0)
            return false;
        report = readText(analyse);
        DeleteIfExists(analyse);
    }
    const ReportParse parsed = ParseFfmpegReport(report, fileName, m_tables);
    result.notices << parsed.notices;
    if (!parsed.ok) {
        result.error = parsed.reason;
        return false;
    }
    source = parsed.source;

    // Video streams that cannot be shown: no size, or a frame rate no screen has.
    source.Streams.removeIf(
        [](const StreamEntry &e) { return e.isVideo() && (e.Width == 0 || e.Height == 0 || e.FPS > 250); });
    source.FileName = fileName;

    clsAVIDelay avi;
    if (avi.OpenFile(fileName)) {
        source.IsAVI = true;
        for (int i = 0; i < avi.StreamCount() && i < source.StreamCount(); ++i) {
            if (avi.StreamIsAudio(i))
                source.Streams[i].Delay = avi.StreamDelay(i);
        }
    }

    if (IsMpegFile(fileName)) {
        const QString mpgtxOut = work.filePath(QStringLiteral("mpgtx.txt"));
        MpgtxDetails d;
        try {
            RunPiped(ToolPath(QStringLiteral("mpgtx")), {QStringLiteral("-i"), QFileInfo(fileName).absoluteFilePath()},
                     mpgtxOut);
            d = ParseMpgtxReport(readText(mpgtxOut));
        } catch (const ProcessError &e) {
            // mpgtx only refines ffmpeg's figures; without it they stand.
            qCWarning(lcMedia) << "mpgtx not run:" << e.what();
        }
        DeleteIfExists(mpgtxOut);
        for (StreamEntry &e : source.Streams) {
            if (!e.isVideo())
                continue;
            if (d.fps != 0)
                e.FPS = d.fps;
            if (d.aspectRatio != 0)
                e.DisplayAR = d.aspectRatio;
            if (d.interlaced)
                e.Interlaced = true;
            break;
        }
        // The video's bit rate: what the file holds per second, less the audio.
        if (source.Duration > 0) {
            const qint64 bytesPerSecond = qRound64(double(QFileInfo(fileName).size()) / source.Duration);
            qint64 kbits = qRound64(bytesPerSecond / 1000.0 * 8);
            for (const StreamEntry &e : source.Streams) {
                if (e.isAudio())
                    kbits -= e.BitRate;
            }
            for (StreamEntry &e : source.Streams) {
                if (e.isVideo()) {
                    e.BitRate = static_cast<qint32>(std::clamp<qint64>(kbits, 0, INT32_MAX));
                    break;
                }
            }
        }
    }

    for (StreamEntry &e : source.Streams) {
        if (!e.isVideo())
            continue;
        e.SourceAR = float(e.Width) / float(e.Height);
        if (e.DisplayAR == 0)
            e.DisplayAR = 1;
        const QSize size = ThumbnailSize(e.Width, e.Height);
        e.Image = m_engine == ProbeEngine::Libraries
                      ? LibavFrame(fileName, size.width(), size.height(), ThumbnailOffset(source.Duration),
                                   m_deadlineMs)
                      : ExtractThumbnail(toolPathOf(fileName), size.width(), size.height(),
                                         ThumbnailOffset(source.Duration), work.filePath(QStringLiteral("img.jpg")));
        if (e.Image.isNull()) {
            result.notices << QStringLiteral("Cannot render thumbnail for ") + fileName
                                  + QStringLiteral(". The video codec may be unsupported.");
            e.Image = m_tables.defaultVideoThumb;
        }
    }
    const bool noVideo = std::none_of(source.Streams.begin(), source.Streams.end(),
                                      [](const StreamEntry &e) { return e.isVideo(); });
    if (source.StreamCount() == 1 && source.Streams[0].isAudio())
        source.Streams[0].Image = m_tables.defaultAudioThumb;
    // Several audio streams and no video: the audio picture still says what it is.
    if (source.StreamCount() > 1 && noVideo)
        source.Streams[0].Image = m_tables.defaultAudioThumb;
    // Sound with cover art: the cover is the file's picture.
    if (source.StreamCount() > 0 && noVideo && parsed.coverSize.width() > 0 && parsed.coverSize.height() > 0) {
        const QSize size = ThumbnailSize(parsed.coverSize.width(), parsed.coverSize.height());
        const QImage cover = m_engine == ProbeEngine::Libraries
                                 ? LibavCoverArt(fileName, size.width(), size.height(), m_deadlineMs)
                                 : ExtractCoverArt(toolPathOf(fileName), size.width(), size.height(),
                                                   work.filePath(QStringLiteral("img.jpg")));
        if (!cover.isNull())
            source.Streams[0].Image = cover;
    }
    source.TimeStamp = QLocale().toString(QFileInfo(fileName).lastModified(), QLocale::ShortFormat);
    return true;
}

} // namespace quorvel
