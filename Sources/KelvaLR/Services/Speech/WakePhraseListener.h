#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace KelvaLR {

/// Listens on the device for the wake phrase. Main thread; the application model assigns the callbacks once,
/// and they may be invoked on any thread.
class WakePhraseListener
{
public:
    WakePhraseListener() = default;
    virtual ~WakePhraseListener() = default;
    Q_DISABLE_COPY_MOVE(WakePhraseListener)

    /// The phrase was heard; the argument is the command behind it, absent when nothing followed.
    std::function<void(std::optional<QString>)> onWake;
    std::function<void(bool)> onListeningStateChange;
    std::function<void(QString)> onError;

    virtual void start() = 0;
    virtual void stop() = 0;
};

} // namespace KelvaLR
