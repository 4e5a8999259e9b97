// How long one thumbnail of 128 pixels takes, for a cell of 64 points on a display with two pixels a point:
// a JPEG, a PNG and a TIFF of 24 megapixels with the detail of a photo, made here at run time, and the small
// samples of Tests/Data/photos.

#include "Views/Thumbnails/ThumbnailCache.h"
#include "Views/Thumbnails/ThumbnailDecoder.h"

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cmath>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

constexpr int side = 128;
constexpr QSize cameraSize(6000, 4000);

/// Slow waves and fine grain: a JPEG of about 10 MB, as cameras write it.
QImage cameraPicture()
{
    QImage picture(cameraSize, QImage::Format_RGB32);
    quint32 grain = 1;
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            grain = grain * 1664525 + 1013904223; // a linear congruential generator: Numerical Recipes
            const int level = int(100 + 60 * std::sin(x / 90.0) * std::cos(y / 70.0)) + int(grain >> 28);
            line[x] = qRgb(level, level + 20, level / 2);
        }
    }
    return picture;
}

QString madePhoto(const QString &name, int quality)
{
    static const QTemporaryDir folder;
    static const QImage picture = cameraPicture();
    const QString path = folder.filePath(name);
    if (!QFile::exists(path) && !picture.save(path, nullptr, quality)) {
        qFatal("Cannot write %s", qPrintable(path));
    }
    return path;
}

QString sample(const char *name)
{
    return QLatin1StringView(KELVALR_SAMPLE_PHOTOS "/") + QLatin1StringView(name);
}

void decode(benchmark::State &state, const QString &path)
{
    for (auto iteration : state) {
        static_cast<void>(iteration);
        if (decodeThumbnail(path, side).isNull()) {
            state.SkipWithError("no picture");
            break;
        }
    }
    state.counters["file_KB"] = double(QFile(path).size()) / 1024;
}

void jpegOf24Megapixels(benchmark::State &state)
{
    decode(state, madePhoto(u"camera.jpg"_s, 92));
}

void pngOf24Megapixels(benchmark::State &state)
{
    decode(state, madePhoto(u"camera.png"_s, -1));
}

void tiffOf24Megapixels(benchmark::State &state)
{
    decode(state, madePhoto(u"camera.tiff"_s, -1));
}

void heicWithoutLargeThumbnail(benchmark::State &state)
{
    decode(state, sample("thumbnail.heic"));
}

void dngWithPreview(benchmark::State &state)
{
    decode(state, sample("orientation-6.dng"));
}

void dngWithoutPreview(benchmark::State &state)
{
    decode(state, sample("no-preview.dng"));
}

void rafWithPreview(benchmark::State &state)
{
    decode(state, sample("finepix-s5-pro.raf"));
}

void knownPicture(benchmark::State &state)
{
    ThumbnailCache cache;
    const QString path = sample("upright.jpg");
    cache.insert(ThumbnailKey::make(path, side), decodeThumbnail(path, side));
    for (auto iteration : state) {
        static_cast<void>(iteration);
        benchmark::DoNotOptimize(cache.find(ThumbnailKey::make(path, side)));
    }
}

BENCHMARK(jpegOf24Megapixels)->Unit(benchmark::kMillisecond);
BENCHMARK(pngOf24Megapixels)->Unit(benchmark::kMillisecond);
BENCHMARK(tiffOf24Megapixels)->Unit(benchmark::kMillisecond);
BENCHMARK(heicWithoutLargeThumbnail)->Unit(benchmark::kMillisecond);
BENCHMARK(dngWithPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(dngWithoutPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(rafWithPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(knownPicture)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace KelvaLR
