#pragma once

#include "Platform/FrontmostApplication.h"
#include "Platform/ListeningPrograms.h"
#include "Services/Lightroom/Bridge/BridgeExchange.h"

#include <QString>

#include <optional>
#include <variant>

namespace KelvaLR {

// Where the road to Lightroom ends. A type for each case, with what is known about it.
namespace Connection {

/// The plug-in has answered, or nothing is known that would keep it from answering.
struct Usable
{
    bool operator==(const Usable &) const = default;
};

struct LightroomNotRunning
{
    bool isLightroomInstalled = false;

    bool operator==(const LightroomNotRunning &) const = default;
};

/// Lightroom runs, and nothing listens on the plug-in's port.
struct PluginNotLoaded
{
    bool isPluginInstalled = false;

    bool operator==(const PluginNotLoaded &) const = default;
};

/// Another program listens on the plug-in's port.
struct PortTaken
{
    quint16 port = 0;
    QString program; ///< empty when it cannot be found out; then it may even be Lightroom

    bool operator==(const PortTaken &) const = default;
};

/// Lightroom has let a command wait for too long, as it does while a dialog is open.
struct NoAnswer
{
    bool operator==(const NoAnswer &) const = default;
};

} // namespace Connection

using LightroomConnection =
    std::variant<Connection::Usable, Connection::LightroomNotRunning, Connection::PluginNotLoaded,
                 Connection::PortTaken, Connection::NoAnswer>;

/// What the connection is judged by.
struct ConnectionEvidence
{
    bool isPluginConnected = false;
    BridgeExchange lastExchange = BridgeExchange::none;
    std::optional<RunningApplication> lightroom; ///< that runs
    bool isLightroomInstalled = false;
    bool isPluginInstalled = false;
    quint16 port = 0; ///< the plug-in's
    PortListener listener;
};

/// A program on the port that calls itself Lightroom, as the stand-in does, is taken for Lightroom, too.
[[nodiscard]] LightroomConnection judgedConnection(const ConnectionEvidence &evidence);

} // namespace KelvaLR
