#pragma once
// The playlist: which files are in it, in what order, with their reports.
// Titles, thumbnails and the current item live in the list the user sees
// (ThumbList); paths and reports are kept here, entry i of each belonging to
// the same file.
//
// Files enter through `LoadThumb` only. Each one is probed first, on worker
// threads so the window keeps painting; several adds run in parallel but
// enter the list and finish in the order they were asked for. What the adds
// of one batch have to say is gathered and said once the batch is through,
// in that order: a hundred refused files make one message, not a hundred.

#include "common/notifier.h"
#include "media/mediaprobe.h"
#include "playlist/thumblist.h"

#include <QObject>
#include <QStringList>
#include <QThreadPool>
#include <deque>
#include <functional>
#include <memory>
#include <vector>

namespace quorvel {

class Playlist : public QObject {
    Q_OBJECT
public:
    Playlist(ThumbList &list, MediaProbe &probe, MessageNotifier &notifier, QObject *parent = nullptr);
    ~Playlist() override;

    // Called to start entry `index` (the item start of the player).
    void setPlayHandler(std::function<void(int index, bool fullScreen)> handler) { m_play = std::move(handler); }
    // Called after every add to rebuild the play order.
    void setOrderHandler(std::function<void()> handler) { m_rebuildOrder = std::move(handler); }
    // Called when an entry is removed (k) or all are (-1), so the play order can follow.
    void setRemoveHandler(std::function<void(int index)> handler) { m_removed = std::move(handler); }

    // The add operation. `done` runs once the file has entered the list or
    // been refused (also when it was a duplicate).
    void LoadThumb(const QString &fileTitle, const QString &fileName, bool fullScreen = false, bool forcePlay = false,
                   std::function<void()> done = {});
    // Adds several files in order; the first one plays when `playFirst`.
    void addFiles(const QStringList &paths, bool playFirst);
    // Appends an entry that needs no probe (a DVD), at once.
    void addEntry(const QString &title, const QImage &picture, const QString &path, const QString &mediaInfo);

    bool IsInPlaylist(const QString &fileName) const { return m_fullPaths.contains(fileName); }
    void removeSelected();
    void removeAll();

    int count() const { return static_cast<int>(m_fullPaths.size()); }
    QString fullPath(int index) const { return m_fullPaths.value(index); }
    QString mediaInfo(int index) const { return m_mediaInfos.value(index); }
    const QStringList &fullPaths() const { return m_fullPaths; }
    ThumbList &list() { return m_list; }
    const ThumbList &list() const { return m_list; }

    // Adds asked for and not yet finished.
    int pendingAdds() const { return static_cast<int>(m_queue.size()); }
    // Blocks until every pending add has finished (tests and shut-down).
    void waitForAdds();

signals:
    // `done` of `total` files of the current batch have been handled.
    void addProgress(int done, int total);
    void entryAdded(int index);
    void changed();

private:
    struct Request;
    struct Message {
        MessageNotifier::Icon icon;
        QString text;
        QString refusedPath; // set for a file that was refused
        QString reason;
    };
    void commitReady();
    void commit(Request &request);
    void say(Message message);
    void sayGathered();

    ThumbList &m_list;
    MediaProbe &m_probe;
    MessageNotifier &m_notifier;
    QStringList m_fullPaths;
    QStringList m_mediaInfos;
    std::function<void(int, bool)> m_play;
    std::function<void()> m_rebuildOrder;
    std::function<void(int)> m_removed;
    std::deque<std::shared_ptr<Request>> m_queue;
    std::vector<Message> m_batchMessages; // said once the batch is through
    int m_batchDone = 0;
    int m_batchTotal = 0;
    bool m_committing = false;
    QThreadPool m_pool;
};

} // namespace quorvel
