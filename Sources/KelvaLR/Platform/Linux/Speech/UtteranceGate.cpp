#include "Platform/Linux/Speech/UtteranceGate.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace KelvaLR {

namespace {

// Levels are in decibels of full scale.
constexpr double quietest = -60; ///< a background below this counts as this
constexpr double aboveBackground =
    7;                            ///< how much louder speech is; less, and the fan of a computer is speech
constexpr double smoothing = 0.3; ///< the weight of the newest frame
constexpr int framesToOpen = 8;   ///< a click is shorter

// Nobody speaks for this long without a breath or a gap between words.
constexpr std::size_t partsRemembered = 30;
constexpr int framesOfPart = 10;

double decibels(std::span<const qint16> frame)
{
    const double energy = std::transform_reduce(frame.begin(), frame.end(), 0.0, std::plus<>(),
                                                [](qint16 sample) { return double{1} * sample * sample; });
    constexpr double fullScale = 32'768.0 * 32'768.0;
    return 10 * std::log10(energy / static_cast<double>(frame.size()) / fullScale + 1e-10);
}

int frames(std::chrono::milliseconds time)
{
    return static_cast<int>(time.count() / 10);
}

} // namespace

UtteranceGate::UtteranceGate(UtteranceTiming timing)
    : m_timing(timing)
{
}

UtteranceGate::Step UtteranceGate::take(std::span<const qint16> frame)
{
    if (m_hasEnded) {
        m_hasEnded = false;
        m_samples.clear();
    }
    m_samples.insert(m_samples.end(), frame.begin(), frame.end());
    const bool isLoud = this->isLoud(frame);
    if (!m_isOpen) {
        m_loudFrames = isLoud ? m_loudFrames + 1 : 0;
        m_isOpen = m_loudFrames >= framesToOpen;
        m_quietFrames = 0;
        keepLead();
        return Step::none;
    }
    const bool wasPaused = m_quietFrames >= frames(m_timing.pause);
    m_quietFrames = isLoud ? 0 : m_quietFrames + 1;
    if (isLoud && wasPaused) {
        return Step::resumed;
    }
    return stepOfQuiet();
}

UtteranceGate::Step UtteranceGate::stepOfQuiet()
{
    const auto length = static_cast<int>(m_samples.size() / frameLength);
    if (m_quietFrames >= frames(m_timing.end) || length >= frames(m_timing.longest)) {
        m_isOpen = false;
        m_hasEnded = true;
        m_loudFrames = 0;
        return Step::ended;
    }
    return m_quietFrames == frames(m_timing.pause) ? Step::paused : Step::none;
}

bool UtteranceGate::isLoud(std::span<const qint16> frame)
{
    const double level = std::max(decibels(frame), quietest);
    m_level = m_lowest.empty() ? level : m_level + smoothing * (level - m_level);
    follow(m_level);
    return m_level > background() + aboveBackground;
}

void UtteranceGate::follow(double level)
{
    if (m_lowest.empty() || m_framesOfLowest == framesOfPart) {
        if (m_lowest.size() == partsRemembered) {
            m_lowest.erase(m_lowest.begin());
        }
        m_lowest.push_back(level);
        m_framesOfLowest = 0;
    }
    m_lowest.back() = std::min(m_lowest.back(), level);
    ++m_framesOfLowest;
}

double UtteranceGate::background() const
{
    return *std::ranges::min_element(m_lowest);
}

void UtteranceGate::keepLead()
{
    const std::size_t kept = static_cast<std::size_t>(frames(m_timing.lead)) * frameLength;
    if (!m_isOpen && m_samples.size() > kept) {
        m_samples.erase(m_samples.begin(), m_samples.end() - static_cast<std::ptrdiff_t>(kept));
    }
}

} // namespace KelvaLR
