#pragma once

#include <QStringView>

#include <algorithm>
#include <array>
#include <optional>

namespace KelvaLR {

/// An ordered list of lower-case phrases.
template <std::size_t size>
using PhraseList = std::array<QStringView, size>;

/// One row of an ordered table: a lower-case phrase and what it means.
template <typename Value>
struct PhraseRow
{
    QStringView phrase;
    Value value;
};

/// Whether the lower-cased text contains one of the phrases, anywhere, also inside a word.
template <std::size_t size>
[[nodiscard]] bool containsAny(QStringView lower, const PhraseList<size> &phrases)
{
    return std::ranges::any_of(phrases, [&](QStringView phrase) { return lower.contains(phrase); });
}

/// The value of the first row whose phrase the lower-cased text contains.
template <typename Value, std::size_t size>
[[nodiscard]] std::optional<Value> valueOfFirstPhrase(QStringView lower,
                                                      const std::array<PhraseRow<Value>, size> &table)
{
    const auto row =
        std::ranges::find_if(table, [&](const PhraseRow<Value> &r) { return lower.contains(r.phrase); });
    return row == table.end() ? std::nullopt : std::optional(row->value);
}

/// The value of the row whose phrase is the whole lower-cased text.
template <typename Value, std::size_t size>
[[nodiscard]] std::optional<Value> valueOfWholeText(QStringView lower,
                                                    const std::array<PhraseRow<Value>, size> &table)
{
    const auto row = std::ranges::find(table, lower, &PhraseRow<Value>::phrase);
    return row == table.end() ? std::nullopt : std::optional(row->value);
}

} // namespace KelvaLR
