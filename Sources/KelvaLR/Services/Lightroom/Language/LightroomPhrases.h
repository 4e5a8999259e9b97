#pragma once

#include "Support/LowercasedText.h"

#include <QString>

#include <optional>

// The phrases that a command to Lightroom and a request about imported photos have in common.

namespace KelvaLR {

/// The folder that a request to import photos names: everything behind the marker, as the user wrote it.
[[nodiscard]] std::optional<QString> importFolderPath(const LowercasedText &request);

/// What stands behind "apply preset " and its like, made a name by `cleanName`; the first phrase with a
/// non-empty name decides.
[[nodiscard]] std::optional<QString> nameBehindPresetMarker(const LowercasedText &request,
                                                            QString (*cleanName)(const QString &));

/// The text without this lower-case prefix, in whatever case it was written; none when it has another.
[[nodiscard]] std::optional<QString> withoutPrefix(const LowercasedText &text, QStringView prefix);

/// The text without this lower-case suffix, in whatever case it was written; none when it has another.
[[nodiscard]] std::optional<QString> withoutSuffix(const LowercasedText &text, QStringView suffix);

} // namespace KelvaLR
