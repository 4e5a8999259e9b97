#include "Platform/Linux/ProcListeningPrograms.h"

#include "Platform/Linux/ProcessList.h"
#include "Platform/Linux/SocketTable.h"

#include <QCoroSignal>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFutureWatcher>
#include <QtConcurrentRun>

#include <filesystem>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

/// Holds the sockets of all programs that run under it, so it is not who listens.
constexpr QLatin1StringView wineServer("wineserver");

/// None when the kernel lists no sockets here.
std::optional<QSet<quint64>> socketsOn(const QString &folder, quint16 port)
{
    std::optional<QSet<quint64>> sockets;
    for (const QLatin1StringView table : {"/net/tcp"_L1, "/net/tcp6"_L1}) {
        QFile file(folder + table);
        const auto listed =
            file.open(QFile::ReadOnly) ? listeningSockets(file, port) : std::optional<QSet<quint64>>();
        if (listed) {
            sockets = sockets.value_or(QSet<quint64>()) + *listed;
        }
    }
    return sockets;
}

/// Whether one of a process's open files is one of these links; a folder that is closed to us holds none.
bool holdsOneOf(const QString &process, const QSet<QByteArray> &links)
{
    std::error_code error;
    const std::filesystem::directory_iterator files(QString(process + "/fd"_L1).toStdString(), error);
    for (auto file = begin(files); !error && file != end(files); file.increment(error)) {
        std::error_code gone;
        const std::string target = std::filesystem::read_symlink(file->path(), gone).string();
        if (!gone && links.contains(QByteArray::fromStdString(target))) {
            return true;
        }
    }
    return false;
}

QList<ListeningProgram> holders(const QString &folder, const QSet<quint64> &sockets, QDeadlineTimer deadline)
{
    QSet<QByteArray> links;
    for (const quint64 socket : sockets) {
        links.insert("socket:[" + QByteArray::number(socket) + ']');
    }
    QList<ListeningProgram> programs;
    const QDir processes(folder);
    for (const QString &entry : processes.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Unsorted)) {
        const qint64 processId = entry.toLongLong();
        if (deadline.hasExpired()) {
            break;
        }
        if (processId <= 0 || !holdsOneOf(processes.filePath(entry), links)) {
            continue;
        }
        const QString name = programName(processId);
        if (!name.isEmpty() && !name.startsWith(wineServer)) {
            programs.append({.name = name, .processId = processId});
        }
    }
    return programs;
}

PortListener listener(const QString &folder, quint16 port, QDeadlineTimer deadline)
{
    using enum PortListener::Presence;
    const std::optional<QSet<quint64>> sockets = socketsOn(folder, port);
    if (!sockets || sockets->isEmpty()) {
        return {.presence = sockets ? none : unknown, .programs = {}};
    }
    return {.presence = present, .programs = holders(folder, *sockets, deadline)};
}

} // namespace

ProcListeningPrograms::ProcListeningPrograms(QString folder, std::chrono::milliseconds deadline)
    : m_folder(std::move(folder))
    , m_deadline(deadline)
{
}

QCoro::Task<PortListener> ProcListeningPrograms::listenerOn(quint16 port)
{
    QFutureWatcher<PortListener> looking;
    const std::chrono::milliseconds deadline = m_deadline;
    looking.setFuture(QtConcurrent::run(&listener, m_folder, port, QDeadlineTimer(deadline)));
    // The kernel may hold up a look at a process that hangs itself: twice the time, and then nothing is
    // known.
    const bool isFinished =
        (co_await qCoro(&looking, &QFutureWatcherBase::finished, 2 * deadline)).has_value();
    co_return isFinished ? looking.result() : PortListener();
}

} // namespace KelvaLR
