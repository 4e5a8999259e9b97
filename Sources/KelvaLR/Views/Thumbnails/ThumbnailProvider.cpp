#include "Views/Thumbnails/ThumbnailProvider.h"

#include "Views/Thumbnails/ThumbnailDecoder.h"

#include <QFuture>
#include <QFutureWatcher>
#include <QPainter>
#include <QThread>
#include <QtConcurrentRun>

#include <algorithm>
#include <utility>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

/// Decoding waits for the drive more than for the processor, and large TIFFs need memory.
constexpr int mostThreads = 4;

QImage transparentPicture(int side)
{
    QImage picture(side, side, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    return picture;
}

/// Done here, as software rendering cannot clip to a rounded shape.
QImage rounded(const QImage &picture)
{
    const double radius = double(picture.width()) * thumbnailCornerRadius / thumbnailCellSide;
    QImage result = transparentPicture(picture.width());
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QBrush(picture));
    painter.drawRoundedRect(result.rect(), radius, radius);
    return result;
}

int sideFor(QSize requested)
{
    const int side = std::max(requested.width(), requested.height());
    return side > 0 ? std::min(side, largestThumbnailSide) : thumbnailCellSide;
}

/// Lives in the thread that asked. The picture may come after the provider has gone.
class ThumbnailResponse final : public QQuickImageResponse
{
public:
    ThumbnailResponse(const QFuture<QImage> &picture, int side)
        : m_side(side)
    {
        connect(&m_watcher, &QFutureWatcher<QImage>::finished, this, &QQuickImageResponse::finished);
        m_watcher.setFuture(picture);
    }

    [[nodiscard]] QQuickTextureFactory *textureFactory() const override
    {
        const QImage picture = m_watcher.isCanceled() ? QImage() : m_watcher.result();
        return QQuickTextureFactory::textureFactoryForImage(picture.isNull() ? transparentPicture(m_side)
                                                                             : picture);
    }

    void cancel() override { m_watcher.cancel(); }

private:
    int m_side;
    QFutureWatcher<QImage> m_watcher;
};

} // namespace

QUrl thumbnailUrl(const QString &path)
{
    return QUrl(u"image://"_s + thumbnailProviderId + u'/' +
                QString::fromLatin1(QUrl::toPercentEncoding(path)));
}

ThumbnailProvider::ThumbnailProvider()
    : ThumbnailProvider([](const QString &path, int side) { return decodeThumbnail(path, side); })
{
}

ThumbnailProvider::ThumbnailProvider(Decoder decoder)
    : m_decoder(std::move(decoder))
{
    m_pool.setMaxThreadCount(std::clamp(QThread::idealThreadCount() - 1, 1, mostThreads));
}

ThumbnailProvider::~ThumbnailProvider()
{
    m_isEnding = true;
}

QQuickImageResponse *ThumbnailProvider::requestImageResponse(const QString &id, const QSize &requestedSize)
{
    const QString path = QUrl::fromPercentEncoding(id.toUtf8());
    const ThumbnailKey key = ThumbnailKey::make(path, sideFor(requestedSize));
    const QImage known = m_cache.find(key);
    const QFuture<QImage> picture = known.isNull()
                                        ? QtConcurrent::run(&m_pool, [this, key] { return make(key); })
                                        : QtFuture::makeReadyFuture(known);
    return new ThumbnailResponse(picture, key.side);
}

/// In a thread of the pool.
QImage ThumbnailProvider::make(const ThumbnailKey &key)
{
    if (m_isEnding) {
        return {};
    }
    if (const QImage known = m_cache.find(key); !known.isNull()) {
        return known; // two cells may show the same file
    }
    const QImage picture = m_decoder(key.path, key.side);
    if (picture.isNull()) {
        return {};
    }
    const QImage thumbnail = rounded(picture);
    m_cache.insert(key, thumbnail);
    return thumbnail;
}

} // namespace KelvaLR
