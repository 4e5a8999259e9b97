#include "Views/Thumbnails/SquarePicture.h"

#include <algorithm>

namespace KelvaLR {

QRect centreSquare(QSize size)
{
    const int side = std::min(size.width(), size.height());
    return {(size.width() - side) / 2, (size.height() - side) / 2, side, side};
}

QImage squarePicture(const QImage &picture, int side)
{
    return picture.copy(centreSquare(picture.size()))
        .scaled(side, side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace KelvaLR
