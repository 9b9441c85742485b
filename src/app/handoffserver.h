#pragma once
// The receiving side of the hand-off. The endpoints are served on a thread
// of their own: a later start gets its receipt at once, even while this
// program is still building its window or busy with a long task, and a
// start that gets none knows the instance hangs. Received commands go to the
// handler on the thread that owns the server, in the order they arrived; until a handler is set they are held
// back, so the instance's own files enter the playlist first.

#include "app/instance.h"

#include <QObject>
#include <QString>
#include <deque>
#include <functional>
#include <memory>

class QThread;

namespace quorvel {

class HandoffServer : public QObject {
    Q_OBJECT
public:
    // `done` must be called once the command has been handled; the sender
    // waits for it.
    using CommandHandler = std::function<void(const QString &command, std::function<void()> done)>;

    explicit HandoffServer(QObject *parent = nullptr);
    ~HandoffServer() override;

    // Opens both endpoints in the runtime folder; false when the system refused.
    bool listen();
    // Takes over endpoints opened before the program's window existed.
    bool adopt(const ListeningEndpoints &endpoints);
    InstanceRegistry::Endpoints endpoints() const;
    void setCommandHandler(CommandHandler handler);

signals:
    void helloReceived();

private:
    class Worker;
    void deliver(quint64 id, const QString &text);
    void handleNext();

    std::unique_ptr<QThread> m_thread;
    Worker *m_worker = nullptr; // lives on m_thread
    InstanceRegistry::Endpoints m_endpoints;
    std::deque<std::pair<quint64, QString>> m_held;
    CommandHandler m_onCommand;
};

} // namespace quorvel
