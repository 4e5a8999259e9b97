#pragma once

#include "Platform/Linux/Speech/CommandDecoder.h"
#include "Platform/Linux/Speech/UtteranceGate.h"
#include "Platform/SpeechRecognizer.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <mutex>

namespace KelvaLR {

/// What a recognition and the worker share.
class RecognitionChannel
{
public:
    explicit RecognitionChannel(SpeechRecognizer::ResultHandler onResult)
        : m_onResult(std::move(onResult))
    {
    }

    void report(const SpeechResult &result)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_onResult) {
            m_onResult(result);
        }
    }

    /// Once this has returned, nothing is reported any more.
    void close()
    {
        const std::scoped_lock lock(m_mutex);
        m_onResult = nullptr;
    }

    [[nodiscard]] bool isOpen()
    {
        const std::scoped_lock lock(m_mutex);
        return static_cast<bool>(m_onResult);
    }

    std::atomic<qsizetype> waiting = 0; ///< bytes on their way to the worker

private:
    std::mutex m_mutex;
    SpeechRecognizer::ResultHandler m_onResult;
};

/// Cuts what comes into utterances and decodes them. The thread to which it belongs.
class RecognitionWorker : public QObject
{
    Q_OBJECT
public:
    explicit RecognitionWorker(SpeechModelFiles files);
    ~RecognitionWorker() override;

    /// The recognition whose sound comes from now on. Loads the models when they are not loaded, or when the
    /// names have changed: about a second.
    void begin(const std::shared_ptr<RecognitionChannel> &channel, const QStringList &presetNames);

    /// Samples as the gate takes them, in the byte order of this machine.
    void take(const std::shared_ptr<RecognitionChannel> &channel, const QByteArray &pcm);

private:
    void step(std::span<const qint16> frame);
    void decode();

    SpeechModelFiles m_files;
    std::unique_ptr<CommandDecoder> m_decoder;
    QStringList m_presetNames;
    std::shared_ptr<RecognitionChannel> m_channel;
    UtteranceGate m_gate;
    std::vector<qint16> m_rest;                   ///< less than a frame
    std::optional<DecodedUtterance> m_understood; ///< of the utterance under way, up to its pause
    bool m_isDecoded = false;                     ///< nothing has been said since then
};

} // namespace KelvaLR
