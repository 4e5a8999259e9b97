#include "Views/Thumbnails/HeifPicture.h"

#include "Views/Thumbnails/PictureLimits.h"
#include "Views/Thumbnails/SquarePicture.h"

#include <QColorSpace>
#include <QIODevice>

#include <libheif/heif.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace KelvaLR {

namespace {

template <auto release>
struct Releasing
{
    void operator()(auto *object) const { release(object); }
};

using Context = std::unique_ptr<heif_context, Releasing<heif_context_free>>;
using Handle = std::unique_ptr<heif_image_handle, Releasing<heif_image_handle_release>>;
using Image = std::unique_ptr<heif_image, Releasing<heif_image_release>>;

QIODevice &deviceOf(void *userData)
{
    return *static_cast<QIODevice *>(userData);
}

/// Zero is success here.
constexpr heif_reader deviceReader{
    .reader_api_version = 1,
    .get_position = [](void *device) -> int64_t { return deviceOf(device).pos(); },
    .read = [](void *data, size_t size, void *device) -> int {
        return deviceOf(device).read(static_cast<char *>(data), qint64(size)) == qint64(size) ? 0 : 1;
    },
    .seek = [](int64_t position, void *device) -> int { return deviceOf(device).seek(position) ? 0 : 1; },
    .wait_for_file_size = [](int64_t size, void *device) -> heif_reader_grow_status {
        return size <= deviceOf(device).size() ? heif_reader_grow_status_size_reached
                                               : heif_reader_grow_status_size_beyond_eof;
    },
};

bool succeeded(const heif_error &error)
{
    return error.code == heif_error_Ok;
}

int shortEdge(const Handle &handle)
{
    return std::min(heif_image_handle_get_width(handle.get()), heif_image_handle_get_height(handle.get()));
}

/// The smallest embedded thumbnail that fills the square, or none.
Handle sufficientThumbnail(const Handle &photo, int side)
{
    std::vector<heif_item_id> ids(size_t(heif_image_handle_get_number_of_thumbnails(photo.get())));
    heif_image_handle_get_list_of_thumbnail_IDs(photo.get(), ids.data(), int(ids.size()));
    Handle smallest;
    for (const heif_item_id id : ids) {
        heif_image_handle *found = nullptr;
        if (!succeeded(heif_image_handle_get_thumbnail(photo.get(), id, &found))) {
            continue;
        }
        Handle thumbnail(found);
        if (shortEdge(thumbnail) >= side && (!smallest || shortEdge(thumbnail) < shortEdge(smallest))) {
            smallest = std::move(thumbnail);
        }
    }
    return smallest;
}

QColorSpace colorSpaceOf(const Handle &handle)
{
    QByteArray profile(qsizetype(heif_image_handle_get_raw_color_profile_size(handle.get())), '\0');
    if (profile.isEmpty() ||
        !succeeded(heif_image_handle_get_raw_color_profile(handle.get(), profile.data()))) {
        return {};
    }
    return QColorSpace::fromIccProfile(profile);
}

QImage decoded(const Handle &handle, int side)
{
    heif_image *pixels = nullptr;
    if (!handle || !succeeded(heif_decode_image(handle.get(), &pixels, heif_colorspace_RGB,
                                                heif_chroma_interleaved_RGBA, nullptr))) {
        return {};
    }
    const Image image(pixels);
    int stride = 0;
    const uint8_t *plane = heif_image_get_plane_readonly(pixels, heif_channel_interleaved, &stride);
    if (!plane) {
        return {};
    }
    const QImage view(plane, heif_image_get_width(pixels, heif_channel_interleaved),
                      heif_image_get_height(pixels, heif_channel_interleaved), stride,
                      QImage::Format_RGBA8888);
    QImage square = squarePicture(view, side);
    square.setColorSpace(colorSpaceOf(handle));
    return square;
}

} // namespace

QImage decodeHeifPicture(QIODevice &source, int side)
{
    const Context context(heif_context_alloc());
    heif_context_set_maximum_image_size_limit(context.get(), int(std::sqrt(double(largestPicture))));
    heif_context_set_max_decoding_threads(context.get(), 0); // in this thread; others decode other photos
    heif_image_handle *primary = nullptr;
    if (!succeeded(heif_context_read_from_reader(context.get(), &deviceReader, &source, nullptr)) ||
        !succeeded(heif_context_get_primary_image_handle(context.get(), &primary))) {
        return {};
    }
    const Handle photo(primary);
    const QImage thumbnail = decoded(sufficientThumbnail(photo, side), side);
    return thumbnail.isNull() ? decoded(photo, side) : thumbnail;
}

} // namespace KelvaLR
