#pragma once
// The one way tests wait: on a condition, with a deadline, never a fixed sleep.

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <chrono>

namespace quorvel::test {

// Runs this thread's event loop until `predicate` holds or `deadline` has
// passed, and returns whether it held. Queued signals, finished futures and
// child-process state reach this thread meanwhile; between passes the thread
// rests briefly so polling state another thread sets does not spin a core.
template <typename Predicate>
bool waitUntil(Predicate predicate, std::chrono::milliseconds deadline = std::chrono::seconds(60))
{
    const QDeadlineTimer timer(deadline);
    while (!predicate()) {
        if (timer.hasExpired())
            return predicate();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
    return true;
}

} // namespace quorvel::test
