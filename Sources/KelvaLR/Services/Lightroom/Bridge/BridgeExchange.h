#pragma once

namespace KelvaLR {

/// How an exchange with the plug-in ended.
enum class BridgeExchange {
    none,       ///< there was none
    refused,    ///< nobody listened
    notTaken,   ///< somebody listened, but did not take the command in time
    unanswered, ///< the command was taken, and no reply came in time
    answered,
};

} // namespace KelvaLR
