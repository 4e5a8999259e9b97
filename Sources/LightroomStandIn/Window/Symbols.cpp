#include "Window/Symbols.h"

#include "Window/Theme.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace StandIn {

namespace {

constexpr int places = 5;

QPainterPath star(QPointF centre, double radius)
{
    constexpr int corners = 10;
    QPolygonF outline;
    for (int corner = 0; corner < corners; ++corner) {
        const double angle = std::numbers::pi * (corner / 5.0 - 0.5);
        const double distance = corner % 2 == 0 ? radius : radius * 0.45;
        outline << centre + QPointF(std::cos(angle), std::sin(angle)) * distance;
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

QPainterPath flag(const QRectF &area)
{
    const auto at = [&](double across, double down) {
        return area.topLeft() + QPointF(area.width() * across, area.height() * down);
    };
    QPainterPath path;
    path.addRoundedRect(QRectF(at(0.16, 0.06), at(0.26, 0.96)), 1, 1);
    path.addPolygon(
        QPolygonF{at(0.32, 0.10), at(0.92, 0.10), at(0.74, 0.34), at(0.92, 0.58), at(0.32, 0.58)});
    return path;
}

} // namespace

void paintFlag(QPainter &painter, const QRectF &area, int pickStatus)
{
    if (pickStatus == 0) {
        return;
    }
    const QColor colour(pickStatus > 0 ? Theme::text : Theme::failed);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(flag(area), colour);
    if (pickStatus < 0) {
        painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(area.bottomRight() - QPointF(5, 5), area.bottomRight());
        painter.drawLine(area.bottomRight() - QPointF(0, 5), area.bottomRight() - QPointF(5, 0));
    }
}

void paintStars(QPainter &painter, const QRectF &area, int stars)
{
    const double step = area.height() + 1;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int place = 0; place < places; ++place) {
        const QPointF centre(area.left() + step * (place + 0.5), area.center().y());
        if (place < stars) {
            painter.fillPath(star(centre, area.height() / 2), QColor(Theme::text));
        } else {
            painter.setBrush(QColor(Theme::groove));
            painter.drawEllipse(centre, 1.5, 1.5);
        }
    }
}

} // namespace StandIn
