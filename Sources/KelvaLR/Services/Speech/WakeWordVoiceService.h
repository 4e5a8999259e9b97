#pragma once

#include "Platform/SpeechRecognizer.h"
#include "Services/Speech/SilenceMeter.h"
#include "Services/Speech/WakePhraseListener.h"
#include "Services/Speech/WakeWordTiming.h"

#include <QCoroTask>

#include <QDeadlineTimer>
#include <QFuture>
#include <QObject>
#include <QTimer>

#include <memory>

namespace KelvaLR {

class AudioInput;

/// Listens to the microphone until the wake phrase is heard, and hands over what was said behind it. A
/// recognition that ends without the phrase is followed by another. A microphone that does not work is
/// reported once, and tried again quietly until it does.
///
/// Main thread. The callbacks are posted, in the order in which they came about.
class WakeWordVoiceService final : public QObject, public WakePhraseListener
{
public:
    /// Begins to read the names of the develop presets that the user may ask for.
    using PresetNames = std::function<QFuture<QStringList>()>;

    /// The ports outlive this object and its tasks. The input is best not shared with whoever else captures:
    /// each `start` of it would end the other's capture.
    WakeWordVoiceService(AudioInput &input, SpeechRecognizer &recognizer, PresetNames presetNames,
                         WakeWordTiming timing = {});
    ~WakeWordVoiceService() override;

    void start() override;
    void stop() override;

private:
    QCoro::Task<> begin(int attempt);
    QCoro::Task<bool> areGranted(int attempt);
    void startRecognition();
    std::expected<void, QString> beginCapture();
    SpeechRecognizer::ResultHandler resultHandler(int capture);
    void endCapture();

    void handleResult(const SpeechResult &result);
    void handleTranscript(const QString &transcript);
    void handleSound(SilenceMeter::Change change);
    void fail(const QString &sentence);

    void setListening(bool isListening);
    void emitError(const QString &sentence);

    AudioInput &m_input;
    SpeechRecognizer &m_recognizer;
    PresetNames m_presetNames;
    WakeWordTiming m_timing;
    SpeechHints m_hints;

    int m_attempt = 0; ///< counts up with every start and stop, so that only the last one has an effect
    bool m_isStarting = false;
    std::unique_ptr<SpeechRecognition> m_recognition; ///< none where the system has no recogniser
    int m_capture = 0;                                ///< counts up with every beginning and end
    bool m_isCapturing = false;
    bool m_isListening = false; ///< as reported
    QTimer m_restart;           ///< to the next recognition or the next try
    QDeadlineTimer m_sameUtterance{0};

    SilenceMeter m_silence; ///< belongs to the audio thread during a capture
    bool m_isMuted = false;
    /// Said once of a microphone, not each time: a noise gate makes every pause in the talk a silence.
    bool m_isSilenceTold = false;
    bool m_isTroubleTold = false;
    std::chrono::milliseconds m_nextRetry;
};

} // namespace KelvaLR
