#include "instance.h"

#include "common/logging.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>
#include <QTimer>
#include <QtEndian>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <unistd.h>

namespace quorvel {

namespace {

const QByteArray kMagic = QByteArrayLiteral("QVL1");
constexpr int kHeaderBytes = 8;
const QByteArray kAnswer = QByteArrayLiteral("OK");
// A sender that stays silent this long loses its connection.
constexpr int kIdleMs = 10000;

QString runtimeFolder()
{
    QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (dir.isEmpty())
        dir = QDir::tempPath();
    return dir;
}

QSettings instanceSettings()
{
    return QSettings(QStringLiteral("Brenlow Quorvel"), QStringLiteral("Quorvel"));
}

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

InstanceRegistry::Endpoints InstanceRegistry::read()
{
    QSettings s = instanceSettings();
    s.beginGroup(QStringLiteral("Setting"));
    Endpoints e;
    e.command = s.value(QLatin1String(kCommandKey), QStringLiteral("-1")).toString();
    e.probe = s.value(QLatin1String(kProbeKey), QString()).toString();
    return e;
}

void InstanceRegistry::write(const Endpoints &endpoints)
{
    QSettings s = instanceSettings();
    s.beginGroup(QStringLiteral("Setting"));
    s.setValue(QLatin1String(kCommandKey), endpoints.command);
    s.setValue(QLatin1String(kProbeKey), endpoints.probe);
    s.endGroup();
    s.sync();
}

RunningMarker::RunningMarker()
{
    const QString path = runtimeFolder() + QStringLiteral("/BrenlowQuorvel.lock");
    m_fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_fd >= 0)
        ::flock(m_fd, LOCK_SH | LOCK_NB);
}

RunningMarker::~RunningMarker()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

namespace handoff {

QByteArray frame(const QString &text)
{
    const QByteArray payload = text.toUtf8();
    QByteArray out = kMagic;
    char length[4];
    qToBigEndian<quint32>(static_cast<quint32>(payload.size()), length);
    out.append(length, 4);
    out += payload;
    return out;
}

int unframe(const QByteArray &buffer, QString *text)
{
    const qsizetype known = qMin<qsizetype>(buffer.size(), kMagic.size());
    if (buffer.left(known) != kMagic.left(known))
        return -1;
    if (buffer.size() < kHeaderBytes)
        return 0;
    const quint32 length = qFromBigEndian<quint32>(buffer.constData() + 4);
    if (length > static_cast<quint32>(kMaxMessageBytes))
        return -1;
    if (buffer.size() < kHeaderBytes + static_cast<qsizetype>(length))
        return 0;
    if (buffer.size() > kHeaderBytes + static_cast<qsizetype>(length))
        return -1; // one message per connection
    const QByteArray payload = buffer.mid(kHeaderBytes, length);
    QString decoded = QString::fromUtf8(payload);
    // Text that does not survive the round trip was not written by us.
    if (decoded.toUtf8() != payload || decoded.contains(QChar(0)))
        return -1;
    *text = decoded;
    return 1;
}

bool endpointAlive(const QString &name)
{
    if (name.isEmpty())
        return false;
    QLocalSocket socket;
    socket.connectToServer(name);
    const bool alive = socket.waitForConnected(3000);
    socket.abort();
    return alive;
}

bool send(const QString &name, const QString &text, int timeoutMs)
{
    if (name.isEmpty())
        return false;
    QLocalSocket socket;
    // A busy receiver may have a full backlog for a moment; try a few times.
    for (int attempt = 0; attempt < 20; ++attempt) {
        socket.connectToServer(name);
        if (socket.waitForConnected(3000))
            break;
        if (socket.error() == QLocalSocket::ServerNotFoundError)
            return false;
        socket.abort();
        QThread::msleep(50);
    }
    if (socket.state() != QLocalSocket::ConnectedState)
        return false;
    socket.write(frame(text));
    if (!socket.waitForBytesWritten(5000))
        return false;
    QByteArray answer;
    QElapsedTimer clock;
    clock.start();
    while (answer.size() < kAnswer.size() && clock.elapsed() < timeoutMs) {
        if (!socket.waitForReadyRead(static_cast<int>(timeoutMs - clock.elapsed())))
            break;
        answer += socket.readAll();
    }
    return answer.startsWith(kAnswer);
}

} // namespace handoff

HandoffServer::HandoffServer(QObject *parent) : QObject(parent) {}

HandoffServer::~HandoffServer()
{
    for (QLocalServer *server : {m_command.get(), m_probe.get()}) {
        if (server)
            server->close();
    }
}

bool HandoffServer::listen()
{
    const QString base = runtimeFolder() + QStringLiteral("/quorvel-%1-%2")
                                                .arg(getuid())
                                                .arg(QCoreApplication::applicationPid());
    auto open = [this](std::unique_ptr<QLocalServer> &server, const QString &name, bool isCommand) {
        server = std::make_unique<QLocalServer>();
        server->setSocketOptions(QLocalServer::UserAccessOption);
        server->setMaxPendingConnections(128);
        QLocalServer::removeServer(name); // a leftover of a killed process with the same id
        if (!server->listen(name)) {
            qCWarning(lcApp) << "cannot listen on" << name << server->errorString();
            return false;
        }
        QLocalServer *raw = server.get();
        connect(raw, &QLocalServer::newConnection, this, [this, raw, isCommand] { accept(raw, isCommand); });
        return true;
    };
    return open(m_command, base + QStringLiteral("-cmd"), true)
           && open(m_probe, base + QStringLiteral("-chk"), false);
}

InstanceRegistry::Endpoints HandoffServer::endpoints() const
{
    InstanceRegistry::Endpoints e;
    e.command = m_command ? m_command->fullServerName() : QString();
    e.probe = m_probe ? m_probe->fullServerName() : QString();
    return e;
}

void HandoffServer::accept(QLocalServer *server, bool isCommand)
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
        connect(idle, &QTimer::timeout, socket, [socket] { socket->abort(); });
        idle->start(kIdleMs);
        connect(socket, &QLocalSocket::readyRead, this, [this, socket, isCommand] { readFrom(socket, isCommand); });
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            m_buffers.remove(socket);
            socket->deleteLater();
        });
        if (socket->bytesAvailable() > 0)
            readFrom(socket, isCommand);
    }
}

void HandoffServer::readFrom(QLocalSocket *socket, bool isCommand)
{
    QByteArray &buffer = m_buffers[socket];
    buffer += socket->readAll();
    QString text;
    const int result = handoff::unframe(buffer, &text);
    if (result == 0)
        return;
    m_buffers.remove(socket);
    disconnect(socket, &QLocalSocket::readyRead, this, nullptr);
    if (result < 0) {
        qCWarning(lcApp) << "dropped a malformed hand-off message";
        socket->abort();
        return;
    }
    if (auto *idle = socket->findChild<QTimer *>())
        idle->stop();
    QPointer<QLocalSocket> guard(socket);
    auto answer = [guard] {
        if (guard && guard->state() == QLocalSocket::ConnectedState) {
            guard->write(kAnswer);
            guard->flush();
            guard->disconnectFromServer();
        }
    };
    if (!isCommand) {
        if (text == QLatin1String("Hello"))
            emit helloReceived();
        answer();
        return;
    }
    if (m_onCommand && !text.isEmpty())
        m_onCommand(text, answer);
    else
        answer();
}

} // namespace quorvel
