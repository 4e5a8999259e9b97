#pragma once

#include <QObject>

#include <array>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

namespace KelvaLR {

/// Turns SIGTERM and SIGINT into a signal of the event loop. One at a time for the process.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    TerminationSignals();
    ~TerminationSignals() override;

Q_SIGNALS:
    void terminationRequested();

private:
    std::array<int, 2> m_sockets{-1, -1}; ///< written in the signal handler, read by the event loop
};

} // namespace KelvaLR
