#pragma once

#include <QString>

namespace KelvaLR {

/// A text in which the numbers that it spells out stand as digits: "minus zero point five" becomes "-0.5",
/// "fifty five hundred" becomes "5500". Everything else stays as it was. Words are separated by single
/// blanks.
[[nodiscard]] QString withSpokenNumbersRead(const QString &text);

} // namespace KelvaLR
