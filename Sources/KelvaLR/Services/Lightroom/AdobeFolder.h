#pragma once

#include <QString>

namespace KelvaLR {

/// Where Adobe's programs keep what belongs to the user, whether or not it exists.
[[nodiscard]] QString adobeFolder();

} // namespace KelvaLR
