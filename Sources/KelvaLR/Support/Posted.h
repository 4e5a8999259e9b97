#pragma once

#if __has_feature(thread_sanitizer)
#include <sanitizer/tsan_interface.h>
#endif

#include <utility>

namespace KelvaLR {

/// Work for QMetaObject::invokeMethod that is carried out on another thread. What was done here before is
/// then done there, too: Qt's lock on the receiver's events sees to that. The thread sanitizer does not see
/// that lock, for Qt is not instrumented, so this says the same of this one piece of work.
template <typename Work>
class Posted
{
public:
    explicit Posted(Work work)
        : m_work(std::move(work))
    {
        send();
    }

    /// Qt moves it to where it waits.
    Posted(Posted &&other) noexcept
        : m_work(std::move(other.m_work))
    {
        send();
    }

    ~Posted() { receive(); }

    Posted(const Posted &) = delete;
    Posted &operator=(const Posted &) = delete;
    Posted &operator=(Posted &&) = delete;

    void operator()()
    {
        receive();
        m_work();
        send(); // whichever thread lets go last ends it
    }

private:
#if __has_feature(thread_sanitizer)
    void send() { __tsan_release(this); }

    void receive() { __tsan_acquire(this); }
#else
    void send() {}

    void receive() {}
#endif

    Work m_work;
};

} // namespace KelvaLR
