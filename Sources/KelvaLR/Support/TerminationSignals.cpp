#include "Support/TerminationSignals.h"

#include <QSocketNotifier>

#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

namespace KelvaLR {

namespace {

std::atomic<int> writingEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler must not wait for a lock");

constexpr std::array handledSignals{SIGTERM, SIGINT};

void handleSignal(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(writingEnd.load(), &byte, sizeof byte);
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, m_sockets.data()) != 0) {
        return; // the signals then end the program by themselves
    }
    writingEnd = m_sockets[0];
    auto *notifier = new QSocketNotifier(m_sockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this, notifier] {
        notifier->setEnabled(false);
        Q_EMIT terminationRequested();
    });
    for (const int signal : handledSignals) {
        std::signal(signal, handleSignal);
    }
}

TerminationSignals::~TerminationSignals()
{
    for (const int signal : handledSignals) {
        std::signal(signal, SIG_DFL);
    }
    for (const int socket : m_sockets) {
        if (socket >= 0) {
            ::close(socket);
        }
    }
}

} // namespace KelvaLR
