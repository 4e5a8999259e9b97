#pragma once

#include <QImage>

namespace StandIn {

/// A JPEG, PNG or TIFF, upright, in sRGB and no larger than this. Null when it cannot be read. Any thread.
[[nodiscard]] QImage decodePhoto(const QString &path, QSize largest);

} // namespace StandIn
