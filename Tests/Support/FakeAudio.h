#pragma once

#include "Platform/AudioInput.h"
#include "Platform/AudioOutput.h"

#include <QObject>

#include <optional>

// Test doubles of the microphone and the speaker. As with the real ones, blocks come on another thread, and
// what is reported comes on a later turn of the event loop.

namespace KelvaLR::Testing {

/// A microphone that captures what the test gives it.
class FakeAudioInput final : public AudioInput
{
public:
    QCoro::Task<bool> requestAccess() override;

    std::expected<AudioFormat, QString> format() override
    {
        return startError ? std::expected<AudioFormat, QString>(std::unexpect, *startError) : microphone;
    }

    std::expected<void, QString> start(qsizetype blockFrames, BlockHandler onBlock,
                                       FailureHandler onFailure) override;

    void stop() override
    {
        m_onBlock = {};
        m_onFailure = {};
    }

    [[nodiscard]] bool isCapturing() const { return static_cast<bool>(m_onBlock); }

    /// Hands one block over on a thread of its own and comes back once it has been handled.
    void deliver(const QByteArray &samples);

    /// The microphone goes away.
    void fail(const QString &sentence);

    bool isAccessGranted = true;
    AudioFormat microphone{48'000, 1, AudioFormat::SampleType::float32};
    std::optional<QString> startError; ///< also that of the format
    qsizetype blockFrames = 0;         ///< of the latest start
    int starts = 0;

private:
    BlockHandler m_onBlock;
    FailureHandler m_onFailure;
    QObject m_reports; ///< ends them with us
};

/// A speaker that writes down what it is given; the test says when it has been heard.
class FakeAudioOutput final : public AudioOutput
{
public:
    std::expected<void, QString> start(AudioFormat format, FinishedHandler onFinished,
                                       FailureHandler onFailure) override;
    void play(QByteArray samples) override;

    void stop() override
    {
        ++m_turn;
        ++stops;
        m_isPlaying = false;
    }

    bool isPlaying() const override { return m_isPlaying; }

    /// Everything has been heard, unless more is played or all is stopped before this is reported.
    void finish()
    {
        report([this] { m_onFinished(); });
    }

    /// The speaker goes away.
    void fail(const QString &sentence)
    {
        report([this, sentence] { m_onFailure(sentence); });
    }

    std::optional<AudioFormat> format; ///< of the latest start
    std::optional<QString> startError;
    QByteArray played; ///< since the first start, whether heard or dropped
    int stops = 0;

private:
    void report(std::function<void()> handler);

    bool m_isPlaying = false;
    int m_turn = 0; ///< the latest play or stop
    FinishedHandler m_onFinished;
    FailureHandler m_onFailure;
    QObject m_reports; ///< ends them with us
};

} // namespace KelvaLR::Testing
