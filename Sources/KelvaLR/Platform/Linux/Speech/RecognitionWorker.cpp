#include "Platform/Linux/Speech/RecognitionWorker.h"

#include <QLoggingCategory>

#include <cstring>

namespace KelvaLR {

RecognitionWorker::RecognitionWorker(SpeechModelFiles files)
    : m_files(std::move(files))
{
}

RecognitionWorker::~RecognitionWorker() = default;

void RecognitionWorker::begin(const std::shared_ptr<RecognitionChannel> &channel,
                              const QStringList &presetNames)
{
    m_channel = channel;
    m_gate = UtteranceGate();
    m_rest.clear();
    m_isDecoded = false;
    if (m_decoder && m_presetNames == presetNames) {
        return;
    }
    auto decoder = CommandDecoder::make(m_files, presetNames);
    if (!decoder) {
        qWarning("%s", qPrintable(decoder.error()));
        return;
    }
    m_decoder = *std::move(decoder);
    m_presetNames = presetNames;
}

void RecognitionWorker::take(const std::shared_ptr<RecognitionChannel> &channel, const QByteArray &pcm)
{
    channel->waiting -= pcm.size();
    if (channel != m_channel || !m_decoder || !channel->isOpen()) {
        return;
    }
    const std::size_t known = m_rest.size();
    m_rest.resize(known + static_cast<std::size_t>(pcm.size()) / sizeof(qint16));
    std::memcpy(m_rest.data() + known, pcm.constData(), (m_rest.size() - known) * sizeof(qint16));

    std::span<const qint16> samples(m_rest);
    while (samples.size() >= UtteranceGate::frameLength) {
        step(samples.first(UtteranceGate::frameLength));
        samples = samples.subspan(UtteranceGate::frameLength);
    }
    m_rest.erase(m_rest.begin(), m_rest.end() - static_cast<std::ptrdiff_t>(samples.size()));
}

/// An utterance is decoded while it pauses, so that its end can be answered at once.
void RecognitionWorker::step(std::span<const qint16> frame)
{
    switch (m_gate.take(frame)) {
    case UtteranceGate::Step::none:
        return;
    case UtteranceGate::Step::resumed:
        m_isDecoded = false;
        return;
    case UtteranceGate::Step::paused:
        decode();
        return;
    case UtteranceGate::Step::ended:
        if (!m_isDecoded) {
            decode();
        }
        m_isDecoded = false;
        if (m_understood) {
            m_channel->report({.text = m_understood->text, .isFinal = false});
        }
        return;
    }
}

void RecognitionWorker::decode()
{
    m_understood = m_decoder->decode(m_gate.utterance(), [this] { return m_channel->isOpen(); });
    if (m_understood && !CommandDecoder::isConvincing(*m_understood)) {
        m_understood.reset();
    }
    m_isDecoded = true;
}

} // namespace KelvaLR
