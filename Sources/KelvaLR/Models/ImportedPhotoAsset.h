#pragma once

#include <QMetaType>
#include <QString>
#include <QUrl>
#include <QUuid>

namespace KelvaLR {

/// A photo file that the user brought into the artifact area from a folder.
struct ImportedPhotoAsset
{
    QUuid id;
    QUrl url;            ///< absolute file URL
    QString displayName; ///< the file name without its extension

    /// An asset with a fresh random id for the file at this absolute path.
    [[nodiscard]] static ImportedPhotoAsset make(const QString &path);

    /// Whether a file name ends in one of the supported photo extensions, in any case.
    [[nodiscard]] static bool isSupportedFileName(QStringView fileName);

    bool operator==(const ImportedPhotoAsset &) const = default;
};

[[nodiscard]] size_t qHash(const ImportedPhotoAsset &photo, size_t seed = 0) noexcept;

} // namespace KelvaLR

Q_DECLARE_METATYPE(KelvaLR::ImportedPhotoAsset)
