#pragma once

#include <QObject>

#include <array>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

namespace KelvaLR {

/// Turns SIGTERM and SIGINT into a signal of the event loop, so that a program can put things in order first.
/// A second one ends the program as usual. One at a time for the process.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

    /// Ends the event loop with the status that shells give to a program that a signal ended.
    static void exitApplication(int signal);

Q_SIGNALS:
    void terminationRequested(int signal);

private:
    void readSignal();

    std::array<int, 2> m_sockets{-1, -1}; ///< written in the signal handler, read by the event loop
};

} // namespace KelvaLR
