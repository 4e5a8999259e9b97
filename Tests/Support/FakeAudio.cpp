#include "Support/FakeAudio.h"

#include <QCoroTimer>

#include <QTimer>

#include <chrono>
#include <thread>

namespace KelvaLR::Testing {

QCoro::Task<bool> FakeAudioInput::requestAccess()
{
    const bool granted = isAccessGranted;
    co_await QCoro::sleepFor(std::chrono::milliseconds(0));
    co_return granted;
}

std::expected<void, QString> FakeAudioInput::start(qsizetype frames, BlockHandler onBlock,
                                                   FailureHandler onFailure)
{
    stop();
    if (startError) {
        return std::unexpected(*startError);
    }
    ++starts;
    blockFrames = frames;
    m_onBlock = std::move(onBlock);
    m_onFailure = std::move(onFailure);
    return {};
}

void FakeAudioInput::deliver(const QByteArray &samples)
{
    if (m_onBlock) {
        std::jthread([&] { m_onBlock(samples, samples.size() / bytesPerFrame(microphone), microphone); });
    }
}

void FakeAudioInput::fail(const QString &sentence)
{
    QTimer::singleShot(0, &m_reports, [this, sentence, capture = starts] {
        if (isCapturing() && capture == starts) {
            const FailureHandler onFailure = m_onFailure;
            stop();
            onFailure(sentence);
        }
    });
}

std::expected<void, QString> FakeAudioOutput::start(AudioFormat wanted, FinishedHandler onFinished,
                                                    FailureHandler onFailure)
{
    ++m_turn;
    m_isPlaying = false;
    format.reset();
    if (startError) {
        return std::unexpected(*startError);
    }
    format = wanted;
    m_onFinished = std::move(onFinished);
    m_onFailure = std::move(onFailure);
    return {};
}

void FakeAudioOutput::play(QByteArray samples)
{
    if (format) {
        ++m_turn;
        m_isPlaying = true;
        played += samples;
    }
}

void FakeAudioOutput::report(std::function<void()> handler)
{
    QTimer::singleShot(0, &m_reports, [this, handler = std::move(handler), turn = m_turn] {
        if (m_isPlaying && turn == m_turn) {
            m_isPlaying = false;
            handler();
        }
    });
}

} // namespace KelvaLR::Testing
