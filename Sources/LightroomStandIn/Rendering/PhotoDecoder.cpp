#include "Rendering/PhotoDecoder.h"

#include <QColorSpace>
#include <QImageReader>

namespace StandIn {

QImage decodePhoto(const QString &path, QSize largest)
{
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize bounds = isTurned ? largest.transposed() : largest;
    const QSize stored = reader.size();
    if (stored.width() > bounds.width() || stored.height() > bounds.height()) {
        reader.setScaledSize(stored.scaled(bounds, Qt::KeepAspectRatio).expandedTo({1, 1}));
    }
    QImage photo = reader.read();
    if (photo.colorSpace().isValid()) {
        photo.convertToColorSpace(QColorSpace::SRgb);
    }
    return photo;
}

} // namespace StandIn
