#include "Services/Lightroom/LightroomConnection.h"

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// Somebody was there for the last command, and did not answer it.
bool wasLeftWaiting(const ConnectionEvidence &evidence)
{
    return evidence.lastExchange == BridgeExchange::notTaken ||
           evidence.lastExchange == BridgeExchange::unanswered;
}

bool isLightroom(const ListeningProgram &program, const ConnectionEvidence &evidence)
{
    return program.name.contains("lightroom"_L1, Qt::CaseInsensitive) ||
           (evidence.lightroom && evidence.lightroom->processId == program.processId);
}

LightroomConnection withListener(const ConnectionEvidence &evidence)
{
    using namespace Connection;
    const QList<ListeningProgram> &programs = evidence.listener.programs;
    if (std::ranges::any_of(programs, [&](const auto &program) { return isLightroom(program, evidence); })) {
        return wasLeftWaiting(evidence) ? LightroomConnection(NoAnswer()) : Usable();
    }
    if (!programs.isEmpty()) {
        return PortTaken{.port = evidence.port, .program = programs.constFirst().name};
    }
    return wasLeftWaiting(evidence) ? LightroomConnection(PortTaken{.port = evidence.port, .program = {}})
                                    : Usable();
}

LightroomConnection withoutListener(const ConnectionEvidence &evidence)
{
    using namespace Connection;
    if (!evidence.lightroom) {
        return LightroomNotRunning{.isLightroomInstalled = evidence.isLightroomInstalled};
    }
    return wasLeftWaiting(evidence) ? LightroomConnection(NoAnswer())
                                    : PluginNotLoaded{.isPluginInstalled = evidence.isPluginInstalled};
}

/// Without a look at the sockets, a refused command shows that nobody listens, and so does that no Lightroom
/// runs.
bool isNobodyListening(const ConnectionEvidence &evidence)
{
    return evidence.listener.presence == PortListener::Presence::none || !evidence.lightroom ||
           evidence.lastExchange == BridgeExchange::refused;
}

} // namespace

LightroomConnection judgedConnection(const ConnectionEvidence &evidence)
{
    if (evidence.isPluginConnected) {
        return Connection::Usable();
    }
    if (evidence.listener.presence == PortListener::Presence::present) {
        return withListener(evidence);
    }
    if (isNobodyListening(evidence) || wasLeftWaiting(evidence)) {
        return withoutListener(evidence);
    }
    return Connection::Usable();
}

} // namespace KelvaLR
