#pragma once

#include "Platform/SpeechRecognizer.h"

#include <QPromise>

#include <atomic>

namespace KelvaLR::Testing {

/// A recogniser that understands what the test tells it. As with a real one, results come on another thread
/// and permission comes on a later turn of the event loop.
class ScriptedSpeechRecognizer final : public SpeechRecognizer
{
public:
    QCoro::Task<bool> requestAccess() override;
    std::unique_ptr<SpeechRecognition> recognize(const SpeechHints &hints, ResultHandler onResult) override;

    [[nodiscard]] bool isRecognizing() const { return m_recognition && *m_recognition; }

    /// Reports a result on a thread of its own and comes back once it has been reported.
    void report(const SpeechResult &result);

    void hear(const QString &text) { report({.text = text, .isFinal = false}); }

    /// The user answers the question that `isAskingHeld` has left open.
    void answer(bool isGranted);

    bool isAvailable = true;
    bool isAccessGranted = true;
    bool isAskingHeld = false;
    SpeechHints hints; ///< of the latest recognition
    int recognitions = 0;
    std::atomic<qsizetype> frames = 0; ///< appended so far

private:
    QPromise<bool> m_question;
    std::shared_ptr<ResultHandler> m_recognition; ///< the latest one; empty once it has ended
};

} // namespace KelvaLR::Testing
