#include "Views/Thumbnails/ThumbnailDecoder.h"

#include "Views/Thumbnails/EncodedPicture.h"
#include "Views/Thumbnails/HeifPicture.h"
#include "Views/Thumbnails/PhotoDevice.h"
#include "Views/Thumbnails/RawPhoto.h"
#include "Views/Thumbnails/X3fPreview.h"

#include <QColorSpace>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <chrono>
#include <string_view>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;

/// Enough for a large photo on a slow network drive; a broken one does not hold a thread for longer.
constexpr std::chrono::seconds readingTime{5};

using Decoder = QImage (*)(PhotoDevice &photo, int side);

/// A JPEG decoder paints what a cut-off file lacks in grey and calls it a success.
QImage decodeJpeg(PhotoDevice &photo, int side)
{
    const QImage picture = decodeEncodedPicture(photo, "jpeg"_ba, side);
    return photo.ranDry() ? QImage() : picture;
}

QImage decodePng(PhotoDevice &photo, int side)
{
    return decodeEncodedPicture(photo, "png"_ba, side);
}

/// Most RAW formats are TIFF files that hold more; only a RAW decoder can tell which ones.
QImage decodeRawOrTiff(PhotoDevice &photo, int side)
{
    const QImage picture = decodeRawPhoto(photo, side);
    return picture.isNull() && photo.seek(0) ? decodeEncodedPicture(photo, "tiff"_ba, side) : picture;
}

QImage decodeHeif(PhotoDevice &photo, int side)
{
    return decodeHeifPicture(photo, side);
}

QImage decodeRaw(PhotoDevice &photo, int side)
{
    return decodeRawPhoto(photo, side);
}

QImage decodeX3f(PhotoDevice &photo, int side)
{
    return decodeX3fPreview(photo, side);
}

struct Signature
{
    size_t offset;
    std::string_view bytes;
    Decoder decoder;
};

/// What the supported formats begin with, as `file --list` knows them; the first that fits counts.
constexpr std::array signatures{
    Signature{0, "\xff\xd8\xff"sv, decodeJpeg},
    Signature{0, "\x89PNG\r\n\x1a\n"sv, decodePng},
    Signature{4, "ftypcrx "sv, decodeRaw}, // CR3
    Signature{4, "ftyp"sv, decodeHeif},
    Signature{0, "II*\0"sv, decodeRawOrTiff}, // TIFF, DNG, CR2, NEF, NRW, ARW, PEF, SRW
    Signature{0, "MM\0*"sv, decodeRawOrTiff},
    Signature{0, "FUJIFILMCCD-RAW"sv, decodeRaw}, // RAF
    Signature{0, "IIU\0"sv, decodeRaw},           // RW2
    Signature{0, "IIRO"sv, decodeRaw},            // ORF
    Signature{0, "IIRS"sv, decodeRaw},
    Signature{0, "MMOR"sv, decodeRaw},
    Signature{0, "FOVb"sv, decodeX3f},
};

constexpr size_t longestSignature = 15;
static_assert(std::ranges::all_of(signatures, [](const Signature &one) {
    return one.offset + one.bytes.size() <= longestSignature;
}));

Decoder decoderFor(std::string_view beginning)
{
    const auto *const found = std::ranges::find_if(signatures, [&](const Signature &one) {
        return beginning.substr(std::min(one.offset, beginning.size())).starts_with(one.bytes);
    });
    return found == signatures.end() ? nullptr : found->decoder;
}

/// Previews come in the camera's colour space as often as in sRGB.
QImage finished(QImage picture)
{
    if (picture.colorSpace().isValid()) {
        picture.convertToColorSpace(QColorSpace::SRgb);
    }
    return picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

QImage decodeThumbnail(const QString &path, int side)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return decodeThumbnail(file, side);
}

QImage decodeThumbnail(QIODevice &source, int side)
try {
    PhotoDevice photo(source, readingTime);
    const QByteArray beginning = photo.peek(longestSignature);
    const Decoder decoder = decoderFor({beginning.data(), size_t(beginning.size())});
    if (!decoder || side < 1 || side > largestThumbnailSide) {
        return {};
    }
    return finished(decoder(photo, side));
} catch (...) {
    return {}; // out of memory, or a fault inside a decoder
}

} // namespace KelvaLR
