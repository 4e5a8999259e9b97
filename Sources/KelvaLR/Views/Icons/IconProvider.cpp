#include "Views/Icons/IconProvider.h"

#include <QColor>
#include <QPainter>
#include <QSvgRenderer>
#include <QUrl>

#include <algorithm>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

/// The side of the grid on which the symbols are drawn.
constexpr int gridSize = 16;

QSize completed(QSize asked)
{
    const int side = std::max(asked.width(), asked.height());
    const int missing = side > 0 ? side : gridSize;
    return {asked.width() > 0 ? asked.width() : missing, asked.height() > 0 ? asked.height() : missing};
}

QColor colorFrom(QStringView digits)
{
    const QColor color = QColor::fromString(u'#' + digits.toString());
    Q_ASSERT_X(color.isValid(), "IconProvider", "a colour is rrggbb or aarrggbb");
    return color;
}

/// The symbol as a shape: only its coverage counts.
QImage shape(QStringView name, QSize size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QSvgRenderer renderer(u":/icons/"_s + name.toString() + u".svg"_s);
    Q_ASSERT_X(renderer.isValid(), "IconProvider", "no symbol has this name");
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace

IconProvider::IconProvider()
    : QQuickImageProvider(Image)
{
}

QImage IconProvider::requestImage(const QString &id, QSize *size, const QSize &requestedSize)
{
    const QString decoded = QUrl::fromPercentEncoding(id.toLatin1()).remove(u'#');
    const qsizetype slash = decoded.lastIndexOf(u'/');
    const QStringView name = QStringView(decoded).first(std::max<qsizetype>(slash, 0));
    QImage image = shape(name, completed(requestedSize));
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colorFrom(QStringView(decoded).sliced(slash + 1)));
    painter.end();
    if (size != nullptr) {
        *size = image.size();
    }
    return image;
}

} // namespace KelvaLR
