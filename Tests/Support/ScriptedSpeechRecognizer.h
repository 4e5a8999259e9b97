#pragma once

#include "Platform/SpeechRecognizer.h"

#include <QCoroFuture>
#include <QCoroTimer>

#include <QPromise>

#include <atomic>
#include <thread>

namespace KelvaLR::Testing {

/// A recogniser that understands what the test tells it. As with a real one, results come on another thread
/// and permission comes on a later turn of the event loop.
class ScriptedSpeechRecognizer final : public SpeechRecognizer
{
public:
    QCoro::Task<bool> requestAccess() override
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

    std::unique_ptr<SpeechRecognition> recognize(const SpeechHints &given, ResultHandler onResult) override
    {
        if (!isAvailable) {
            return nullptr;
        }
        ++recognitions;
        hints = given;
        m_recognition = std::make_shared<ResultHandler>(std::move(onResult));
        return std::make_unique<Recognition>(m_recognition, frames);
    }

    [[nodiscard]] bool isRecognizing() const { return m_recognition && *m_recognition; }

    /// Reports a result on a thread of its own and comes back once it has been reported.
    void report(const SpeechResult &result)
    {
        if (isRecognizing()) {
            std::jthread([&] { (*m_recognition)(result); });
        }
    }

    void hear(const QString &text) { report({.text = text, .isFinal = false}); }

    /// The user answers the question that `isAskingHeld` has left open.
    void answer(bool isGranted)
    {
        m_question.addResult(isGranted);
        m_question.finish();
    }

    bool isAvailable = true;
    bool isAccessGranted = true;
    bool isAskingHeld = false;
    SpeechHints hints; ///< of the latest recognition
    int recognitions = 0;
    std::atomic<qsizetype> frames = 0; ///< appended so far

private:
    class Recognition final : public SpeechRecognition
    {
    public:
        Recognition(std::shared_ptr<ResultHandler> handler, std::atomic<qsizetype> &appended)
            : m_handler(std::move(handler))
            , m_appended(appended)
        {
        }

        ~Recognition() override { *m_handler = {}; }

        void append(QByteArrayView, qsizetype count, const AudioFormat &) override { m_appended += count; }

    private:
        std::shared_ptr<ResultHandler> m_handler;
        std::atomic<qsizetype> &m_appended;
    };

    QPromise<bool> m_question;
    std::shared_ptr<ResultHandler> m_recognition; ///< the latest one; empty once it has ended
};

} // namespace KelvaLR::Testing
