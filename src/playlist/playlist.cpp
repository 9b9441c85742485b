#include "playlist.h"

#include "common/logging.h"
#include "common/paths.h"
#include "common/tracelines.h"

#include <QCoreApplication>
#include <QFutureWatcher>
#include <QtConcurrent/QtConcurrentRun>

namespace quorvel {

struct Playlist::Request {
    QString title;
    QString path;
    bool fullScreen = false;
    bool forcePlay = false;
    bool duplicate = false;
    bool ready = false;
    ProbeResult result;
    std::function<void()> done;
};

Playlist::Playlist(ThumbList &list, MediaProbe &probe, MessageNotifier &notifier, QObject *parent)
    : QObject(parent), m_list(list), m_probe(probe), m_notifier(notifier)
{
    // Probes spend most of their time waiting for the tools; two at a time
    // keep both cores busy without starving the window.
    m_pool.setMaxThreadCount(2);
}

Playlist::~Playlist()
{
    m_queue.clear();
    m_pool.waitForDone();
}

void Playlist::LoadThumb(const QString &fileTitle, const QString &fileName, bool fullScreen, bool forcePlay,
                         std::function<void()> done)
{
    auto request = std::make_shared<Request>();
    request->title = fileTitle;
    request->path = fileName;
    request->fullScreen = fullScreen;
    request->forcePlay = forcePlay;
    request->done = std::move(done);
    if (m_queue.empty()) {
        m_batchDone = 0;
        m_batchTotal = 0;
    }
    ++m_batchTotal;
    m_queue.push_back(request);
    emit addProgress(m_batchDone, m_batchTotal);

    if (IsInPlaylist(fileName)) {
        // Known already: no need to probe, the commit reports the duplicate.
        request->duplicate = true;
        request->ready = true;
        QMetaObject::invokeMethod(this, &Playlist::commitReady, Qt::QueuedConnection);
        return;
    }
    auto *watcher = new QFutureWatcher<ProbeResult>(this);
    std::weak_ptr<Request> weak = request;
    connect(watcher, &QFutureWatcher<ProbeResult>::finished, this, [this, watcher, weak] {
        if (auto r = weak.lock()) {
            r->result = watcher->result();
            r->ready = true;
        }
        watcher->deleteLater();
        commitReady();
    });
    MediaProbe *probe = &m_probe;
    watcher->setFuture(QtConcurrent::run(&m_pool, [probe, fileName] {
        try {
            return probe->probe(fileName);
        } catch (const std::exception &e) {
            ProbeResult failed;
            failed.error = QString::fromUtf8(e.what());
            return failed;
        }
    }));
}

void Playlist::addFiles(const QStringList &paths, bool playFirst)
{
    bool first = true;
    for (const QString &path : paths) {
        LoadThumb(GetFileTitle(path), path, false, playFirst && first);
        first = false;
    }
}

void Playlist::addEntry(const QString &title, const QImage &picture, const QString &path, const QString &mediaInfo)
{
    m_list.addItem(title, picture);
    m_fullPaths << path;
    m_mediaInfos << mediaInfo;
    qCDebug(lcPlaylist) << trace::kAdded << path << trace::kAsEntry << m_fullPaths.size() - 1 << "info" << mediaInfo;
    emit entryAdded(count() - 1);
    if (m_rebuildOrder)
        m_rebuildOrder();
    emit changed();
}

void Playlist::commitReady()
{
    // A message box or a play started from a commit may run the event loop;
    // the outer call keeps going, so commits never interleave.
    if (m_committing)
        return;
    m_committing = true;
    while (!m_queue.empty() && m_queue.front()->ready) {
        std::shared_ptr<Request> request = m_queue.front();
        m_queue.pop_front();
        commit(*request);
        ++m_batchDone;
        emit addProgress(m_batchDone, m_batchTotal);
        if (request->done)
            request->done();
    }
    m_committing = false;
    if (m_queue.empty())
        sayGathered();
}

void Playlist::say(Message message)
{
    m_batchMessages.push_back(std::move(message));
}

void Playlist::sayGathered()
{
    std::vector<Message> messages;
    messages.swap(m_batchMessages); // the notifier may run the event loop and start a new batch
    if (messages.empty())
        return;
    if (messages.size() == 1) {
        m_notifier.notify(messages.front().icon, messages.front().text);
        return;
    }
    auto icon = MessageNotifier::Icon::Information;
    QStringList refused;
    QStringList others;
    for (const Message &m : messages) {
        if (m.icon == MessageNotifier::Icon::Exclamation)
            icon = MessageNotifier::Icon::Exclamation;
        if (m.refusedPath.isEmpty())
            others << m.text;
        else
            refused << m.refusedPath + QStringLiteral("\r\n    ") + m.reason;
    }
    QStringList parts;
    if (!refused.isEmpty()) {
        parts << (refused.size() == 1 ? QStringLiteral("1 file could not be added:")
                                      : QStringLiteral("%1 files could not be added:").arg(refused.size()))
              << refused;
        if (!others.isEmpty())
            parts << QString();
    }
    parts << others;
    m_notifier.notify(icon, parts.join(QStringLiteral("\r\n")));
}

void Playlist::commit(Request &request)
{
    const QString quote(u'"');
    if (request.duplicate || IsInPlaylist(request.path)) {
        say({MessageNotifier::Icon::Information,
             quote + request.title + quote + QStringLiteral(" is already in your playlist"),
             {},
             {}});
    } else {
        for (const QString &notice : std::as_const(request.result.notices))
            say({MessageNotifier::Icon::Exclamation, notice, {}, {}});
        if (!request.result.ok) {
            say({MessageNotifier::Icon::Exclamation,
                 QStringLiteral("Cannot open file <") + request.path + QStringLiteral(">\r\n") + request.result.error,
                 request.path, request.result.error});
            return;
        }
        m_list.addItem(request.title, request.result.thumb);
        m_fullPaths << request.path;
        m_mediaInfos << request.result.mediaInfo;
        qCDebug(lcPlaylist) << trace::kAdded << request.path << trace::kAsEntry << m_fullPaths.size() - 1;
        emit entryAdded(count() - 1);
    }
    if (request.forcePlay) {
        // Also after a duplicate: whatever entry is last gets played.
        m_list.setSelectedItem(count() - 1);
        if (m_play)
            m_play(count() - 1, request.fullScreen);
    }
    if (m_rebuildOrder)
        m_rebuildOrder();
    emit changed();
}

void Playlist::removeSelected()
{
    const int k = m_list.selectedItem();
    if (k < 0 || k >= m_list.count() || k >= count())
        return;
    m_fullPaths.removeAt(k);
    if (m_removed)
        m_removed(k);
    m_list.removeItem(k);
    m_mediaInfos.removeAt(k);
    emit changed();
}

void Playlist::removeAll()
{
    m_list.clear();
    m_fullPaths.clear();
    if (m_removed)
        m_removed(-1);
    m_mediaInfos.clear();
    emit changed();
}

void Playlist::waitForAdds()
{
    while (!m_queue.empty()) {
        m_pool.waitForDone();
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
}

} // namespace quorvel
