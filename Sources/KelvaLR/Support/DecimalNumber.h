#pragma once

#include <QStringView>

#include <optional>

namespace KelvaLR {

/// Reads a text as a number in decimal or exponent notation, whatever the locale. The whole text must be the
/// number: no white space, no "inf", no "nan", no hexadecimal. A number that overflows a double is no number.
[[nodiscard]] std::optional<double> decimalNumber(QStringView text);

/// Truncates toward zero; none when the value is not finite or does not fit a 64-bit integer.
[[nodiscard]] std::optional<qint64> truncatedInteger(double value);

} // namespace KelvaLR
