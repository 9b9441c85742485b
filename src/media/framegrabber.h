#pragma once
// Small frames of a file for the seek bar's preview, made on a worker thread
// that keeps the file open. The pointer moves faster than frames decode, so
// only the latest request counts: a new one replaces the one still waiting,
// and the worker never works through a backlog. Frames are kept per file
// (the few files used last, a bounded number of frames each) by the time of
// the key frame decoded, so the nearest one can show at once while the
// exact one is on its way.

#include <QImage>
#include <QMetaType>
#include <QMutex>
#include <QObject>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <thread>

namespace quorvel {

class LibavFrameReader;

// What the preview can show for a time of a file.
struct PreviewFrame {
    enum Kind { None, Frame, Cover };
    PreviewFrame() = default;
    PreviewFrame(const QString &forFile, qint64 forMs) : file(forFile), requestedMs(forMs) {}
    QString file;
    qint64 requestedMs = -1; // the time asked for
    qint64 keyframeMs = -1;  // the key frame's time when kind is Frame
    Kind kind = None;        // None: the time is all there is to show
    QImage image;
};

// The one request waiting for the worker: a newer one replaces it.
template <typename T>
class LatestRequest {
public:
    // Returns whether a waiting request was replaced (dropped).
    bool post(T value)
    {
        std::lock_guard lock(m_mutex);
        const bool dropped = m_value.has_value();
        m_value = std::move(value);
        m_wake.notify_one();
        return dropped;
    }
    void clear()
    {
        std::lock_guard lock(m_mutex);
        m_value.reset();
    }
    // Waits for a request; nullopt once close() was called.
    std::optional<T> take()
    {
        std::unique_lock lock(m_mutex);
        m_wake.wait(lock, [this] { return m_closed || m_value.has_value(); });
        if (m_closed)
            return std::nullopt;
        return std::exchange(m_value, std::nullopt);
    }
    bool pending() const
    {
        std::lock_guard lock(m_mutex);
        return m_value.has_value();
    }
    void close()
    {
        std::lock_guard lock(m_mutex);
        m_closed = true;
        m_wake.notify_all();
    }

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::optional<T> m_value;
    bool m_closed = false;
};

class FrameGrabber : public QObject {
    Q_OBJECT
public:
    struct Limits {
        int files = 4;           // files whose frames are kept
        int framesPerFile = 300; // about 17 MB for 16:9 at 160 pixels
        int width = 160;         // of the frames, in pixels
        int timeoutMs = 10000;   // for each open, seek or decode
    };
    explicit FrameGrabber(Limits limits, QObject *parent = nullptr);
    explicit FrameGrabber(QObject *parent = nullptr) : FrameGrabber(Limits{}, parent) {}
    ~FrameGrabber() override;

    // Asks for the frame at `ms` of `file`; frameReady answers. A request
    // the worker has not begun yet is dropped.
    void request(const QString &file, qint64 ms);
    // Drops the waiting request: nobody looks any more.
    void cancel();
    // At once: the kept frame of `file` nearest to `ms` (or its cover art);
    // kind None when nothing is kept yet.
    PreviewFrame nearestCached(const QString &file, qint64 ms) const;

signals:
    // On the thread the grabber lives on, tagged with the request it answers.
    void frameReady(const quorvel::PreviewFrame &frame);

private:
    struct Request {
        QString file;
        qint64 ms = 0;
    };
    struct FileFrames {
        QString file;
        std::optional<PreviewFrame> still; // cover art, or that the file has no picture
        std::map<qint64, QImage> frames;   // by key frame time
        std::map<qint64, quint64> used;    // key frame time -> last use
    };
    void work();
    // What the worker's reader gives for `r`; nullopt when a newer request
    // came in before the decode began.
    std::optional<PreviewFrame> answer(const Request &r, LibavFrameReader &reader);
    // The file's entry, made the most recently used; under m_cacheMutex.
    FileFrames &filesEntry(const QString &file);
    void keep(const QString &file, qint64 keyMs, const QImage &image);

    const Limits m_limits;
    LatestRequest<Request> m_mailbox;
    mutable QMutex m_cacheMutex;
    std::list<FileFrames> m_files; // most recently used first
    quint64 m_clock = 0;
    QString m_openFile; // the worker's
    // Set on destruction: a file on a drive that stopped answering must not
    // hold up the player's end.
    std::atomic<bool> m_closing{false};
    std::thread m_worker;
};

} // namespace quorvel

Q_DECLARE_METATYPE(quorvel::PreviewFrame)
