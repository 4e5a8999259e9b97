#pragma once

#include "Models/RawValue.h"

namespace KelvaLR {

/// A navigation section of the main window.
enum class SidebarSection { chat };

template <>
inline constexpr std::array<RawValueRow<SidebarSection>, 1> rawValueTable<SidebarSection>{{
    {SidebarSection::chat, QLatin1StringView("chat")},
}};

} // namespace KelvaLR
