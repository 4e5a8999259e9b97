#pragma once

#include <QObject>
#include <QThread>

#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <type_traits>

namespace KelvaLR {

/// The thread on which Qt Multimedia lives. Its PulseAudio backend has one connection for the whole process,
/// which belongs to the thread that first needed it: that thread reconnects, and frees what the streams use
/// when the connection breaks. So capture and playback share this one thread, and nobody else touches a
/// device. It outlives the adapters.
class AudioThread
{
public:
    AudioThread();
    ~AudioThread(); ///< leaves a thread behind that hangs in the sound system
    Q_DISABLE_COPY_MOVE(AudioThread)

    /// Carries this out on the audio thread, in the order of the calls.
    void post(std::function<void()> work);

    /// What `work` gives on the audio thread; nothing when it takes longer than this. It is carried out even
    /// then, when the thread comes to it, and its result is dropped there.
    template <typename Work>
    [[nodiscard]] auto ask(const Work &work, std::chrono::milliseconds limit)
        -> std::optional<std::invoke_result_t<Work>>
    {
        const auto promise = std::make_shared<std::promise<std::invoke_result_t<Work>>>();
        auto answer = promise->get_future();
        post([promise, work] { promise->set_value(work()); });
        if (answer.wait_for(limit) != std::future_status::ready) {
            return std::nullopt;
        }
        return answer.get();
    }

private:
    std::unique_ptr<QThread> m_thread;
    std::unique_ptr<QObject> m_place; ///< an object of the thread, for what is carried out there
};

/// Deletes an object on the thread to which it belongs.
struct LaterDeletion
{
    void operator()(QObject *object) const { object->deleteLater(); }
};

/// How long sound devices may take.
struct AudioTiming
{
    std::chrono::milliseconds answer{2000}; ///< to open; the main thread waits no longer
    std::chrono::milliseconds stalled{
        3000}; ///< without a sample; a headset that changes its mode needs two seconds
};

} // namespace KelvaLR
