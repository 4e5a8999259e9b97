#pragma once

#include "Models/Artifact.h"

#include <optional>

namespace KelvaLR {

/// The answer of every executed command: the sentence that is shown and read aloud, and a card if there is
/// one.
struct ComputerUseResult
{
    QString summary;
    std::optional<Artifact> artifact;

    bool operator==(const ComputerUseResult &) const = default;
};

} // namespace KelvaLR
