#pragma once

#include <QStringView>

#include <optional>

namespace KelvaLR {

/// The first match of `[-+]?(?:\d+(?:\.\d+)?|\.\d+)`, where `\d` is a decimal digit of any script; empty when
/// there is none. Found by hand in one pass: the regular expression engine matches nothing at all in a text
/// with a lone surrogate.
[[nodiscard]] QStringView firstNumber(QStringView text);

/// The digit of the first match of `(?:rate|rating|stars?|star)\D*([0-5])|([0-5])\s*(?:stars?|star)` in a
/// lower-cased text. One pass over the text, where the expression would scan to its end once for every
/// "star".
[[nodiscard]] std::optional<int> firstRating(QStringView lower);

} // namespace KelvaLR
