#pragma once

#include <QImage>

class QIODevice;

namespace KelvaLR {

/// In pixels; larger thumbnails are not made.
inline constexpr int largestThumbnailSide = 1024;

/// A photo as a square picture of this side in pixels: scaled and cropped at its centre, upright, in sRGB,
/// premultiplied. What a file is tells its content, not its name. Null when it is missing, no regular file,
/// no photo of a supported format, broken, cut short, unreasonably large, or when reading takes more than a
/// few seconds. Never throws. Any thread, as many at once as you like.
[[nodiscard]] QImage decodeThumbnail(const QString &path, int side);

/// The same for a photo in an open random-access device.
[[nodiscard]] QImage decodeThumbnail(QIODevice &source, int side);

} // namespace KelvaLR
