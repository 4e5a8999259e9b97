#pragma once

#include <chrono>

namespace KelvaLR {

/// Every duration of listening for the wake phrase.
struct WakeWordTiming
{
    using milliseconds = std::chrono::milliseconds;

    milliseconds restart{100};         ///< from the end of a recognition to the next one
    milliseconds sameUtterance{1'000}; ///< after a wake, in which transcripts repeat its phrase
    milliseconds firstRetry{5'000};    ///< after the microphone has failed; doubles each time
    milliseconds longestRetry{30'000};
    milliseconds mutedAfter{10'000}; ///< of nothing but zeros
    milliseconds presetNames{1'000}; ///< for reading the names of the presets; without them it goes on

    bool operator==(const WakeWordTiming &) const = default;
};

} // namespace KelvaLR
