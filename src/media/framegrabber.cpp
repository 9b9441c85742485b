#include "framegrabber.h"

#include "libavreader.h"

#include <QMutexLocker>

#include <algorithm>
#include <iterator>
#include <memory>

namespace quorvel {

FrameGrabber::FrameGrabber(Limits limits, QObject *parent) : QObject(parent), m_limits(limits)
{
    qRegisterMetaType<PreviewFrame>();
    m_worker = std::thread([this] { work(); });
}

FrameGrabber::~FrameGrabber()
{
    m_closing = true;
    m_mailbox.close();
    m_worker.join();
}

void FrameGrabber::request(const QString &file, qint64 ms)
{
    m_mailbox.post({file, ms});
}

void FrameGrabber::cancel()
{
    m_mailbox.clear();
}

PreviewFrame FrameGrabber::nearestCached(const QString &file, qint64 ms) const
{
    PreviewFrame found{file, ms};
    QMutexLocker lock(&m_cacheMutex);
    for (const FileFrames &f : m_files) {
        if (f.file != file)
            continue;
        if (f.still) {
            found.kind = f.still->kind;
            found.image = f.still->image;
            return found;
        }
        // The neighbours of `ms` among the kept key frames; the closer one wins.
        auto after = f.frames.lower_bound(ms);
        auto best = after;
        if (after == f.frames.end() || (after != f.frames.begin() && ms - std::prev(after)->first < after->first - ms))
            best = after == f.frames.begin() ? after : std::prev(after);
        if (best != f.frames.end()) {
            found.kind = PreviewFrame::Frame;
            found.keyframeMs = best->first;
            found.image = best->second;
        }
        break;
    }
    return found;
}

void FrameGrabber::work()
{
    std::unique_ptr<LibavFrameReader> reader;
    while (std::optional<Request> r = m_mailbox.take()) {
        if (!reader || r->file != m_openFile) {
            reader = std::make_unique<LibavFrameReader>();
            m_openFile = r->file;
            const bool opened = reader->open(m_openFile, m_limits.timeoutMs, &m_closing);
            if (!opened || !reader->hasVideo()) {
                // A song shows its cover art at every time; a file that
                // cannot be read shows the time alone.
                PreviewFrame still;
                still.image = opened ? reader->coverArt(m_limits.width) : QImage();
                still.kind = still.image.isNull() ? PreviewFrame::None : PreviewFrame::Cover;
                QMutexLocker lock(&m_cacheMutex);
                filesEntry(m_openFile).still = still;
            }
        }
        if (std::optional<PreviewFrame> f = answer(*r, *reader))
            QMetaObject::invokeMethod(
                this, [this, f = *f] { emit frameReady(f); }, Qt::QueuedConnection);
    }
}

std::optional<PreviewFrame> FrameGrabber::answer(const Request &r, LibavFrameReader &reader)
{
    PreviewFrame f{r.file, r.ms};
    {
        QMutexLocker lock(&m_cacheMutex);
        const FileFrames &entry = filesEntry(r.file);
        if (entry.still) {
            f.kind = entry.still->kind;
            f.image = entry.still->image;
            return f;
        }
    }
    const qint64 key = reader.seekKeyframe(r.ms, m_limits.timeoutMs);
    if (key < 0)
        return f;
    {
        QMutexLocker lock(&m_cacheMutex);
        FileFrames &entry = filesEntry(r.file);
        if (auto kept = entry.frames.find(key); kept != entry.frames.end()) {
            entry.used[key] = ++m_clock;
            f.kind = PreviewFrame::Frame;
            f.keyframeMs = key;
            f.image = kept->second;
            return f;
        }
    }
    // The pointer has moved on: the decode would be for nobody.
    if (m_mailbox.pending())
        return std::nullopt;
    const QImage image = reader.decodeKeyframe(m_limits.width, m_limits.timeoutMs);
    if (image.isNull())
        return f;
    keep(r.file, key, image);
    f.kind = PreviewFrame::Frame;
    f.keyframeMs = key;
    f.image = image;
    return f;
}

FrameGrabber::FileFrames &FrameGrabber::filesEntry(const QString &file)
{
    auto it = std::find_if(m_files.begin(), m_files.end(), [&](const FileFrames &f) { return f.file == file; });
    if (it != m_files.end()) {
        m_files.splice(m_files.begin(), m_files, it);
        return m_files.front();
    }
    m_files.push_front(FileFrames{file, std::nullopt, {}, {}});
    while (int(m_files.size()) > std::max(m_limits.files, 1))
        m_files.pop_back();
    return m_files.front();
}

void FrameGrabber::keep(const QString &file, qint64 keyMs, const QImage &image)
{
    QMutexLocker lock(&m_cacheMutex);
    FileFrames &entry = filesEntry(file);
    entry.frames[keyMs] = image;
    entry.used[keyMs] = ++m_clock;
    while (int(entry.frames.size()) > std::max(m_limits.framesPerFile, 1)) {
        auto oldest = std::min_element(entry.used.begin(), entry.used.end(),
                                       [](const auto &a, const auto &b) { return a.second < b.second; });
        entry.frames.erase(oldest->first);
        entry.used.erase(oldest);
    }
}

} // namespace quorvel
