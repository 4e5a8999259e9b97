#pragma once

#include <QCoroTask>

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <optional>

namespace KelvaLR {

/// Reads lines from a file descriptor without blocking the main thread.
class StandardInputLines : public QObject
{
public:
    /// @param descriptor stays open for as long as the reader lives
    explicit StandardInputLines(int descriptor);

    /// The next line without its line feed; none at the end of the input. Waits for as long as the user
    /// takes.
    QCoro::Task<std::optional<QString>> next();

private:
    void read();

    int m_descriptor;
    QSocketNotifier m_notifier;
    QTimer m_nextLook; ///< ends early when something was read
    QByteArray m_buffer;
    bool m_isAtEnd = false;
};

} // namespace KelvaLR
