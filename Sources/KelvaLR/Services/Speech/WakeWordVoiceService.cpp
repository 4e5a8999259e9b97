#include "Services/Speech/WakeWordVoiceService.h"

#include "Platform/AudioInput.h"
#include "Support/DetachedTask.h"
#include "Support/NormalizedWords.h"
#include "Support/Posted.h"
#include "Support/TextTrimming.h"
#include "Support/ValueWithin.h"
#include "Support/WakePhrases.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// About 21 ms at 48 kHz.
constexpr qsizetype blockFrames = 1024;

/// What a transcript says behind the wake phrase, maybe nothing; none when it does not hold the phrase.
std::optional<QString> textBehindWakePhrase(const QString &transcript)
{
    const QString text = normalizedWords(transcript);
    const auto phrase =
        std::ranges::find_if(wakePhrases, [&](QStringView candidate) { return text.contains(candidate); });
    if (phrase == wakePhrases.end()) {
        return std::nullopt;
    }
    return trimmedWhitespace(QStringView(text).sliced(text.indexOf(*phrase) + phrase->size()));
}

/// The text with the names as they are written: "bw high contrast" is "B&W High Contrast". Names that only
/// differ in case need nothing, since Lightroom finds them.
QString withNamesAsWritten(const QString &text, const QStringList &names)
{
    QString written = u' ' + text + u' ';
    for (const QString &name : names) {
        const QString spoken = normalizedWords(name);
        if (!spoken.isEmpty() && spoken != name.toLower()) {
            written.replace(QString(u' ' + spoken + u' '), u' ' + name + u' ');
        }
    }
    return written.sliced(1).chopped(1);
}

} // namespace

WakeWordVoiceService::WakeWordVoiceService(AudioInput &input, SpeechRecognizer &recognizer,
                                           PresetNames presetNames, WakeWordTiming timing)
    : m_input(input)
    , m_recognizer(recognizer)
    , m_presetNames(std::move(presetNames))
    , m_timing(timing)
    , m_hints{.phrases = {u"Hey Kelva"_s, u"Kelva"_s, u"KelvaLR"_s}, .presetNames = {}}
    , m_silence(timing.mutedAfter)
    , m_nextRetry(timing.firstRetry)
{
    m_restart.setSingleShot(true);
    connect(&m_restart, &QTimer::timeout, this, &WakeWordVoiceService::startRecognition);
}

WakeWordVoiceService::~WakeWordVoiceService()
{
    endCapture();
}

void WakeWordVoiceService::start()
{
    if (!m_isStarting && !m_isCapturing) {
        m_isStarting = true;
        startDetached(begin(++m_attempt));
    }
}

void WakeWordVoiceService::stop()
{
    ++m_attempt;
    m_isStarting = false;
    m_restart.stop();
    endCapture();
}

/// From the user's permission to a capture, unless it is stopped meanwhile.
QCoro::Task<> WakeWordVoiceService::begin(int attempt)
{
    const QPointer<WakeWordVoiceService> self(this);
    const QFuture<QStringList> names = m_presetNames();
    const bool mayListen = co_await areGranted(attempt);
    if (!self || attempt != m_attempt) {
        co_return;
    }
    if (!mayListen) {
        m_isStarting = false;
        m_restart.stop();
        co_return;
    }
    const std::optional<QStringList> presetNames = co_await valueWithin(names, m_timing.presetNames);
    if (!self || attempt != m_attempt) {
        co_return;
    }
    m_isStarting = false;
    m_hints.presetNames = presetNames.value_or(m_hints.presetNames);
    startRecognition();
}

/// Asks for both permissions and says which one is missing.
QCoro::Task<bool> WakeWordVoiceService::areGranted(int attempt)
{
    const QPointer<WakeWordVoiceService> self(this);
    AudioInput &input = m_input;
    const bool isRecognitionGranted = co_await m_recognizer.requestAccess();
    const bool isCaptureGranted = isRecognitionGranted && co_await input.requestAccess();
    if (self && attempt == m_attempt && !isCaptureGranted) {
        emitError(isRecognitionGranted
                      ? u"Microphone permission is required for wake phrase listening."_s
                      : u"Speech recognition permission is required for wake phrase listening."_s);
    }
    co_return isCaptureGranted;
}

void WakeWordVoiceService::startRecognition()
{
    if (m_isCapturing) {
        return;
    }
    m_restart.stop();
    if (const auto begun = beginCapture(); !begun) {
        fail(begun.error());
        return;
    }
    m_isCapturing = true;
    setListening(!m_isMuted);
}

/// Begins a recognition of what the microphone delivers from now on.
std::expected<void, QString> WakeWordVoiceService::beginCapture()
{
    // Without a microphone no recogniser has to be set to work.
    if (const auto format = m_input.format(); !format) {
        return std::unexpected(format.error());
    }
    m_recognition = m_recognizer.recognize(m_hints, resultHandler(++m_capture));
    // The capture ends before the recognition does, and both before this object.
    const auto onBlock = [this, recognition = m_recognition.get()](QByteArrayView samples, qsizetype frames,
                                                                   const AudioFormat &format) {
        if (recognition) {
            recognition->append(samples, frames, format);
        }
        if (const auto change = m_silence.take(samples, frames, format)) {
            QMetaObject::invokeMethod(this, Posted([this, change] { handleSound(*change); }),
                                      Qt::QueuedConnection);
        }
    };
    const auto onFailure = [this](const QString &sentence) {
        m_isCapturing = false;
        fail(sentence);
    };
    return m_input.start(blockFrames, onBlock, onFailure);
}

/// Posts the results of a capture; those that come about after its end are dropped.
SpeechRecognizer::ResultHandler WakeWordVoiceService::resultHandler(int capture)
{
    return [this, capture](SpeechResult result) {
        QMetaObject::invokeMethod(this, Posted([this, capture, result = std::move(result)] {
                                      if (capture == m_capture) {
                                          handleResult(result);
                                      }
                                  }),
                                  Qt::QueuedConnection);
    };
}

void WakeWordVoiceService::endCapture()
{
    if (std::exchange(m_isCapturing, false)) {
        m_input.stop();
    }
    ++m_capture; // what its recognition has posted is no longer wanted
    m_recognition.reset();
    setListening(false);
}

void WakeWordVoiceService::handleResult(const SpeechResult &result)
{
    if (result.text) {
        handleTranscript(*result.text);
    }
    if (result.isFinal && m_isCapturing) {
        endCapture();
        m_restart.start(m_timing.restart);
    }
}

void WakeWordVoiceService::handleTranscript(const QString &transcript)
{
    const std::optional<QString> text = textBehindWakePhrase(transcript);
    if (!text || !m_sameUtterance.hasExpired()) {
        return;
    }
    m_sameUtterance.setRemainingTime(m_timing.sameUtterance, Qt::PreciseTimer);
    endCapture();
    const std::optional<QString> command =
        text->isEmpty() ? std::nullopt : std::optional(withNamesAsWritten(*text, m_hints.presetNames));
    QMetaObject::invokeMethod(
        this,
        [this, command] {
            if (onWake) {
                onWake(command);
            }
        },
        Qt::QueuedConnection);
}

void WakeWordVoiceService::handleSound(SilenceMeter::Change change)
{
    m_isMuted = change == SilenceMeter::Change::fellSilent;
    if (!m_isMuted) {
        m_isTroubleTold = false;
        m_nextRetry = m_timing.firstRetry;
    } else if (m_isCapturing && !m_isTroubleTold && !std::exchange(m_isSilenceTold, true)) {
        emitError(u"The microphone delivers only silence. It may be muted."_s);
    }
    setListening(m_isCapturing && !m_isMuted);
}

/// The microphone does not work, for now. Another one may have taken its place when it is tried again.
void WakeWordVoiceService::fail(const QString &sentence)
{
    if (!std::exchange(m_isTroubleTold, true)) {
        emitError(sentence);
    }
    endCapture();
    m_silence = SilenceMeter(m_timing.mutedAfter);
    m_isMuted = false;
    m_isSilenceTold = false;
    m_restart.start(m_nextRetry);
    m_nextRetry = std::min(2 * m_nextRetry, m_timing.longestRetry);
}

void WakeWordVoiceService::setListening(bool isListening)
{
    if (m_isListening == isListening) {
        return;
    }
    m_isListening = isListening;
    QMetaObject::invokeMethod(
        this,
        [this, isListening] {
            if (onListeningStateChange) {
                onListeningStateChange(isListening);
            }
        },
        Qt::QueuedConnection);
}

void WakeWordVoiceService::emitError(const QString &sentence)
{
    QMetaObject::invokeMethod(
        this,
        [this, sentence] {
            if (onError) {
                onError(sentence);
            }
        },
        Qt::QueuedConnection);
}

} // namespace KelvaLR
