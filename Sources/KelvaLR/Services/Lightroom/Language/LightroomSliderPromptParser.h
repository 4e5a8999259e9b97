#pragma once

#include "Services/Lightroom/Language/ParsedLightroomSliderCommand.h"

#include <optional>

/// Recognises requests to move a develop slider, such as "increase exposure by 0.5". Stateless, any thread.
namespace KelvaLR::LightroomSliderPromptParser {

/// Takes the first slider of the table and the first number that the text names. "set" makes the value
/// absolute; otherwise it is a change, whose sign follows words such as "lower" and "raise".
[[nodiscard]] std::optional<ParsedLightroomSliderCommand> parse(const QString &text);

} // namespace KelvaLR::LightroomSliderPromptParser
