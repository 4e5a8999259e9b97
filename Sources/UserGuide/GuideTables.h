#pragma once

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace KelvaLR::UserGuide {

/// A part of the guide that is made from the tables of the code.
struct GuideTable
{
    QLatin1StringView name; ///< between the guide's markers
    QString (*markdown)();
};

[[nodiscard]] std::span<const GuideTable> guideTables();

} // namespace KelvaLR::UserGuide
