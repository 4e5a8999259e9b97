#pragma once

#include "Models/RawValue.h"

#include <expected>

namespace KelvaLR {

/// The sections that a system action may name.
enum class KelvaLRSectionIntentValue { chat };

template <>
inline constexpr std::array<RawValueRow<KelvaLRSectionIntentValue>, 1>
    rawValueTable<KelvaLRSectionIntentValue>{{
        {KelvaLRSectionIntentValue::chat, QLatin1StringView("chat")},
    }};

inline constexpr QLatin1StringView sectionTypeTitle{"KelvaLR Section"};

/// What the user sees instead of the raw string.
[[nodiscard]] constexpr QLatin1StringView displayName(KelvaLRSectionIntentValue section)
{
    switch (section) {
    case KelvaLRSectionIntentValue::chat:
        return QLatin1StringView("Lightroom");
    }
    return {};
}

/// The section with this raw string, or one sentence that says which there are.
[[nodiscard]] std::expected<KelvaLRSectionIntentValue, QString> sectionNamed(const QString &name);

} // namespace KelvaLR
