#pragma once

#include <QRectF>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace StandIn {

/// A white flag for a picked photo (1), a red crossed one for a rejected photo (-1), nothing else.
void paintFlag(QPainter &painter, const QRectF &area, int pickStatus);

/// Five places from the area's left side on, so many of them stars and the rest dots.
void paintStars(QPainter &painter, const QRectF &area, int stars);

} // namespace StandIn
