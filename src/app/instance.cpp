#include "instance.h"

#include "common/appname.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRegularExpression>
#include <QSettings>
#include <QStandardPaths>
#include <QThread>
#include <QtEndian>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace quorvel {

namespace {

const QByteArray kMagic = QByteArrayLiteral("QVL1");
constexpr int kHeaderBytes = 8;

QSettings instanceSettings()
{
    return QSettings(kOrganizationName, QStringLiteral("Quorvel"));
}

bool toAddress(const QString &name, sockaddr_un *address)
{
    const QByteArray path = QFile::encodeName(name);
    *address = {};
    address->sun_family = AF_UNIX;
    if (path.isEmpty() || path.size() >= static_cast<qsizetype>(sizeof(address->sun_path)))
        return false;
    memcpy(address->sun_path, path.constData(), static_cast<size_t>(path.size()));
    return true;
}

int listenOn(const QString &name)
{
    sockaddr_un address;
    if (!toAddress(name, &address))
        return -1;
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0)
        return -1;
    ::unlink(address.sun_path); // a leftover of a killed process with the same id
    // Only this user may connect; the receiver checks the peer as well.
    const mode_t old = ::umask(0077);
    const bool bound = ::bind(fd, reinterpret_cast<sockaddr *>(&address), sizeof(address)) == 0;
    ::umask(old);
    if (!bound || ::listen(fd, 128) != 0) {
        ::close(fd);
        return -1;
    }
    return fd;
}

// Waits until `fd` is ready for `events` or `deadline` has passed.
bool waitFor(int fd, short events, const QElapsedTimer &clock, int deadlineMs)
{
    for (;;) {
        const qint64 left = deadlineMs - clock.elapsed();
        if (left <= 0)
            return false;
        pollfd p{fd, events, 0};
        const int n = ::poll(&p, 1, static_cast<int>(left));
        if (n > 0)
            return true;
        if (n < 0 && errno != EINTR)
            return false;
    }
}

class Fd {
public:
    explicit Fd(int fd) : m_fd(fd) {}
    ~Fd()
    {
        if (m_fd >= 0)
            ::close(m_fd);
    }
    int get() const { return m_fd; }

private:
    int m_fd;
};

} // namespace

QString RuntimeFolder()
{
    QString dir = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    if (dir.isEmpty())
        dir = QDir::tempPath();
    return dir;
}

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
    const QString path = RuntimeFolder() + QStringLiteral("/BrenlowQuorvel.lock");
    m_fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_fd >= 0)
        ::flock(m_fd, LOCK_SH | LOCK_NB);
}

RunningMarker::~RunningMarker()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

StartupLock::StartupLock(QString path) : m_path(std::move(path)) {}

StartupLock::~StartupLock()
{
    release();
    if (m_fd >= 0)
        ::close(m_fd);
}

bool StartupLock::acquire(int timeoutMs)
{
    if (m_held)
        return true;
    if (m_fd < 0)
        m_fd = ::open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (m_fd < 0)
        return false;
    // flock has no time limit of its own; the holder keeps it for moments
    // only, so asking often costs little.
    QElapsedTimer clock;
    clock.start();
    while (::flock(m_fd, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || clock.elapsed() > timeoutMs)
            return false;
        QThread::msleep(5);
    }
    m_held = true;
    char text[32] = {};
    const ssize_t n = ::pread(m_fd, text, sizeof(text) - 1, 0);
    m_turn = (n > 0 ? QByteArray(text, static_cast<qsizetype>(n)).trimmed().toULongLong() : 0) + 1;
    const QByteArray next = QByteArray::number(m_turn) + '\n';
    if (::ftruncate(m_fd, 0) != 0 || ::pwrite(m_fd, next.constData(), static_cast<size_t>(next.size()), 0) < 0)
        m_turn = 0; // the count is for traces only
    return true;
}

void StartupLock::release()
{
    if (m_held && m_fd >= 0)
        ::flock(m_fd, LOCK_UN);
    m_held = false;
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

bool listen(const QString &folder, ListeningEndpoints *endpoints)
{
    static int serial = 0; // several receivers in one process (tests)
    const QString base = folder + QStringLiteral("/quorvel-%1-%2").arg(getuid()).arg(getpid())
                         + (serial++ ? QStringLiteral("-%1").arg(serial) : QString());
    ListeningEndpoints e;
    e.command = base + QStringLiteral("-cmd");
    e.probe = base + QStringLiteral("-chk");
    e.commandFd = listenOn(e.command);
    e.probeFd = e.commandFd >= 0 ? listenOn(e.probe) : -1;
    if (!e.isValid()) {
        if (e.commandFd >= 0)
            ::close(e.commandFd);
        return false;
    }
    *endpoints = e;
    return true;
}

qint64 ownerOf(const QString &endpoint)
{
    static const QRegularExpression re(QStringLiteral("/quorvel-\\d+-(\\d+)(-\\d+)?-(cmd|chk)$"));
    const QRegularExpressionMatch m = re.match(endpoint);
    return m.hasMatch() ? m.captured(1).toLongLong() : 0;
}

SendResult send(const QString &name, const QString &text, const SendTimes &times, const std::function<void()> &received)
{
    sockaddr_un address;
    if (!toAddress(name, &address))
        return SendResult::NoInstance;
    Fd socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (socket.get() < 0)
        return SendResult::NoInstance;
    QElapsedTimer clock;
    clock.start();
    // A full backlog (a burst of starts, or a hung receiver) answers EAGAIN:
    // try again until the receipt time is up.
    while (::connect(socket.get(), reinterpret_cast<sockaddr *>(&address), sizeof(address)) != 0) {
        if (errno == EAGAIN || errno == EINTR) {
            if (clock.elapsed() > times.receiptMs)
                return SendResult::NoAnswer;
            QThread::msleep(10);
            continue;
        }
        if (errno == EINPROGRESS) {
            if (!waitFor(socket.get(), POLLOUT, clock, times.receiptMs))
                return SendResult::NoAnswer;
            break;
        }
        return SendResult::NoInstance; // no socket file, or nobody listens on it
    }

    const QByteArray data = frame(text);
    qsizetype written = 0;
    while (written < data.size()) {
        if (!waitFor(socket.get(), POLLOUT, clock, times.receiptMs))
            return SendResult::NoAnswer;
        const ssize_t n = ::send(socket.get(), data.constData() + written, static_cast<size_t>(data.size() - written),
                                 MSG_NOSIGNAL);
        if (n < 0 && errno != EAGAIN && errno != EINTR)
            return SendResult::Dropped;
        written += qMax<ssize_t>(n, 0);
    }

    QByteArray answer;
    bool gotReceipt = false;
    QElapsedTimer handling;
    for (;;) {
        const bool ready = gotReceipt ? waitFor(socket.get(), POLLIN, handling, times.doneMs)
                                      : waitFor(socket.get(), POLLIN, clock, times.receiptMs);
        if (!ready)
            return gotReceipt ? SendResult::Unconfirmed : SendResult::NoAnswer;
        char buffer[16];
        const ssize_t n = ::recv(socket.get(), buffer, sizeof(buffer), 0);
        if (n < 0 && (errno == EAGAIN || errno == EINTR))
            continue;
        if (n <= 0)
            return SendResult::Dropped;
        answer.append(buffer, n);
        if (!gotReceipt && answer.startsWith("AC")) {
            gotReceipt = true;
            handling.start();
            if (received)
                received();
        }
        if (answer.startsWith("ACOK"))
            return SendResult::Done;
    }
}

} // namespace handoff

} // namespace quorvel
