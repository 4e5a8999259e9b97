#include "Views/Thumbnails/EncodedPicture.h"

#include "Views/Thumbnails/PictureLimits.h"
#include "Views/Thumbnails/SquarePicture.h"

#include <QImageReader>

namespace KelvaLR {

namespace {

/// In MiB, for the whole process. Qt's own 256 refuses a TIFF of 45 megapixels with 16 bits a channel, which
/// photographers do export; this lets one of 64 megapixels through.
constexpr int allocationLimit = 512;

void ensureAllocationLimit()
{
    [[maybe_unused]] static const bool isSet = [] {
        QImageReader::setAllocationLimit(allocationLimit);
        return true;
    }();
}

} // namespace

QImage decodeEncodedPicture(QIODevice &source, const QByteArray &format, int side)
{
    ensureAllocationLimit();
    QImageReader reader(&source, format);
    reader.setAutoDetectImageFormat(false);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (size.isEmpty() || qint64{size.width()} * size.height() > largestPicture) {
        return {};
    }
    reader.setClipRect(centreSquare(size));
    reader.setScaledSize({side, side});
    return reader.read();
}

bool tellsItsOrientation(QIODevice &source, const QByteArray &format)
{
    const bool isTold = QImageReader(&source, format).transformation() != QImageIOHandler::TransformationNone;
    source.seek(0);
    return isTold;
}

} // namespace KelvaLR
