#pragma once

#include "Models/AudioFormat.h"

#include <QCoroTask>

#include <QByteArrayView>
#include <QString>
#include <QStringList>

#include <expected>
#include <functional>
#include <memory>
#include <optional>

namespace KelvaLR {

/// What a recogniser may expect to hear beside the command language.
struct SpeechHints
{
    QStringList phrases;     ///< in their usual spelling, such as "Hey Kelva"
    QStringList presetNames; ///< develop presets that the user may ask for by name

    bool operator==(const SpeechHints &) const = default;
};

/// What a recognition reports: words, its end, or both. Numbers and punctuation are spelled out in words, so
/// that a text whose punctuation is taken away keeps its meaning ("zero point five").
struct SpeechResult
{
    std::optional<QString> text; ///< what has been understood of the utterance so far; none with a failure
    bool isFinal = false;        ///< the recognition has ended by itself, well or with a failure

    bool operator==(const SpeechResult &) const = default;
};

/// One recognition under way. Its end cancels it: once the destructor has returned, nothing is reported.
class SpeechRecognition
{
public:
    SpeechRecognition() = default;
    virtual ~SpeechRecognition() = default;
    Q_DISABLE_COPY_MOVE(SpeechRecognition)

    /// Takes one block of interleaved samples. The audio thread: it neither waits nor allocates unduly. The
    /// samples are gone when it returns.
    virtual void append(QByteArrayView samples, qsizetype frames, const AudioFormat &format) = 0;
};

/// Port: speech in English turned into text, on the device. Main thread, which it never holds up.
class SpeechRecognizer
{
public:
    /// Called on a thread of the recogniser.
    using ResultHandler = std::function<void(SpeechResult result)>;

    SpeechRecognizer() = default;
    virtual ~SpeechRecognizer() = default;
    Q_DISABLE_COPY_MOVE(SpeechRecognizer)

    /// Asks the user where the system wants that; false when recognition is denied.
    virtual QCoro::Task<bool> requestAccess() = 0;

    /// Begins a recognition at once; what is appended while the models are still loaded is not lost. An
    /// utterance with a wake phrase in it is reported once, when it has ended, so that the command behind the
    /// phrase is whole; partial results are reported of others. Null where this system has no recogniser.
    [[nodiscard]] virtual std::unique_ptr<SpeechRecognition> recognize(const SpeechHints &hints,
                                                                       ResultHandler onResult) = 0;
};

} // namespace KelvaLR
