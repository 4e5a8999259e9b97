#include "Services/Speech/SilenceMeter.h"

#include <algorithm>

namespace KelvaLR {

namespace {

bool isSilent(QByteArrayView samples, const AudioFormat &format)
{
    const char zero = format.sample == AudioFormat::SampleType::unsigned8 ? '\x80' : '\0';
    return std::ranges::all_of(samples, [zero](char byte) { return byte == zero; });
}

} // namespace

std::optional<SilenceMeter::Change> SilenceMeter::take(QByteArrayView samples, qsizetype frames,
                                                       const AudioFormat &format)
{
    Change change = Change::wasHeard;
    if (isSilent(samples, format)) {
        m_zeros += std::chrono::duration<double>(static_cast<double>(frames) / format.sampleRate);
        if (m_zeros < m_limit) {
            return std::nullopt;
        }
        change = Change::fellSilent;
    } else {
        m_zeros = m_zeros.zero();
    }
    if (m_latest == change) {
        return std::nullopt;
    }
    m_latest = change;
    return change;
}

} // namespace KelvaLR
