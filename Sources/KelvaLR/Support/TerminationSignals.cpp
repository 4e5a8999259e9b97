#include "Support/TerminationSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>

namespace KelvaLR {

namespace {

std::atomic<int> writingEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "a signal handler must not wait for a lock");

constexpr std::array handledSignals{SIGTERM, SIGINT};

void handleSignal(int signal)
{
    const int error = errno; // of whatever was interrupted
    const char byte = static_cast<char>(signal);
    [[maybe_unused]] const auto written = ::write(writingEnd.load(), &byte, sizeof byte);
    errno = error;
}

void restoreDefaults()
{
    for (const int signal : handledSignals) {
        std::signal(signal, SIG_DFL);
    }
}

} // namespace

TerminationSignals::TerminationSignals()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, m_sockets.data()) != 0) {
        return; // the signals then end the program by themselves
    }
    writingEnd = m_sockets[0];
    auto *notifier = new QSocketNotifier(m_sockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::readSignal);
    for (const int signal : handledSignals) {
        std::signal(signal, handleSignal);
    }
}

TerminationSignals::~TerminationSignals()
{
    restoreDefaults();
    for (const int socket : m_sockets) {
        if (socket >= 0) {
            ::close(socket);
        }
    }
}

void TerminationSignals::exitApplication(int signal)
{
    QCoreApplication::exit(128 + signal);
}

void TerminationSignals::readSignal()
{
    char byte = 0;
    if (::read(m_sockets[1], &byte, sizeof byte) == sizeof byte) {
        restoreDefaults();
        Q_EMIT terminationRequested(byte);
    }
}

} // namespace KelvaLR
