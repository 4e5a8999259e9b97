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

    /// @param completion runs on the main thread when this text has been spoken, or could not be; that of a
    ///        text which is replaced or stopped is dropped unrun
    virtual void speak(const QString &text, std::function<void()> completion) = 0;

    /// Falls silent at once.
    virtual void stop() = 0;
};

} // namespace KelvaLR
