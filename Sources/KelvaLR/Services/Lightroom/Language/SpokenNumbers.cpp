#include "Services/Lightroom/Language/SpokenNumbers.h"

#include "Support/LowercasedText.h"
#include "Support/NumberWords.h"

#include <QStringList>

namespace KelvaLR {

namespace {

using namespace NumberWords;
using namespace Qt::StringLiterals;

constexpr QStringView conjunction = u"and";
constexpr QStringView zeroInFraction = u"oh";

/// Behind these, "one" stands for a thing: "this one".
constexpr PhraseList<10> pronounMarkers{
    u"this", u"that", u"the", u"another", u"each", u"every", u"any", u"which", u"last", u"next",
};

/// Reads numbers out of lower-case words, from left to right. What cannot be read leaves the place as it was.
class NumberReader
{
public:
    explicit NumberReader(const QStringList &words)
        : m_words(words)
    {
    }

    /// The number that begins at this word, in digits; empty when none does.
    QString numberAt(qsizetype place)
    {
        m_place = place;
        const auto sign = valueOfWholeText(word(), signTable);
        m_place += sign ? 1 : 0;
        QString number = wholeNumber();
        if (const QString decimals = fraction(); !decimals.isEmpty()) {
            number = (number.isEmpty() ? u"0"_s : number) + u'.' + decimals;
        }
        return sign && !number.isEmpty() ? *sign + number : number;
    }

    /// The word behind the number that was read last.
    [[nodiscard]] qsizetype place() const { return m_place; }

private:
    [[nodiscard]] QStringView word() const
    {
        return m_place < m_words.size() ? QStringView(m_words.at(m_place)) : QStringView();
    }

    [[nodiscard]] bool isAtScale() const { return word() == hundred || word() == thousand; }

    bool take(QStringView expected)
    {
        const bool isThere = word() == expected;
        m_place += isThere ? 1 : 0;
        return isThere;
    }

    /// "seven", "seventeen", "seventy", "seventy seven".
    std::optional<int> belowHundred()
    {
        if (const auto unit = valueOfWholeText(word(), unitTable)) {
            ++m_place;
            return unit;
        }
        const auto tens = valueOfWholeText(word(), tensTable);
        if (!tens) {
            return std::nullopt;
        }
        ++m_place;
        const auto unit = valueOfWholeText(word(), unitTable);
        const bool isPartOfIt = unit && *unit >= 1 && *unit <= 9;
        m_place += isPartOfIt ? 1 : 0;
        return *tens + (isPartOfIt ? *unit : 0);
    }

    /// "fifty five hundred and ten"; a scale alone is one of it.
    std::optional<int> hundreds()
    {
        const auto count = belowHundred();
        return take(hundred) ? count.value_or(1) * 100 + rest(&NumberReader::belowHundred) : count;
    }

    std::optional<int> thousands()
    {
        const auto count = hundreds();
        return take(thousand) ? count.value_or(1) * 1'000 + rest(&NumberReader::hundreds) : count;
    }

    /// What is added to a scale, with "and" or without; 0 when nothing is.
    int rest(std::optional<int> (NumberReader::*read)())
    {
        const qsizetype start = m_place;
        take(conjunction);
        const auto value = (this->*read)();
        m_place = value ? m_place : start;
        return value.value_or(0);
    }

    /// A number, or the parts of one that is spoken in pairs or digit by digit: "fifty two fifty" is 5250.
    QString wholeNumber()
    {
        const auto value = thousands();
        if (!value) {
            return {};
        }
        QString digits = QString::number(*value);
        while (*value < 100) {
            const qsizetype start = m_place;
            const auto more = belowHundred();
            if (!more || isAtScale()) {
                m_place = start;
                break;
            }
            digits += QString::number(*more);
        }
        return digits;
    }

    /// "point seven five"; what is left of it without a digit behind the point is not a fraction.
    QString fraction()
    {
        const qsizetype start = m_place;
        QString digits;
        if (!take(point)) {
            return digits;
        }
        while (true) {
            if (take(zeroInFraction)) {
                digits += u'0';
            } else if (const auto part = belowHundred()) {
                digits += QString::number(*part);
            } else {
                break;
            }
        }
        m_place = digits.isEmpty() ? start : m_place;
        return digits;
    }

    const QStringList &m_words;
    qsizetype m_place = 0;
};

bool isPronoun(const QStringList &words, qsizetype place)
{
    return place > 0 && words.at(place) == u"one" &&
           std::ranges::find(pronounMarkers, words.at(place - 1)) != pronounMarkers.end();
}

} // namespace

QString withSpokenNumbersRead(const QString &text)
{
    const QStringList words = text.split(u' ');
    const QStringList lower = lowercased(text).split(u' ');
    NumberReader reader(lower);
    QStringList read;
    for (qsizetype place = 0; place < words.size();) {
        const QString number = isPronoun(lower, place) ? QString() : reader.numberAt(place);
        read.append(number.isEmpty() ? words.at(place) : number);
        place = number.isEmpty() ? place + 1 : reader.place();
    }
    return read.join(u' ');
}

} // namespace KelvaLR
