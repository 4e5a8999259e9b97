#include "SamplePhotos.h"

#include "Views/Thumbnails/ThumbnailDecoder.h"

#include <QBuffer>
#include <QColorSpace>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>

#include <sys/stat.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

QImage decodeBytes(const QByteArray &bytes, int side)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return decodeThumbnail(buffer, side);
}

QByteArray encoded(const QImage &picture, const char *format)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    EXPECT_TRUE(picture.save(&buffer, format));
    return buffer.data();
}

/// The largest difference of a channel.
int difference(QColor first, QColor second)
{
    return std::max({std::abs(first.red() - second.red()), std::abs(first.green() - second.green()),
                     std::abs(first.blue() - second.blue()), std::abs(first.alpha() - second.alpha())});
}

/// The samples are, upright and without what a square leaves out, red, green; blue, yellow.
void expectUpright(const QImage &picture, int side, int tolerance)
{
    ASSERT_EQ(picture.size(), QSize(side, side));
    EXPECT_EQ(picture.format(), QImage::Format_ARGB32_Premultiplied);
    const int inset = side / 16;
    const int far = side - 1 - inset;
    const std::array expected{
        std::pair{QPoint(inset, inset), QColor(220, 30, 30)},
        std::pair{QPoint(far, inset), QColor(30, 180, 30)},
        std::pair{QPoint(inset, far), QColor(30, 30, 220)},
        std::pair{QPoint(far, far), QColor(230, 220, 30)},
    };
    for (const auto &[point, colour] : expected) {
        EXPECT_LE(difference(picture.pixelColor(point), colour), tolerance)
            << point.x() << ',' << point.y() << ' ' << picture.pixelColor(point).name().toStdString();
    }
}

TEST(ThumbnailDecoder, showsTheCentreOfEverySampleUpright)
{
    for (const auto &[name, tolerance] : {std::pair{"upright.jpg", 6},
                                          {"orientation-6.jpg", 6},
                                          {"upright.png", 0},
                                          {"upright.tiff", 0},
                                          {"thumbnail.heic", 12},
                                          {"orientation-6.dng", 6},
                                          {"no-preview.dng", 40}}) {
        for (const int side : {16, 64, 128, 300}) {
            SCOPED_TRACE(testing::Message() << name << " at " << side);
            expectUpright(decodeThumbnail(samplePhoto(name), side), side, tolerance);
        }
    }
}

TEST(ThumbnailDecoder, takesTheSmallestPreviewOfAnX3fThatIsLargeEnough)
{
    const QString path = samplePhoto("previews.x3f");
    EXPECT_EQ(decodeThumbnail(path, 40).pixelColor(2, 2).saturation(), 0); // the small one is grey
    expectUpright(decodeThumbnail(path, 41), 41, 6);
    expectUpright(decodeThumbnail(path, 300), 300, 6);
}

TEST(ThumbnailDecoder, showsThePreviewsOfCameras)
{
    const QImage facade = decodeThumbnail(samplePhoto("finepix-s5-pro.raf"), 64);
    ASSERT_EQ(facade.size(), QSize(64, 64));
    EXPECT_GT(facade.pixelColor(14, 20).red(), facade.pixelColor(14, 20).blue() + 40); // a wall of bricks
    EXPECT_EQ(decodeThumbnail(samplePhoto("dmc-lx3.rw2"), 64).pixelColor(32, 32), QColor(Qt::white));
    EXPECT_EQ(decodeThumbnail(samplePhoto("dp2.x3f"), 300).pixelColor(32, 32), QColor(Qt::white));
}

TEST(ThumbnailDecoder, looksAtTheContentAndNotAtTheName)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"photo.nef"_s);
    write(path, contentOf(samplePhoto("orientation-6.jpg")));
    expectUpright(decodeThumbnail(path, 64), 64, 6);
}

TEST(ThumbnailDecoder, prefersAnEmbeddedThumbnailThatIsLargeEnough)
{
    QByteArray photo = contentOf(samplePhoto("thumbnail.heic"));
    const qsizetype data = photo.indexOf("mdat") + 4;
    for (qsizetype i = data + 200; i < data + 300; ++i) {
        photo[i] = '\xff'; // inside the full picture, which comes first
    }
    expectUpright(decodeBytes(photo, 64), 64, 12);
    EXPECT_NE(decodeBytes(photo, 128), decodeThumbnail(samplePhoto("thumbnail.heic"), 128));
}

TEST(ThumbnailDecoder, convertsToTheColoursOfTheScreen)
{
    const QColor stored(100, 150, 200);
    QImage picture(32, 32, QImage::Format_RGB32);
    picture.fill(stored);
    picture.setColorSpace(QColorSpace::AdobeRgb);
    const QColor shown = decodeBytes(encoded(picture, "png"), 16).pixelColor(8, 8);
    picture.convertToColorSpace(QColorSpace::SRgb);
    EXPECT_LE(difference(shown, picture.pixelColor(8, 8)), 1);
    EXPECT_GT(difference(shown, stored), 20);
}

TEST(ThumbnailDecoder, fillsTheSquareFromAVeryLongPicture)
{
    QImage picture(20'000, 1, QImage::Format_RGB32);
    picture.fill(Qt::green);
    EXPECT_EQ(decodeBytes(encoded(picture, "png"), 128).pixelColor(127, 127), QColor(Qt::green));
}

TEST(ThumbnailDecoder, hasNothingToShowForWhatIsNoPhotoFile)
{
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.jpg"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    for (const QString &path :
         {folder.filePath(u"missing.jpg"_s), folder.path(), pipe, u"/dev/zero"_s, QString()}) {
        EXPECT_TRUE(decodeThumbnail(path, 64).isNull()) << path.toStdString();
    }
    const QImage picture(8, 8, QImage::Format_RGB32);
    for (const QByteArray &bytes : {""_ba, "\xff"_ba, "no picture at all"_ba, encoded(picture, "bmp"),
                                    "<svg xmlns='http://www.w3.org/2000/svg' width='8' height='8'/>"_ba}) {
        EXPECT_TRUE(decodeBytes(bytes, 64).isNull()) << bytes.toStdString();
    }
}

TEST(ThumbnailDecoder, hasNothingToShowForABrokenPhoto)
{
    for (const char *name : {"upright.jpg", "orientation-6.jpg", "upright.png", "upright.tiff",
                             "thumbnail.heic", "orientation-6.dng", "no-preview.dng", "previews.x3f"}) {
        const QByteArray whole = contentOf(samplePhoto(name));
        for (const int percent : {3, 30, 60}) {
            EXPECT_TRUE(decodeBytes(whole.first(whole.size() * percent / 100), 128).isNull())
                << name << " cut to " << percent << " %";
        }
    }
}

TEST(ThumbnailDecoder, doesNotDecodeUnreasonablyLargePictures)
{
    const QByteArray jpeg = contentOf(samplePhoto("upright.jpg"));
    const qsizetype frame = jpeg.indexOf("\xff\xc0\x00\x11\x08"_ba);
    ASSERT_GE(frame, 0);
    const auto size = "\xc3\x50\xc3\x50"_ba; // a height and a width of 50,000
    EXPECT_TRUE(decodeBytes(QByteArray(jpeg).replace(frame + 5, size.size(), size), 64).isNull());
    QImage wide(30'000, 10'000, QImage::Format_Mono);
    wide.fill(0);
    EXPECT_TRUE(decodeBytes(encoded(wide, "png"), 64).isNull());
    for (const int side : {-1, 0, largestThumbnailSide + 1}) {
        EXPECT_TRUE(decodeBytes(jpeg, side).isNull()) << side;
    }
}

} // namespace
