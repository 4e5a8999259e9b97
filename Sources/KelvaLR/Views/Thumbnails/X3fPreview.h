#pragma once

#include <QImage>

class QIODevice;

namespace KelvaLR {

/// Reads the preview embedded in an X3F file as an upright square of this side: the smallest JPEG that fills
/// it, else the largest. LibRaw is built without this format. Null when there is none. Any thread.
[[nodiscard]] QImage decodeX3fPreview(QIODevice &source, int side);

} // namespace KelvaLR
