#include "Support/DecimalNumber.h"

#include <QByteArray>

#include <algorithm>
#include <charconv>
#include <locale>
#include <sstream>
#include <string>

namespace KelvaLR {

namespace {

bool isDecimalCharacter(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.' || c == u'e' || c == u'E';
}

/// from_chars reports numbers too large and too small alike; only one too small rounds to zero.
std::optional<double> valueOutOfRange(const std::string &digits)
{
    std::istringstream stream(digits);
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    return stream.fail() ? std::nullopt : std::optional(value);
}

} // namespace

std::optional<double> decimalNumber(QStringView text)
{
    if (text.isEmpty() || !std::ranges::all_of(text, isDecimalCharacter)) {
        return std::nullopt;
    }
    const QByteArray digits = text.toLatin1();
    const char *first = digits.constData();
    const char *const last = first + digits.size();
    if (*first == '+' && last - first > 1 && first[1] != '-') {
        ++first; // from_chars takes no plus sign
    }
    double value = 0;
    const auto [end, error] = std::from_chars(first, last, value, std::chars_format::general);
    if (end != last || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range) {
        return valueOutOfRange({first, last});
    }
    return value;
}

std::optional<qint64> truncatedInteger(double value)
{
    constexpr double limit = 9223372036854775808.0; // 2^63, the first value past a 64-bit integer
    if (!(value >= -limit && value < limit)) {
        return std::nullopt;
    }
    return static_cast<qint64>(value);
}

} // namespace KelvaLR
