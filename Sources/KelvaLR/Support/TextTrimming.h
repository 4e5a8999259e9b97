#pragma once

#include <QString>

namespace KelvaLR {

/// Removes Unicode white space and line breaks from both ends.
[[nodiscard]] QString trimmedWhitespace(QStringView text);

/// Removes blank, full stop, comma, exclamation mark, question mark, line feed and tab from both ends.
[[nodiscard]] QString trimmedPunctuation(QStringView text);

/// Trims white space and then removes one pair of double or single quotes around the rest. What stood inside
/// the quotes is not trimmed again.
[[nodiscard]] QString stripMatchingQuotes(QStringView text);

} // namespace KelvaLR
