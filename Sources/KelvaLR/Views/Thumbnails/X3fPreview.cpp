#include "Views/Thumbnails/X3fPreview.h"

#include "Views/Thumbnails/EncodedPicture.h"

#include <QBuffer>
#include <QIODevice>
#include <QTransform>
#include <QtEndian>

#include <algorithm>
#include <optional>

// The file's directory stands at its end: "SECd", a version, the number of entries, then for each its offset,
// its length and a name; the last four bytes are the directory's offset. An image's section begins with
// "SECi", a version, a type, a format, columns, rows and bytes a row. All numbers are little-endian, of 32
// bits. Seen so in files of the SD14 and the DP2.

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 word = 4;
constexpr qint64 rotationOffset = 9 * word; ///< clockwise, in degrees
constexpr qint64 directoryHeaderSize = 3 * word;
constexpr qint64 entrySize = 3 * word;
constexpr qint64 imageHeaderSize = 7 * word;
constexpr quint32 jpegFormat = 18;
/// More than any file holds; a wrong count is not followed further.
constexpr quint32 mostEntries = 64;

struct Jpeg
{
    qint64 offset = 0;
    qint64 length = 0;
    int shortEdge = 0;
};

QByteArray bytesAt(QIODevice &source, qint64 offset, qint64 length)
{
    return offset >= 0 && offset <= source.size() - length && source.seek(offset) ? source.read(length)
                                                                                  : QByteArray();
}

/// Zero past the end.
quint32 numberIn(const QByteArray &bytes, qint64 index)
{
    return bytes.size() < (index + 1) * word ? 0 : qFromLittleEndian<quint32>(bytes.data() + index * word);
}

std::optional<Jpeg> jpegIn(QIODevice &source, qint64 offset, qint64 length)
{
    const QByteArray header = bytesAt(source, offset, imageHeaderSize);
    if (!header.startsWith("SECi") || numberIn(header, 3) != jpegFormat || length <= imageHeaderSize) {
        return std::nullopt;
    }
    return Jpeg{.offset = offset + imageHeaderSize,
                .length = length - imageHeaderSize,
                .shortEdge = int(std::min(numberIn(header, 4), numberIn(header, 5)) & 0xffff)};
}

/// Whether the first suits the square better than the second.
bool suitsBetter(const Jpeg &first, const Jpeg &second, int side)
{
    const bool fills = first.shortEdge >= side;
    if (fills != (second.shortEdge >= side)) {
        return fills;
    }
    return fills ? first.shortEdge < second.shortEdge : first.shortEdge > second.shortEdge;
}

std::optional<Jpeg> bestJpeg(QIODevice &source, int side)
{
    const qint64 directory = numberIn(bytesAt(source, source.size() - word, word), 0);
    const QByteArray header = bytesAt(source, directory, directoryHeaderSize);
    if (!header.startsWith("SECd")) {
        return std::nullopt;
    }
    std::optional<Jpeg> best;
    const quint32 entries = std::min(numberIn(header, 2), mostEntries);
    for (quint32 i = 0; i < entries; ++i) {
        const QByteArray entry = bytesAt(source, directory + directoryHeaderSize + i * entrySize, entrySize);
        const std::optional<Jpeg> jpeg = jpegIn(source, numberIn(entry, 0), numberIn(entry, 1));
        if (jpeg && (!best || suitsBetter(*jpeg, *best, side))) {
            best = jpeg;
        }
    }
    return best;
}

} // namespace

QImage decodeX3fPreview(QIODevice &source, int side)
{
    const std::optional<Jpeg> jpeg = bestJpeg(source, side);
    if (!jpeg) {
        return {};
    }
    const quint32 quarterTurns = numberIn(bytesAt(source, rotationOffset, word), 0) / 90 % 4;
    QByteArray bytes = bytesAt(source, jpeg->offset, jpeg->length);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const bool isTold = tellsItsOrientation(buffer, "jpeg"_ba); // then it has been followed already
    const QImage picture = decodeEncodedPicture(buffer, "jpeg"_ba, side);
    return isTold ? picture : picture.transformed(QTransform().rotate(90 * quarterTurns));
}

} // namespace KelvaLR
