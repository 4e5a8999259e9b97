#include "Views/Thumbnails/ThumbnailCache.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHashFunctions>

namespace KelvaLR {

ThumbnailKey ThumbnailKey::make(const QString &path, int side)
{
    const QFileInfo file(path);
    return {.path = path,
            .side = side,
            .fileSize = file.size(),
            .modified = file.lastModified().toMSecsSinceEpoch()};
}

size_t qHash(const ThumbnailKey &key, size_t seed) noexcept
{
    return qHashMulti(seed, key.path, key.side, key.fileSize, key.modified);
}

ThumbnailCache::ThumbnailCache(qsizetype capacity)
    : m_pictures(capacity)
{
}

QImage ThumbnailCache::find(const ThumbnailKey &key) const
{
    const QMutexLocker lock(&m_mutex);
    const QImage *found = m_pictures.object(key);
    return found ? *found : QImage();
}

void ThumbnailCache::insert(const ThumbnailKey &key, const QImage &picture)
{
    const QMutexLocker lock(&m_mutex);
    m_pictures.insert(key, new QImage(picture), picture.sizeInBytes());
}

} // namespace KelvaLR
