#pragma once

#include "Services/Lightroom/Language/ParsedLightroomSliderCommand.h"

#include <QList>
#include <QString>

#include <optional>

namespace KelvaLR {

/// The items of an adjustments string ("Slider:Value:Relative" separated by ";", Relative 1 or 0) that have
/// three parts; an item whose value is no number is there, but empty.
[[nodiscard]] QList<std::optional<ParsedLightroomSliderCommand>>
parsedSliderAdjustments(const QString &adjustments);

} // namespace KelvaLR
