#pragma once

#include "Services/Lightroom/Language/LightroomComputerUseCommand.h"

#include <optional>

namespace KelvaLR {
class FrontmostApplication;
}

/// The rule-based command language: one sentence in, at most one command out. Stateless.
namespace KelvaLR::LightroomCommandParser {

/// Tries the rules in their order; the first that matches decides. None means that the text is no command
/// that can be carried out locally. The frontmost application matters only to a text that does not itself
/// speak of Lightroom, and only then is it asked for. Main thread, because of that question.
[[nodiscard]] std::optional<LightroomComputerUseCommand> parse(const QString &text,
                                                               const FrontmostApplication &frontmost);

} // namespace KelvaLR::LightroomCommandParser
