#include "Window/FilmstripDelegate.h"

#include "Window/FilmstripModel.h"
#include "Window/Symbols.h"
#include "Window/Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace StandIn {

namespace {

constexpr int symbolHeight = 3 * Theme::unit;

QRgb background(const FilmstripCell &cell)
{
    if (cell.isActive) {
        return Theme::hairline;
    }
    return cell.isSelected ? Theme::control : Theme::panel;
}

void paintPicture(QPainter &painter, const QRectF &area, const QImage &picture)
{
    if (picture.isNull()) {
        painter.fillRect(area, QColor(Theme::control));
        return;
    }
    QRectF place({}, QSizeF(picture.size()).scaled(area.size(), Qt::KeepAspectRatio));
    place.moveCenter(area.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(place, picture);
}

} // namespace

void FilmstripDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    const auto cell = index.data(FilmstripModel::cellRole).value<FilmstripCell>();
    const QRectF frame = QRectF(option.rect).adjusted(Theme::unit, Theme::unit, -Theme::unit, -Theme::unit);
    QPainterPath shape;
    shape.addRoundedRect(frame, Theme::radius, Theme::radius);

    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(shape, QColor(background(cell)));
    if (cell.isActive) {
        painter->strokePath(shape, QPen(QColor(Theme::accent), 2));
    }
    const QRectF inside = frame.adjusted(Theme::small, Theme::small, -Theme::small, -Theme::small);
    paintPicture(*painter, inside.adjusted(0, 0, 0, -symbolHeight - Theme::unit), cell.picture);
    const QRectF symbols(inside.left(), inside.bottom() - symbolHeight + 2, inside.width(), symbolHeight);
    paintStars(*painter, symbols.adjusted(0, 1, 0, -1), cell.stars);
    paintFlag(*painter, QRectF(symbols.right() - symbolHeight, symbols.top(), symbolHeight, symbolHeight),
              cell.pickStatus);
    painter->restore();
}

QSize FilmstripDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const
{
    return {Theme::cellWidth, Theme::cellHeight};
}

} // namespace StandIn
