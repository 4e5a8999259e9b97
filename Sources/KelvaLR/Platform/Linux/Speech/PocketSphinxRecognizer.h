#pragma once

#include "Platform/Linux/Speech/CommandDecoder.h"
#include "Platform/SpeechRecognizer.h"

#include <QThread>

namespace KelvaLR {

class RecognitionWorker;

/// Recognises commands behind the wake phrase by PocketSphinx, on a thread of its own. Silence costs next to
/// nothing; an utterance is decoded when it pauses, and reported once it has ended. What is not a call by the
/// phrase is not reported.
class PocketSphinxRecognizer final : public SpeechRecognizer
{
public:
    explicit PocketSphinxRecognizer(SpeechModelFiles files = SpeechModelFiles::installed());
    ~PocketSphinxRecognizer() override;
    Q_DISABLE_COPY_MOVE(PocketSphinxRecognizer)

    /// Nobody is asked: nothing leaves this computer.
    QCoro::Task<bool> requestAccess() override;
    [[nodiscard]] std::unique_ptr<SpeechRecognition> recognize(const SpeechHints &hints,
                                                               ResultHandler onResult) override;

private:
    SpeechModelFiles m_files;
    QThread m_thread;
    std::unique_ptr<RecognitionWorker> m_worker; ///< belongs to the thread
};

} // namespace KelvaLR
