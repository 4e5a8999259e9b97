#include "Views/Thumbnails/RawPhoto.h"

#include "Views/Thumbnails/EncodedPicture.h"
#include "Views/Thumbnails/PictureLimits.h"
#include "Views/Thumbnails/RawStream.h"
#include "Views/Thumbnails/SquarePicture.h"

#include <QBuffer>
#include <QTransform>

#include <libraw/libraw.h>

#include <memory>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

/// The bits of LibRaw's `flip`: first the stored picture is mirrored, then its axes are exchanged.
constexpr int mirroredHorizontally = 1;
constexpr int mirroredVertically = 2;
constexpr int axesExchanged = 4;

QImage upright(const QImage &picture, int flip)
{
    const QImage mirrored = picture.mirrored(flip & mirroredHorizontally, flip & mirroredVertically);
    return flip & axesExchanged ? mirrored.transformed(QTransform().rotate(90)).mirrored(true, false)
                                : mirrored;
}

/// Some cameras write the orientation into the preview, too; then it has been followed already.
QImage jpegPreview(const libraw_thumbnail_t &preview, int flip, int side)
{
    QByteArray bytes = QByteArray::fromRawData(preview.thumb, preview.tlength);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const bool isTold = tellsItsOrientation(buffer, "jpeg"_ba);
    const QImage picture = decodeEncodedPicture(buffer, "jpeg"_ba, side);
    return isTold ? picture : upright(picture, flip);
}

QImage bitmapPreview(const libraw_thumbnail_t &preview, int flip, int side)
{
    constexpr int channels = 3;
    const qint64 stride = qint64{preview.twidth} * channels;
    if (preview.tlength < stride * preview.theight) {
        return {};
    }
    const auto *pixels = reinterpret_cast<const uchar *>(preview.thumb);
    const QImage view(pixels, preview.twidth, preview.theight, stride, QImage::Format_RGB888);
    return upright(squarePicture(view, side), flip);
}

/// The camera's colours at half the size, where four sensor cells make one pixel and nothing is interpolated.
QImage developed(LibRaw &raw, int side)
{
    const libraw_image_sizes_t &sizes = raw.imgdata.sizes;
    if (qint64{sizes.raw_width} * sizes.raw_height > largestPicture) {
        return {};
    }
    raw.imgdata.params.half_size = 1;
    raw.imgdata.params.use_camera_wb = 1;
    if (raw.unpack() != LIBRAW_SUCCESS || raw.dcraw_process() != LIBRAW_SUCCESS) {
        return {};
    }
    const std::unique_ptr<libraw_processed_image_t, decltype(&LibRaw::dcraw_clear_mem)> image(
        raw.dcraw_make_mem_image(), LibRaw::dcraw_clear_mem);
    if (!image || image->type != LIBRAW_IMAGE_BITMAP || image->bits != 8) {
        return {};
    }
    const auto format = image->colors == 1 ? QImage::Format_Grayscale8 : QImage::Format_RGB888;
    const QImage view(image->data, image->width, image->height, qsizetype{image->width} * image->colors,
                      format);
    return squarePicture(view, side);
}

} // namespace

QImage decodeRawPhoto(QIODevice &source, int side)
{
    RawStream stream(source);
    const auto raw = std::make_unique<LibRaw>(); // too large for a thread's stack
    raw->set_dataerror_handler(nullptr, nullptr);
    if (raw->open_datastream(&stream) != LIBRAW_SUCCESS) {
        return {};
    }
    const int status = raw->unpack_thumb();
    const libraw_thumbnail_t &preview = raw->imgdata.thumbnail;
    if (status == LIBRAW_NO_THUMBNAIL || status == LIBRAW_UNSUPPORTED_THUMBNAIL) {
        return developed(*raw, side);
    }
    if (status != LIBRAW_SUCCESS) {
        return {};
    }
    switch (preview.tformat) {
    case LIBRAW_THUMBNAIL_JPEG:
        return jpegPreview(preview, raw->imgdata.sizes.flip, side);
    case LIBRAW_THUMBNAIL_BITMAP:
        return bitmapPreview(preview, raw->imgdata.sizes.flip, side);
    default:
        return {};
    }
}

} // namespace KelvaLR
