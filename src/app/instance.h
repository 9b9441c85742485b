#pragma once
// One running instance per user: the first start becomes the running
// instance and listens on two local endpoints, a command receiver and a
// liveness probe; their names are kept in the user's settings store
// ("txtHwnd", "txtHwnd1"). A later start finds them there and hands over its
// files (or just says "Hello") instead of opening a second window.
//
// Messages are framed: 4 bytes "QVL1", a 32-bit big-endian length, UTF-8
// text, one message per connection. The receiver takes connections of the
// same user only and drops any malformed or oversized message. It answers
// twice: "AC" as soon as the message is queued (so a sender can tell a live
// instance from a hung one within seconds) and "OK" once the files have been
// handled (so a sender knows they are in the playlist when it ends).

#include <QString>
#include <QStringList>
#include <functional>

namespace quorvel {

// The endpoint names of the instance that started last.
class InstanceRegistry {
public:
    static constexpr const char *kCommandKey = "txtHwnd";
    static constexpr const char *kProbeKey = "txtHwnd1";

    struct Endpoints {
        QString command = QStringLiteral("-1");
        QString probe;
    };
    static Endpoints read();
    static void write(const Endpoints &endpoints);
};

// The user's runtime folder (XDG_RUNTIME_DIR), where the lock files and the
// endpoints live.
QString RuntimeFolder();

// Marks for the life of the process that the program runs (a shared lock on
// a file in the user's runtime folder). Nothing waits on it.
class RunningMarker {
public:
    RunningMarker();
    ~RunningMarker();
    RunningMarker(const RunningMarker &) = delete;
    RunningMarker &operator=(const RunningMarker &) = delete;

private:
    int m_fd = -1;
};

// Serialises the start-up negotiation of all starts of one user: an
// exclusive lock on a file in the runtime folder. The file also counts the
// turns, so traces can tell in which order the starts negotiated.
class StartupLock {
public:
    explicit StartupLock(QString path);
    ~StartupLock();
    StartupLock(const StartupLock &) = delete;
    StartupLock &operator=(const StartupLock &) = delete;

    // Waits up to `timeoutMs` for the lock; false when it could not be had.
    bool acquire(int timeoutMs);
    void release();
    bool isHeld() const { return m_held; }
    // The number of this turn (1 for the first start ever), set by acquire.
    quint64 turn() const { return m_turn; }

private:
    QString m_path;
    int m_fd = -1;
    bool m_held = false;
    quint64 m_turn = 0;
};

// A listening endpoint opened at start-up, before the window exists; the
// hand-off server takes it over.
struct ListeningEndpoints {
    QString command;
    QString probe;
    int commandFd = -1;
    int probeFd = -1;
    bool isValid() const { return commandFd >= 0 && probeFd >= 0; }
};

namespace handoff {
inline constexpr int kMaxMessageBytes = 64 * 1024;
QByteArray frame(const QString &text);
// Parses a framed message from the front of `buffer`. Returns 1 with `text`
// set when complete, 0 when more bytes are needed, -1 when the data is bad.
int unframe(const QByteArray &buffer, QString *text);

// Opens both endpoints of this process (user-only access) in `folder`.
bool listen(const QString &folder, ListeningEndpoints *endpoints);
// The process id in an endpoint name, or 0.
qint64 ownerOf(const QString &endpoint);

enum class SendResult {
    Done,       // the receiver has handled the message
    NoInstance, // nobody listens there
    NoAnswer,   // connected, but no receipt in time: the instance hangs
    Dropped,    // the connection closed before the receiver had handled it
    Unconfirmed // received, but not handled in time
};
struct SendTimes {
    int receiptMs = 5000; // connection and receipt
    int doneMs = 60000;   // from the receipt to the end of the handling
};
// Sends `text`; `received` runs once the receiver has confirmed the receipt.
SendResult send(const QString &name, const QString &text, const SendTimes &times = {},
                const std::function<void()> &received = {});
} // namespace handoff

} // namespace quorvel
