#pragma once

#include <QImage>

class QIODevice;

namespace KelvaLR {

/// Reads a JPEG, PNG or TIFF as an upright square of this side, only as finely as that needs. `format` is
/// "jpeg", "png" or "tiff"; nothing else is tried. Null when it cannot be read. Any thread.
[[nodiscard]] QImage decodeEncodedPicture(QIODevice &source, const QByteArray &format, int side);

/// Whether the picture itself says that it is stored turned or mirrored. Leaves the source at its beginning.
[[nodiscard]] bool tellsItsOrientation(QIODevice &source, const QByteArray &format);

} // namespace KelvaLR
