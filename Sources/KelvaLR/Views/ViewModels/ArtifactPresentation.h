#pragma once

#include "Models/Artifact.h"

// How the kinds and statuses of artifacts are shown.
namespace KelvaLR {

[[nodiscard]] QString title(ArtifactKind kind);
/// The name of the kind's symbol.
[[nodiscard]] QString symbol(ArtifactKind kind);
[[nodiscard]] QString title(ArtifactStatus status);

} // namespace KelvaLR
