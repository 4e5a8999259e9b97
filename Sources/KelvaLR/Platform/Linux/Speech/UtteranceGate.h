#pragma once

#include <QtGlobal>

#include <chrono>
#include <span>
#include <vector>

namespace KelvaLR {

/// When an utterance is taken to have begun and ended.
struct UtteranceTiming
{
    std::chrono::milliseconds lead{300};      ///< kept from before the first sound of it
    std::chrono::milliseconds pause{200};     ///< of quiet, after which it may have ended
    std::chrono::milliseconds end{600};       ///< of quiet, after which it has ended
    std::chrono::milliseconds longest{15000}; ///< somebody who talks without a pause is cut here
};

/// Cuts a stream of sound into utterances by its loudness, so that nothing needs to be decoded in silence.
/// What the loudness comes
/// down to within some seconds is the background. Samples are signed 16-bit integers, one channel, 16 kHz.
/// Any one thread.
class UtteranceGate
{
public:
    static constexpr int sampleRate = 16'000;
    static constexpr std::size_t frameLength = sampleRate / 100; ///< samples a frame: 10 ms

    enum class Step {
        none,
        paused,  ///< the utterance may be whole
        resumed, ///< it was not
        ended,   ///< it is whole; the next frame is not a part of it
    };

    explicit UtteranceGate(UtteranceTiming timing = {});

    /// Takes one frame.
    Step take(std::span<const qint16> frame);

    /// What has been heard of the utterance under way, or, when it has just ended, of that one.
    [[nodiscard]] const std::vector<qint16> &utterance() const { return m_samples; }

private:
    [[nodiscard]] bool isLoud(std::span<const qint16> frame);
    void follow(double level);
    void keepLead();
    Step stepOfQuiet();

    UtteranceTiming m_timing;
    std::vector<qint16> m_samples;
    std::vector<double> m_levels; ///< of the last seconds, the mean of each tenth, the latest last
    int m_framesOfPart = 0;       ///< in the latest of them
    double m_background = 0;
    double m_level = 0; ///< smoothed over some frames
    bool m_isOpen = false;
    bool m_hasEnded = false;
    int m_loudFrames = 0;  ///< one after the other, while it is closed
    int m_quietFrames = 0; ///< one after the other, while it is open
};

} // namespace KelvaLR
