#pragma once

#include "Models/RawValue.h"

namespace KelvaLR {

/// Which chat backend is in use.
enum class AssistantProviderKind { openAI };

template <>
inline constexpr std::array<RawValueRow<AssistantProviderKind>, 1> rawValueTable<AssistantProviderKind>{{
    {AssistantProviderKind::openAI, QLatin1StringView("openAI")},
}};

} // namespace KelvaLR
