#pragma once

#include <chrono>

namespace KelvaLR {

/// Every duration of a realtime session.
struct RealtimeTiming
{
    using milliseconds = std::chrono::milliseconds;

    milliseconds connection{60'000};     ///< from the first byte to the service's "session.created"
    milliseconds ping{15'000};           ///< between two pings that keep the connection alive
    milliseconds idleDisconnect{60'000}; ///< without speech, a reply or a tool call
    milliseconds speechEnd{600};         ///< after a reply, until its sound has left the room
    milliseconds feedbackEcho{350};      ///< after our own spoken feedback, in which speech may be its echo

    bool operator==(const RealtimeTiming &) const = default;
};

} // namespace KelvaLR
