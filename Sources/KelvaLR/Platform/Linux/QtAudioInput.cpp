#include "Platform/Linux/QtAudioInput.h"

#include "Platform/Linux/AudioCapture.h"

namespace KelvaLR {

namespace {

std::unexpected<QString> noAnswer()
{
    return std::unexpected(QStringLiteral("The microphone does not answer."));
}

} // namespace

QtAudioInput::QtAudioInput(AudioThread &thread, AudioTiming timing)
    : m_thread(thread)
    , m_timing(timing)
{
}

QtAudioInput::~QtAudioInput()
{
    stop();
}

QCoro::Task<bool> QtAudioInput::requestAccess()
{
    co_return true;
}

std::expected<AudioFormat, QString> QtAudioInput::format()
{
    auto answer = m_thread.ask(&AudioCapture::format, m_timing.answer);
    return answer ? std::move(*answer) : noAnswer();
}

std::expected<void, QString> QtAudioInput::start(qsizetype blockFrames, BlockHandler onBlock,
                                                 FailureHandler onFailure)
{
    stop();
    const auto handlers = std::make_shared<CaptureHandlers>(std::move(onBlock), std::move(onFailure));
    auto answer =
        m_thread.ask([blockFrames, handlers,
                      timing = m_timing] { return AudioCapture::begun(blockFrames, handlers, timing); },
                     m_timing.answer);
    if (!answer || !answer->has_value()) {
        handlers->close(m_timing.answer);
        return answer ? std::unexpected(answer->error()) : noAnswer();
    }
    m_handlers = handlers;
    m_capture = std::move(**answer);
    return {};
}

void QtAudioInput::stop()
{
    m_capture.reset();
    if (m_handlers) {
        m_handlers->close(m_timing.answer);
        m_handlers.reset();
    }
}

} // namespace KelvaLR
