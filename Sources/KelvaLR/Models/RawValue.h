#pragma once

#include <QLatin1StringView>
#include <QString>

#include <array>
#include <optional>

namespace KelvaLR {

/// One row of an enumeration's table: the case and its raw string.
template <typename Enum>
struct RawValueRow
{
    Enum value;
    QLatin1StringView raw;
};

/// The table of an enumeration, in the order of its cases; every enumeration with raw strings specialises it.
template <typename Enum>
inline constexpr std::array<RawValueRow<Enum>, 0> rawValueTable{};

/// The raw string of a case.
template <typename Enum>
[[nodiscard]] QString rawValue(Enum value)
{
    for (const auto &row : rawValueTable<Enum>) {
        if (row.value == value) {
            return row.raw;
        }
    }
    return {};
}

/// The case with this raw string, compared exactly.
template <typename Enum>
[[nodiscard]] std::optional<Enum> fromRawValue(QStringView raw)
{
    for (const auto &row : rawValueTable<Enum>) {
        if (raw == row.raw) {
            return row.value;
        }
    }
    return std::nullopt;
}

} // namespace KelvaLR
