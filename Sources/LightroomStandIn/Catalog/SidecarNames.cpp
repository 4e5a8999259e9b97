#include "Catalog/SidecarNames.h"

#include "Models/ImportedPhotoAsset.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace StandIn {

QString SidecarNames::pathFor(const QString &photoPath)
{
    const QFileInfo photo(photoPath);
    const QString base = photo.path() + u'/' + photo.completeBaseName();
    if (!m_firstPhotos.contains(base)) {
        readFolder(photo.path());
    }
    const bool isFirst = m_firstPhotos.value(base, photo.fileName()) == photo.fileName();
    return (isFirst ? base : photoPath) + u".xmp"_s;
}

void SidecarNames::readFolder(const QString &folder)
{
    const QStringList names = QDir(folder).entryList(QDir::Files, QDir::Name);
    for (const QString &name : names) {
        const QString base = folder + u'/' + QFileInfo(name).completeBaseName();
        if (KelvaLR::ImportedPhotoAsset::isSupportedFileName(name) && !m_firstPhotos.contains(base)) {
            m_firstPhotos.insert(base, name);
        }
    }
}

} // namespace StandIn
