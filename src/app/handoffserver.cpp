#include "handoffserver.h"

#include "common/logging.h"

#include <QHash>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QThread>
#include <QTimer>

#include <sys/socket.h>
#include <unistd.h>

namespace quorvel {

namespace {

// A sender that stays silent this long loses its connection.
constexpr int kIdleMs = 10000;

bool sameUser(QLocalSocket *socket)
{
#ifdef SO_PEERCRED
    struct ucred cred {};
    socklen_t len = sizeof(cred);
    if (getsockopt(static_cast<int>(socket->socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &cred, &len) != 0)
        return false;
    return cred.uid == getuid();
#else
    Q_UNUSED(socket);
    return true;
#endif
}

} // namespace

// Owns the sockets; every member runs on the server's thread.
class HandoffServer::Worker : public QObject {
public:
    explicit Worker(HandoffServer *owner) : m_owner(owner) {}

    bool adopt(const ListeningEndpoints &e)
    {
        return open(m_command, e.commandFd, true) && open(m_probe, e.probeFd, false);
    }

    void finish(quint64 id)
    {
        const QPointer<QLocalSocket> socket = m_pending.take(id);
        if (socket && socket->state() == QLocalSocket::ConnectedState) {
            socket->write("OK");
            socket->flush();
            socket->disconnectFromServer();
        }
    }

    void closeAll()
    {
        // Senders still waiting see the connection end and start over.
        for (const QPointer<QLocalSocket> &socket : std::as_const(m_pending)) {
            if (socket)
                socket->abort();
        }
        m_command.reset();
        m_probe.reset();
    }

private:
    bool open(std::unique_ptr<QLocalServer> &server, int fd, bool isCommand)
    {
        server = std::make_unique<QLocalServer>();
        server->setMaxPendingConnections(128);
        if (!server->listen(fd)) {
            qCWarning(lcApp) << "cannot serve a hand-off endpoint:" << server->errorString();
            return false;
        }
        QLocalServer *raw = server.get();
        QObject::connect(raw, &QLocalServer::newConnection, this, [this, raw, isCommand] { accept(raw, isCommand); });
        return true;
    }

    void accept(QLocalServer *server, bool isCommand)
    {
        while (QLocalSocket *socket = server->nextPendingConnection()) {
            if (!sameUser(socket)) {
                qCWarning(lcApp) << "refused a hand-off from another user";
                socket->abort();
                socket->deleteLater();
                continue;
            }
            auto *idle = new QTimer(socket);
            idle->setSingleShot(true);
            QObject::connect(idle, &QTimer::timeout, socket, [socket] { socket->abort(); });
            idle->start(kIdleMs);
            QObject::connect(socket, &QLocalSocket::readyRead, this,
                             [this, socket, isCommand] { readFrom(socket, isCommand); });
            QObject::connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
                m_buffers.remove(socket);
                socket->deleteLater();
            });
            if (socket->bytesAvailable() > 0)
                readFrom(socket, isCommand);
        }
    }

    void readFrom(QLocalSocket *socket, bool isCommand)
    {
        QByteArray &buffer = m_buffers[socket];
        buffer += socket->readAll();
        QString text;
        const int result = handoff::unframe(buffer, &text);
        if (result == 0)
            return;
        m_buffers.remove(socket);
        QObject::disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
        if (result < 0) {
            qCWarning(lcApp) << "dropped a malformed hand-off message";
            socket->abort();
            return;
        }
        if (auto *idle = socket->findChild<QTimer *>())
            idle->stop();
        socket->write("AC");
        socket->flush();
        HandoffServer *owner = m_owner;
        if (!isCommand || text.isEmpty()) {
            socket->write("OK");
            socket->flush();
            socket->disconnectFromServer();
            if (text == QLatin1String("Hello"))
                QMetaObject::invokeMethod(
                    owner, [owner] { emit owner->helloReceived(); }, Qt::QueuedConnection);
            return;
        }
        const quint64 id = ++m_lastId;
        m_pending.insert(id, socket);
        QMetaObject::invokeMethod(
            owner, [owner, id, text] { owner->deliver(id, text); }, Qt::QueuedConnection);
    }

    HandoffServer *m_owner;
    std::unique_ptr<QLocalServer> m_command;
    std::unique_ptr<QLocalServer> m_probe;
    QHash<QLocalSocket *, QByteArray> m_buffers;
    QHash<quint64, QPointer<QLocalSocket>> m_pending;
    quint64 m_lastId = 0;
};

HandoffServer::HandoffServer(QObject *parent) : QObject(parent) {}

HandoffServer::~HandoffServer()
{
    if (!m_thread)
        return;
    QMetaObject::invokeMethod(
        m_worker, [w = m_worker] { w->closeAll(); }, Qt::BlockingQueuedConnection);
    m_thread->quit();
    m_thread->wait();
    delete m_worker;
}

bool HandoffServer::listen()
{
    ListeningEndpoints e;
    return handoff::listen(RuntimeFolder(), &e) && adopt(e);
}

bool HandoffServer::adopt(const ListeningEndpoints &endpoints)
{
    if (m_thread || !endpoints.isValid())
        return false;
    m_thread = std::make_unique<QThread>();
    m_thread->setObjectName(QStringLiteral("hand-off"));
    m_worker = new Worker(this);
    m_worker->moveToThread(m_thread.get());
    m_thread->start();
    bool ok = false;
    QMetaObject::invokeMethod(
        m_worker, [&] { ok = m_worker->adopt(endpoints); }, Qt::BlockingQueuedConnection);
    m_endpoints.command = endpoints.command;
    m_endpoints.probe = endpoints.probe;
    return ok;
}

InstanceRegistry::Endpoints HandoffServer::endpoints() const
{
    return m_endpoints;
}

void HandoffServer::setCommandHandler(CommandHandler handler)
{
    m_onCommand = std::move(handler);
    handleNext();
}

void HandoffServer::deliver(quint64 id, const QString &text)
{
    m_held.emplace_back(id, text);
    handleNext();
}

void HandoffServer::handleNext()
{
    // The handler queues each command's files behind the ones before, so
    // the files of two senders never interleave.
    while (m_onCommand && !m_held.empty()) {
        const auto [id, text] = m_held.front();
        m_held.pop_front();
        QPointer<HandoffServer> self(this);
        m_onCommand(text, [self, id] {
            if (self)
                QMetaObject::invokeMethod(
                    self->m_worker, [w = self->m_worker, id] { w->finish(id); }, Qt::QueuedConnection);
        });
    }
}

} // namespace quorvel
