#pragma once
// Turns SIGTERM and SIGINT into a Qt signal on the user-interface thread, so
// they close the program the way closing the window does.

#include <QObject>

class QSocketNotifier;

namespace quorvel {

class UnixSignalWatcher : public QObject {
    Q_OBJECT
public:
    explicit UnixSignalWatcher(QObject *parent = nullptr);
    ~UnixSignalWatcher() override;

signals:
    void terminationRequested();

private:
    QSocketNotifier *m_notifier = nullptr;
};

} // namespace quorvel
