#pragma once

#include "Services/Lightroom/LightroomConnection.h"

#include <QCoroTask>

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <optional>

namespace KelvaLR {

class LightroomService;
class RunningApplications;

/// Every duration of the watch.
struct ConnectionWatchTiming
{
    using milliseconds = std::chrono::milliseconds;

    milliseconds gap{500};       ///< longer than the plug-in pauses between two listens
    milliseconds follow{3000};   ///< between two looks while somebody follows
    milliseconds loading{20000}; ///< for Lightroom to load its plug-ins after its start

    bool operator==(const ConnectionWatchTiming &) const = default;
};

/// Finds out why the plug-in cannot be reached, by looking at what runs and who listens; it sends the plug-in
/// nothing. Idle until it is first asked to look. Then it also looks after each exchange with the plug-in.
///
/// Main thread; a look suspends without blocking it.
class LightroomConnectionWatch : public QObject
{
    Q_OBJECT

public:
    /// What is given by reference outlives this object and its tasks.
    LightroomConnectionWatch(LightroomService &lightroom, RunningApplications &applications,
                             ListeningPrograms &programs, ConnectionWatchTiming timing = {},
                             QObject *parent = nullptr);

    [[nodiscard]] const LightroomConnection &connection() const { return m_connection; }

    /// A look is under way.
    [[nodiscard]] bool isLooking() const { return m_isLooking; }

    /// Looks as soon as possible. Returns at once; a look while a command is under way is left to its end.
    void look();

    /// Whether somebody wants to see changes as they happen: every few seconds there is a look then.
    void setFollowed(bool isFollowed);

Q_SIGNALS:
    void connectionChanged();

private:
    class Looking;

    void lookAgain();
    QCoro::Task<> lookUntilSettled();
    QCoro::Task<PortListener> settledListener();
    void noteExchange();
    [[nodiscard]] ConnectionEvidence evidence(const PortListener &listener);
    [[nodiscard]] LightroomConnection withPatience(const LightroomConnection &judged);
    void setConnection(const LightroomConnection &connection);
    void planNextLook();

    LightroomService &m_lightroom;
    RunningApplications &m_applications;
    ListeningPrograms &m_programs;
    ConnectionWatchTiming m_timing;
    LightroomConnection m_connection;
    BridgeExchange m_lastExchange;              ///< with the Lightroom that runs now
    std::optional<bool> m_isLightroomInstalled; ///< not asked again every few seconds
    QDeadlineTimer m_loading; ///< a Lightroom that was not there before may be loading until then
    QTimer m_nextLook;
    bool m_hasBegun = false;
    bool m_isFollowed = false;
    bool m_isLooking = false;
    bool m_isLookWanted = false; ///< since the look under way began
};

} // namespace KelvaLR
