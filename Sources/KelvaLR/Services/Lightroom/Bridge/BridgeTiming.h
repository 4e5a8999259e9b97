#pragma once

#include <chrono>

namespace KelvaLR {

/// Every duration of the bridge and of the roads that replace it.
struct BridgeTiming
{
    using milliseconds = std::chrono::milliseconds;

    milliseconds send{2000};  ///< for connecting and writing one command
    milliseconds retry{5};    ///< between two attempts to connect within `send`
    milliseconds reply{8000}; ///< for the reply to a command that was sent
    milliseconds poll{100};   ///< between two looks at the reply's place when no change is reported
    milliseconds queue{50};   ///< between two looks at whether another command has ended
    milliseconds start{2500}; ///< for the plug-in's server to come up

    milliseconds activation{200};    ///< for Lightroom to come to the front
    milliseconds developModule{300}; ///< for the Develop module to open
    milliseconds loupe{200};         ///< for the Loupe view to open
    milliseconds effect{400};        ///< for the effect of a key or a slider to show, which is then logged

    bool operator==(const BridgeTiming &) const = default;
};

} // namespace KelvaLR
