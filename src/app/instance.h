#pragma once
// One running instance per user: the first start becomes the running
// instance and listens on two local endpoints, a command receiver and a
// liveness probe; their names are kept in the user's settings store
// ("txtHwnd", "txtHwnd1"). A later start finds them there and hands over its
// file (or just says "Hello") instead of opening a second window.
//
// Messages are framed: 4 bytes "QVL1", a 32-bit big-endian length, UTF-8
// text. The receiver takes connections of the same user only, drops any
// malformed or oversized message, and answers "OK" once the command has been
// handled, so a sender knows its file is in the playlist when it ends.

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <functional>
#include <memory>

class QLocalServer;
class QLocalSocket;

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

namespace handoff {
inline constexpr int kMaxMessageBytes = 64 * 1024;
QByteArray frame(const QString &text);
// Parses a framed message from the front of `buffer`. Returns 1 with `text`
// set when complete, 0 when more bytes are needed, -1 when the data is bad.
int unframe(const QByteArray &buffer, QString *text);

// True when a process listens on the endpoint.
bool endpointAlive(const QString &name);
// Sends `text` and waits for the receiver's answer; false when no instance
// took it.
bool send(const QString &name, const QString &text, int timeoutMs = 120000);
} // namespace handoff

class HandoffServer : public QObject {
    Q_OBJECT
public:
    // `done` must be called once the command has been handled; the sender
    // waits for it.
    using CommandHandler = std::function<void(const QString &command, std::function<void()> done)>;

    explicit HandoffServer(QObject *parent = nullptr);
    ~HandoffServer() override;

    // Starts both endpoints; false when the system refused.
    bool listen();
    InstanceRegistry::Endpoints endpoints() const;
    void setCommandHandler(CommandHandler handler) { m_onCommand = std::move(handler); }

signals:
    void helloReceived();

private:
    void accept(QLocalServer *server, bool isCommand);
    void readFrom(QLocalSocket *socket, bool isCommand);

    std::unique_ptr<QLocalServer> m_command;
    std::unique_ptr<QLocalServer> m_probe;
    QHash<QLocalSocket *, QByteArray> m_buffers;
    CommandHandler m_onCommand;
};

} // namespace quorvel
