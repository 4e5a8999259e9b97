#include "Support/TextTrimming.h"

namespace KelvaLR {

namespace {

template <typename Predicate>
QStringView trimmedWhere(QStringView text, Predicate isTrimmed)
{
    while (!text.isEmpty() && isTrimmed(text.front())) {
        text = text.sliced(1);
    }
    while (!text.isEmpty() && isTrimmed(text.back())) {
        text.chop(1);
    }
    return text;
}

} // namespace

QString trimmedWhitespace(QStringView text)
{
    return text.trimmed().toString();
}

QString trimmedPunctuation(QStringView text)
{
    return trimmedWhere(text, [](QChar c) { return QStringView(u" .,!?\n\t").contains(c); }).toString();
}

QString stripMatchingQuotes(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    const auto isQuotedBy = [&](QChar quote) { return trimmed.front() == quote && trimmed.back() == quote; };
    if (trimmed.size() >= 2 && (isQuotedBy(u'"') || isQuotedBy(u'\''))) {
        return trimmed.sliced(1, trimmed.size() - 2).toString();
    }
    return trimmed.toString();
}

} // namespace KelvaLR
