#include "SamplePhotos/SamplePhotos.h"

#include "Models/ImportedPhotoAsset.h"
#include "SamplePhotos/Landscapes.h"

#include <QDir>
#include <QImageWriter>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

struct SamplePhoto
{
    const char *fileName;
    QImage (*paint)();
};

constexpr std::array samplePhotos{
    SamplePhoto{"Dawn.jpg", dawnOverTheRidges}, SamplePhoto{"Dunes.jpg", duneSea},
    SamplePhoto{"Forest.jpg", forestInFog},     SamplePhoto{"Lake.jpg", mountainLake},
    SamplePhoto{"Night.jpg", starlitValley},    SamplePhoto{"Shore.jpg", eveningCoast},
};

bool holdsPhotos(const QDir &folder)
{
    const QStringList names = folder.entryList(QDir::Files);
    return std::ranges::any_of(names, &KelvaLR::ImportedPhotoAsset::isSupportedFileName);
}

} // namespace

std::expected<void, QString> paintSamplePhotos(const QString &folder)
{
    const QDir directory(folder);
    if (!directory.mkpath(u"."_s)) {
        return std::unexpected(u"The folder \"%1\" cannot be made."_s.arg(folder));
    }
    if (holdsPhotos(directory)) {
        return {};
    }
    constexpr int quality = 92;
    for (const SamplePhoto &photo : samplePhotos) {
        QImageWriter writer(directory.filePath(QString::fromLatin1(photo.fileName)), "jpeg");
        writer.setQuality(quality);
        if (!writer.write(photo.paint())) {
            return std::unexpected(
                u"%1 cannot be written: %2"_s.arg(writer.fileName(), writer.errorString()));
        }
    }
    return {};
}

} // namespace StandIn
