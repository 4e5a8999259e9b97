#pragma once

#include <QString>

#include <expected>

namespace StandIn {

/// Paints a set of landscapes as JPEG files into a folder, which is made if need be. A folder that holds a
/// photo already is left as it is. The error is a finished sentence.
[[nodiscard]] std::expected<void, QString> paintSamplePhotos(const QString &folder);

} // namespace StandIn
