#pragma once

#include "Views/Thumbnails/ThumbnailCache.h"

#include <QQuickAsyncImageProvider>
#include <QThreadPool>
#include <QUrl>

#include <atomic>
#include <functional>

namespace KelvaLR {

/// What the provider is registered as in the QML engine.
inline constexpr QLatin1StringView thumbnailProviderId("thumbnail");

/// The side of a cell in the tray and the radius of its corners, in points.
inline constexpr int thumbnailCellSide = 64;
inline constexpr int thumbnailCornerRadius = 8;

/// What an Image has for `source` to show this file's thumbnail. Its `sourceSize` is the cell's size in
/// device pixels, and its `cache` is off: the provider has a better one, which notices a changed file.
[[nodiscard]] QUrl thumbnailUrl(const QString &path);

/// Gives QML the thumbnails of photo files with rounded corners. A file that shows nothing gives a
/// transparent picture, without a warning, so that what the view draws underneath stays visible.
///
/// QML's loader asks from a thread of its own. A picture that is still known is answered at once; the others
/// are decoded in a thread pool that leaves one core to the window, and a request that the view has cancelled
/// before its turn costs nothing. The destructor waits for what is being decoded at that moment, at most the
/// few seconds that a decoder may take.
class ThumbnailProvider final : public QQuickAsyncImageProvider
{
public:
    /// Gives a photo's square picture or a null one; called from several threads at once.
    using Decoder = std::function<QImage(const QString &path, int side)>;

    ThumbnailProvider(); ///< decodes with decodeThumbnail()
    explicit ThumbnailProvider(Decoder decoder);
    ~ThumbnailProvider() override;

    QQuickImageResponse *requestImageResponse(const QString &id, const QSize &requestedSize) override;

private:
    [[nodiscard]] QImage make(const ThumbnailKey &key);

    Decoder m_decoder;
    ThumbnailCache m_cache;
    std::atomic<bool> m_isEnding = false;
    QThreadPool m_pool; ///< last, so that it has ended before what its threads use is gone
};

} // namespace KelvaLR
