#pragma once

#include <QImage>

class QIODevice;

namespace KelvaLR {

/// Reads the preview that a camera embedded in its RAW file as an upright square of this side. A file without
/// any preview is developed at half its size. Null when neither can be read. Any thread.
[[nodiscard]] QImage decodeRawPhoto(QIODevice &source, int side);

} // namespace KelvaLR
