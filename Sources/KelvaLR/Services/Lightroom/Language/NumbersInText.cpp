#include "Services/Lightroom/Language/NumbersInText.h"

#include "Support/PhraseTable.h"

namespace KelvaLR {

namespace {

constexpr PhraseList<3> ratingPhrases{u"rate", u"rating", u"star"};

/// The length in code units of the decimal digit at this position; 0 when there is none.
qsizetype digitLength(QStringView text, qsizetype at)
{
    if (at >= text.size()) {
        return 0;
    }
    const QChar first = text.at(at);
    if (first.isHighSurrogate() && at + 1 < text.size() && text.at(at + 1).isLowSurrogate()) {
        return QChar::isDigit(QChar::surrogateToUcs4(first, text.at(at + 1))) ? 2 : 0;
    }
    return first.isDigit() ? 1 : 0;
}

/// The position of the first decimal digit from here on; the text's end when there is none.
qsizetype nextDigit(QStringView text, qsizetype at)
{
    while (at < text.size() && digitLength(text, at) == 0) {
        ++at;
    }
    return at;
}

/// The end of the run of decimal digits that begins here.
qsizetype digitsEnd(QStringView text, qsizetype at)
{
    while (const qsizetype length = digitLength(text, at)) {
        at += length;
    }
    return at;
}

bool isStarBehind(QStringView text)
{
    qsizetype at = 0;
    while (at < text.size() && text.at(at).isSpace()) {
        ++at;
    }
    return text.sliced(at).startsWith(u"star");
}

} // namespace

QStringView firstNumber(QStringView text)
{
    const qsizetype digit = nextDigit(text, 0);
    if (digit == text.size()) {
        return {};
    }
    qsizetype start = digit;
    qsizetype end = digitsEnd(text, digit);
    if (start > 0 && text.at(start - 1) == u'.') {
        --start;
    } else if (end < text.size() && text.at(end) == u'.') {
        const qsizetype fractionEnd = digitsEnd(text, end + 1);
        end = fractionEnd > end + 1 ? fractionEnd : end;
    }
    if (start > 0 && (text.at(start - 1) == u'-' || text.at(start - 1) == u'+')) {
        --start;
    }
    return text.sliced(start, end - start);
}

std::optional<int> firstRating(QStringView lower)
{
    // Both forms of the expression end at the same digit: a match is the first digit from 0 to 5 that either
    // follows a rating word with no other digit between them, or is followed by "star".
    qsizetype wordsStart = 0;
    for (qsizetype at = nextDigit(lower, 0); at < lower.size(); at = nextDigit(lower, wordsStart)) {
        const qsizetype behind = at + digitLength(lower, at);
        const QChar digit = lower.at(at);
        const QStringView words = lower.sliced(wordsStart, at - wordsStart);
        if (digit >= u'0' && digit <= u'5' &&
            (containsAny(words, ratingPhrases) || isStarBehind(lower.sliced(behind)))) {
            return digit.unicode() - u'0';
        }
        wordsStart = behind;
    }
    return std::nullopt;
}

} // namespace KelvaLR
