#pragma once

#include <QFuture>
#include <QPromise>

#include <utility>

namespace KelvaLR {

/// Lets coroutines do something one at a time, in the order in which they came. Main thread.
class Turns
{
public:
    /// A coroutine waits for the beginning and keeps the value until it is done; the turn ends with it, also
    /// when a suspended coroutine is destroyed.
    struct Turn
    {
        QFuture<void> begun; ///< finished once those who came before are done
        QPromise<void> done;
    };

    [[nodiscard]] Turn take()
    {
        QPromise<void> done;
        done.start();
        return {std::exchange(m_last, done.future()), std::move(done)};
    }

private:
    QFuture<void> m_last; ///< a default one is finished
};

} // namespace KelvaLR
