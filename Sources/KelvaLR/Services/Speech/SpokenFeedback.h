#pragma once

#include <QString>

#include <functional>

namespace KelvaLR {

/// Reads short texts aloud, one at a time; a new text interrupts the one being spoken. Main thread.
class SpokenFeedback
{
public:
    SpokenFeedback() = default;
    virtual ~SpokenFeedback() = default;
    Q_DISABLE_COPY_MOVE(SpokenFeedback)

    /// @param completion runs on the main thread when this text has been spoken or was cut off
    virtual void speak(const QString &text, std::function<void()> completion) = 0;
};

} // namespace KelvaLR
