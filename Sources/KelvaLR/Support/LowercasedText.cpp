#include "Support/LowercasedText.h"

#include <algorithm>

namespace KelvaLR {

LowercasedText::LowercasedText(const QString &text)
    : m_text(text)
    , m_lower(text.toLower())
{
    if (m_lower.size() == m_text.size()) {
        return;
    }
    // Lower-case character by character to learn how long each one became. Context-dependent forms (the final
    // sigma) keep their length, so the positions hold for the copy made of the whole text too.
    for (qsizetype at = 0; at < m_text.size();) {
        const bool isPair =
            m_text.at(at).isHighSurrogate() && at + 1 < m_text.size() && m_text.at(at + 1).isLowSurrogate();
        const qsizetype length = isPair ? 2 : 1;
        const qsizetype lowerLength = m_text.sliced(at, length).toLower().size();
        for (qsizetype unit = 0; unit < lowerLength; ++unit) {
            m_positions.append(at + std::min(unit, length - 1));
        }
        at += length;
    }
}

qsizetype LowercasedText::position(qsizetype lowerPosition) const
{
    if (m_positions.isEmpty()) {
        return std::clamp<qsizetype>(lowerPosition, 0, m_text.size());
    }
    if (lowerPosition >= m_positions.size()) {
        return m_text.size();
    }
    return m_positions.at(std::max<qsizetype>(lowerPosition, 0));
}

QString LowercasedText::textFrom(qsizetype lowerPosition) const
{
    return m_text.sliced(position(lowerPosition));
}

QString LowercasedText::textBetween(qsizetype lowerStart, qsizetype lowerEnd) const
{
    const qsizetype start = position(lowerStart);
    const qsizetype end = position(lowerEnd);
    return end > start ? m_text.sliced(start, end - start) : QString();
}

} // namespace KelvaLR
