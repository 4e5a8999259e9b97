#pragma once

#include <QImage>

class QIODevice;

namespace KelvaLR {

/// Reads an HEIC or HEIF photo as an upright square of this side: from its embedded thumbnail where that is
/// large enough, else from the photo itself. Null when it cannot be read. Any thread.
[[nodiscard]] QImage decodeHeifPicture(QIODevice &source, int side);

} // namespace KelvaLR
