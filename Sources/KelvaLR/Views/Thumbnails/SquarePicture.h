#pragma once

#include <QImage>
#include <QRect>

namespace KelvaLR {

/// The largest centred square of a picture of this size.
[[nodiscard]] QRect centreSquare(QSize size);

/// The picture's centre, scaled to fill a square of this side in pixels. Null for a null picture.
[[nodiscard]] QImage squarePicture(const QImage &picture, int side);

} // namespace KelvaLR
