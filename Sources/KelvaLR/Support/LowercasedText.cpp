#include "Support/LowercasedText.h"

#include <algorithm>

namespace KelvaLR {

namespace {

// The one character whose lower-case form is longer (Unicode's SpecialCasing.txt); none has a shorter one.
constexpr char16_t capitalDottedI = u'\u0130';
constexpr QStringView smallDottedI = u"i\u0307";

} // namespace

QString lowercased(const QString &text)
{
    if (!text.contains(capitalDottedI)) {
        return text.toLower();
    }
    QString grown = text;
    grown.replace(capitalDottedI, smallDottedI.toString());
    return grown.toLower();
}

LowercasedText::LowercasedText(const QString &text)
    : m_text(text)
    , m_lower(lowercased(text))
{
}

qsizetype LowercasedText::position(qsizetype lowerPosition) const
{
    if (m_lower.size() == m_text.size()) {
        return std::clamp<qsizetype>(lowerPosition, 0, m_text.size());
    }
    qsizetype lowerEnd = 0;
    for (qsizetype at = 0; at < m_text.size(); ++at) {
        lowerEnd += m_text.at(at) == capitalDottedI ? smallDottedI.size() : 1;
        if (lowerEnd > lowerPosition) {
            return at;
        }
    }
    return m_text.size();
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
