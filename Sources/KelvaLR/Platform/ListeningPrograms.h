#pragma once

#include <QCoroTask>

#include <QList>
#include <QString>

namespace KelvaLR {

/// A program that holds a listening socket.
struct ListeningProgram
{
    QString name; ///< as the system knows it; never empty
    qint64 processId = 0;

    bool operator==(const ListeningProgram &) const = default;
};

/// Who listens on a port, as far as it can be seen.
struct PortListener
{
    enum class Presence { unknown, none, present };

    Presence presence = Presence::unknown;
    /// Several processes may hold one socket; none is listed when we may not look into those that do.
    QList<ListeningProgram> programs;

    bool operator==(const PortListener &) const = default;
};

/// Port: which programs listen on this machine, without connecting to them. Main thread; the task does not
/// block it and ends within a bounded time.
class ListeningPrograms
{
public:
    ListeningPrograms() = default;
    virtual ~ListeningPrograms() = default;
    Q_DISABLE_COPY_MOVE(ListeningPrograms)

    /// Whoever takes connections to 127.0.0.1 on this TCP port.
    virtual QCoro::Task<PortListener> listenerOn(quint16 port) = 0;
};

} // namespace KelvaLR
