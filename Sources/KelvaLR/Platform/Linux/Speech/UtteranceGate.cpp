#include "Platform/Linux/Speech/UtteranceGate.h"

#include <algorithm>
#include <cmath>

namespace KelvaLR {

namespace {

// Levels are in decibels of full scale, of the changes from sample to sample: what rooms and computers hum
// with changes slowly, speech does not.
constexpr double quietest = -75; ///< a background below this counts as this
constexpr double aboveBackground =
    7;                            ///< how much louder speech is; less, and the fan of a computer is speech
constexpr double smoothing = 0.3; ///< the weight of the newest frame
constexpr int framesToOpen = 8;   ///< a click is shorter

// Of any three seconds, speech leaves a fifth to breath and the gaps between words.
constexpr std::size_t partsRemembered = 30;
constexpr int framesOfPart = 10;
constexpr std::size_t quietPart = 5;

double decibels(std::span<const qint16> frame)
{
    double energy = 0;
    for (std::size_t at = 1; at < frame.size(); ++at) {
        const double change = double{1} * frame[at] - frame[at - 1];
        energy += change * change;
    }
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
    m_level = m_levels.empty() ? level : m_level + smoothing * (level - m_level);
    follow(m_level);
    return m_level > m_background + aboveBackground;
}

void UtteranceGate::follow(double level)
{
    if (m_levels.empty() || m_framesOfPart == framesOfPart) {
        if (m_levels.size() == partsRemembered) {
            m_levels.erase(m_levels.begin());
        }
        m_levels.push_back(0);
        m_framesOfPart = 0;
    }
    ++m_framesOfPart;
    m_levels.back() += (level - m_levels.back()) / m_framesOfPart;

    std::vector<double> sorted = m_levels;
    const auto quiet = sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / quietPart);
    std::ranges::nth_element(sorted, quiet);
    m_background = *quiet;
}

void UtteranceGate::keepLead()
{
    const std::size_t kept = static_cast<std::size_t>(frames(m_timing.lead)) * frameLength;
    if (!m_isOpen && m_samples.size() > kept) {
        m_samples.erase(m_samples.begin(), m_samples.end() - static_cast<std::ptrdiff_t>(kept));
    }
}

} // namespace KelvaLR
