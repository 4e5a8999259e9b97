#include "Models/ImportedPhotoAsset.h"

#include "Models/SupportedPhotoExtensions.h"

#include <QFileInfo>
#include <QHashFunctions>

#include <algorithm>

namespace KelvaLR {

ImportedPhotoAsset ImportedPhotoAsset::make(const QString &path)
{
    return {QUuid::createUuid(), QUrl::fromLocalFile(path), QFileInfo(path).completeBaseName()};
}

bool ImportedPhotoAsset::isSupportedFileName(QStringView fileName)
{
    const auto dot = fileName.lastIndexOf(u'.');
    if (dot <= 0) {
        return false;
    }
    const QString extension = fileName.sliced(dot + 1).toString().toLower();
    return std::ranges::any_of(supportedPhotoExtensions,
                               [&](QLatin1StringView supported) { return extension == supported; });
}

size_t qHash(const ImportedPhotoAsset &photo, size_t seed) noexcept
{
    return qHashMulti(seed, photo.id, photo.url, photo.displayName);
}

} // namespace KelvaLR
