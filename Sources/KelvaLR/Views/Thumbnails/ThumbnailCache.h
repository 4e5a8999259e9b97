#pragma once

#include <QCache>
#include <QImage>
#include <QMutex>
#include <QString>

namespace KelvaLR {

/// One state of one photo file, at one size.
struct ThumbnailKey
{
    QString path;
    int side = 0; ///< in pixels
    qint64 fileSize = 0;
    qint64 modified = 0; ///< in milliseconds since 1970

    /// The file as it is now.
    [[nodiscard]] static ThumbnailKey make(const QString &path, int side);

    bool operator==(const ThumbnailKey &) const = default;
};

[[nodiscard]] size_t qHash(const ThumbnailKey &key, size_t seed = 0) noexcept;

/// Keeps the thumbnails that were asked for last, up to a number of bytes of pixels. Any thread.
class ThumbnailCache
{
public:
    /// 1,000 pictures for cells of 64 points on a display with two pixels a point: five screens full of them.
    static constexpr qsizetype defaultCapacity = qsizetype{64} * 1024 * 1024;

    explicit ThumbnailCache(qsizetype capacity = defaultCapacity);

    /// Null when there is none.
    [[nodiscard]] QImage find(const ThumbnailKey &key) const;
    void insert(const ThumbnailKey &key, const QImage &picture);

private:
    mutable QMutex m_mutex;
    QCache<ThumbnailKey, QImage> m_pictures; ///< a picture costs its bytes
};

} // namespace KelvaLR
