#include "Support/ScriptedSpeechRecognizer.h"

#include <QCoroFuture>
#include <QCoroTimer>

#include <chrono>
#include <thread>

namespace KelvaLR::Testing {

namespace {

class ScriptedRecognition final : public SpeechRecognition
{
public:
    ScriptedRecognition(std::shared_ptr<SpeechRecognizer::ResultHandler> handler,
                        std::atomic<qsizetype> &frames)
        : m_handler(std::move(handler))
        , m_frames(frames)
    {
    }

    ~ScriptedRecognition() override { *m_handler = {}; }

    void append(QByteArrayView, qsizetype frames, const AudioFormat &) override { m_frames += frames; }

private:
    std::shared_ptr<SpeechRecognizer::ResultHandler> m_handler;
    std::atomic<qsizetype> &m_frames;
};

} // namespace

QCoro::Task<bool> ScriptedSpeechRecognizer::requestAccess()
{
    if (!isAskingHeld) {
        const bool granted = isAccessGranted;
        co_await QCoro::sleepFor(std::chrono::milliseconds(0));
        co_return granted;
    }
    m_question = QPromise<bool>();
    m_question.start();
    const QFuture<bool> answer = m_question.future();
    co_return co_await answer;
}

std::unique_ptr<SpeechRecognition> ScriptedSpeechRecognizer::recognize(const SpeechHints &given,
                                                                       ResultHandler onResult)
{
    if (!isAvailable) {
        return nullptr;
    }
    ++recognitions;
    hints = given;
    m_recognition = std::make_shared<ResultHandler>(std::move(onResult));
    return std::make_unique<ScriptedRecognition>(m_recognition, frames);
}

void ScriptedSpeechRecognizer::report(const SpeechResult &result)
{
    if (isRecognizing()) {
        std::jthread([&] { (*m_recognition)(result); });
    }
}

void ScriptedSpeechRecognizer::answer(bool isGranted)
{
    m_question.addResult(isGranted);
    m_question.finish();
}

} // namespace KelvaLR::Testing
