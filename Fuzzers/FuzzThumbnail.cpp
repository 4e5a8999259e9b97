// Any bytes give a picture of the side asked for or none, within the time that a decoder may take.

#include "FuzzedText.h"

#include "Views/Thumbnails/ThumbnailDecoder.h"

#include <QBuffer>
#include <QLoggingCategory>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    constexpr int side = 64;
    QLoggingCategory::setFilterRules(QLatin1StringView("*=false")); // broken pictures are what this is about
    QBuffer photo;
    photo.setData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    photo.open(QIODevice::ReadOnly);
    const QImage picture = KelvaLR::decodeThumbnail(photo, side);
    KelvaLR::Fuzzing::require(picture.isNull() || picture.size() == QSize(side, side));
    return 0;
}
