#include "unixsignals.h"

#include <QSocketNotifier>
#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace quorvel {

namespace {
int g_signalFds[2] = {-1, -1};

// Only async-signal-safe work here: one byte into the socket.
void onSignal(int)
{
    const char byte = 1;
    [[maybe_unused]] const auto n = ::write(g_signalFds[0], &byte, 1);
}
} // namespace

UnixSignalWatcher::UnixSignalWatcher(QObject *parent) : QObject(parent)
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, g_signalFds) != 0)
        return;
    m_notifier = new QSocketNotifier(g_signalFds[1], QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, [this] {
        char byte;
        [[maybe_unused]] const auto n = ::read(g_signalFds[1], &byte, 1);
        emit terminationRequested();
    });
    struct sigaction action {};
    action.sa_handler = onSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

UnixSignalWatcher::~UnixSignalWatcher()
{
    std::signal(SIGTERM, SIG_DFL);
    std::signal(SIGINT, SIG_DFL);
}

} // namespace quorvel
