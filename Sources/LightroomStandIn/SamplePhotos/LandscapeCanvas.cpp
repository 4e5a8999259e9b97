#include "SamplePhotos/LandscapeCanvas.h"

#include <QLinearGradient>
#include <QPainter>
#include <QRadialGradient>
#include <QRandomGenerator>

#include <algorithm>
#include <cmath>

namespace StandIn {

namespace {

/// A number between 0 and 1 that looks like chance.
double scattered(int position, quint32 seed)
{
    auto bits = static_cast<quint32>(position) * 0x9E3779B1U ^ seed * 0x85EBCA6BU;
    bits = (bits ^ bits >> 15) * 0x2C1B3C6DU;
    bits = (bits ^ bits >> 12) * 0x297A2D39U;
    return (bits ^ bits >> 15) / 4294967296.0;
}

double smoothNoise(double position, quint32 seed)
{
    const double whole = std::floor(position);
    const double part = position - whole;
    const double eased = part * part * (3 - 2 * part);
    const auto cell = static_cast<int>(whole);
    return std::lerp(scattered(cell, seed), scattered(cell + 1, seed), eased);
}

QColor transparent(QColor color)
{
    color.setAlpha(0);
    return color;
}

void setUp(QPainter &painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
}

QColor mixed(const QColor &from, const QColor &to, double share)
{
    const auto part = static_cast<float>(share);
    return QColor::fromRgbF(std::lerp(from.redF(), to.redF(), part),
                            std::lerp(from.greenF(), to.greenF(), part),
                            std::lerp(from.blueF(), to.blueF(), part));
}

QPainterPath conifer(QPointF foot, double size, quint32 seed)
{
    constexpr int tiers = 7;
    QPainterPath left;
    left.moveTo(foot.x(), foot.y() - size);
    std::vector<QPointF> right;
    for (int tier = 1; tier <= tiers; ++tier) {
        const double share = static_cast<double>(tier) / tiers;
        const double reach = size * 0.24 * share * (0.75 + 0.5 * scattered(tier, seed));
        const double y = foot.y() - size * (1 - share * 0.96);
        left.lineTo(foot.x() - reach, y + size * 0.02);
        left.lineTo(foot.x() - reach * 0.45, y - size * 0.015);
        const double otherReach = size * 0.24 * share * (0.75 + 0.5 * scattered(tier + 50, seed));
        right.emplace_back(foot.x() + otherReach, y + size * 0.02);
        right.emplace_back(foot.x() + otherReach * 0.45, y - size * 0.015);
    }
    left.lineTo(foot.x() - size * 0.015, foot.y() + size * 0.05);
    left.lineTo(foot.x() + size * 0.015, foot.y() + size * 0.05);
    for (auto point = right.rbegin(); point != right.rend(); ++point) {
        left.lineTo(*point);
    }
    left.closeSubpath();
    return left;
}

} // namespace

double noise(double position, quint32 seed, double roughness)
{
    constexpr int octaves = 7;
    double sum = 0;
    double total = 0;
    double weight = 1;
    for (int octave = 0; octave < octaves; ++octave) {
        sum += weight * smoothNoise(position, seed + static_cast<quint32>(octave) * 101);
        total += weight;
        weight *= roughness;
        position *= 2;
    }
    return sum / total;
}

LandscapeCanvas::LandscapeCanvas()
    : m_image(width, height, QImage::Format_RGBA64_Premultiplied)
{
    m_image.fill(Qt::black);
}

void LandscapeCanvas::gradient(double top, double bottom, const std::vector<ColorStop> &stops)
{
    QLinearGradient colors(0, top, 0, bottom);
    for (const ColorStop &stop : stops) {
        colors.setColorAt(stop.position, stop.color);
    }
    QPainter painter(&m_image);
    painter.fillRect(QRectF(0, top, width, bottom - top), colors);
}

void LandscapeCanvas::glow(QPointF center, double radius, const QColor &color)
{
    QRadialGradient light(center, radius);
    constexpr int steps = 8;
    for (int step = 0; step <= steps; ++step) {
        const double share = static_cast<double>(step) / steps;
        QColor faded = color;
        faded.setAlphaF(static_cast<float>(color.alphaF() * std::pow(1 - share, 2.2)));
        light.setColorAt(share, faded);
    }
    QPainter painter(&m_image);
    setUp(painter);
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    painter.fillRect(m_image.rect(), light);
}

void LandscapeCanvas::disc(QPointF center, double radius, const QColor &color)
{
    QRadialGradient face(center, radius);
    face.setColorAt(0.94, color);
    face.setColorAt(1, transparent(color));
    QPainter painter(&m_image);
    setUp(painter);
    painter.setBrush(face);
    painter.drawEllipse(center, radius, radius);
}

void LandscapeCanvas::stars(int count, double lowest, quint32 seed)
{
    QRandomGenerator chance(seed);
    QPainter painter(&m_image);
    setUp(painter);
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    for (int star = 0; star < count; ++star) {
        const QPointF place(chance.bounded(1.0) * width, chance.bounded(1.0) * lowest);
        const double brightness = std::pow(chance.bounded(1.0), 5);
        const double warmth = chance.bounded(1.0);
        QColor color = mixed(QColor(190, 210, 255), QColor(255, 236, 210), warmth);
        color.setAlphaF(static_cast<float>(0.25 + 0.75 * brightness));
        painter.setBrush(color);
        const double radius = 0.5 + 1.1 * brightness;
        painter.drawEllipse(place, radius, radius);
    }
}

void LandscapeCanvas::clouds(double center, double spread, const QColor &color, int count, quint32 seed)
{
    QRandomGenerator chance(seed);
    QPainter painter(&m_image);
    setUp(painter);
    for (int cloud = 0; cloud < count; ++cloud) {
        const double x = chance.bounded(1.0) * width;
        const double y = center + (chance.bounded(1.0) + chance.bounded(1.0) - 1) * spread;
        const double length = 90 + chance.bounded(1.0) * 260;
        const double thickness = length * (0.035 + 0.05 * chance.bounded(1.0));
        QRadialGradient puff(0, 0, 1);
        QColor faded = color;
        faded.setAlphaF(static_cast<float>(color.alphaF() * (0.35 + 0.65 * chance.bounded(1.0))));
        puff.setColorAt(0, faded);
        puff.setColorAt(0.5, QColor(faded.red(), faded.green(), faded.blue(), faded.alpha() / 2));
        puff.setColorAt(1, transparent(color));
        painter.save();
        painter.translate(x, y);
        painter.scale(length, thickness);
        painter.setBrush(puff);
        painter.drawEllipse(QPointF(0, 0), 1, 1);
        painter.restore();
    }
}

void LandscapeCanvas::mist(double center, double spread, const QColor &color)
{
    QLinearGradient haze(0, center - spread, 0, center + spread);
    haze.setColorAt(0, transparent(color));
    haze.setColorAt(0.5, color);
    haze.setColorAt(1, transparent(color));
    QPainter painter(&m_image);
    painter.fillRect(QRectF(0, center - spread, width, 2 * spread), haze);
}

void LandscapeCanvas::land(const HeightLine &line, const QColor &top, const QColor &bottom)
{
    QPainterPath path;
    path.moveTo(-2, height + 2);
    for (int x = -2; x <= width + 2; ++x) {
        path.lineTo(x, line(x));
    }
    path.lineTo(width + 2, height + 2);
    path.closeSubpath();
    fill(path, top, bottom);
}

void LandscapeCanvas::slopes(const HeightLine &line, double depth, const QColor &color, double side,
                             quint32 seed)
{
    constexpr double slant = 0.6; // how far a streak runs aside on its way down
    QPainter painter(&m_image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (double x = -depth; x < width + depth; x += 1.5) {
        const double y = line(x);
        const double rise = (line(x + 6) - line(x - 6)) * side;
        const double facing = std::clamp(0.55 + rise / 14, 0.0, 1.0);
        const double reach = depth * (0.2 + 1.1 * noise(x / 22.0, seed, 0.65)) * facing;
        QColor strong = color;
        strong.setAlphaF(static_cast<float>(color.alphaF() * std::sqrt(facing)));
        QLinearGradient streak(0, y, 0, y + reach + 1);
        streak.setColorAt(0, strong);
        streak.setColorAt(0.6, strong);
        streak.setColorAt(1, transparent(color));
        painter.setPen(QPen(QBrush(streak), 2.2, Qt::SolidLine, Qt::FlatCap));
        painter.drawLine(QPointF(x, y + 0.5), QPointF(x + side * slant * reach, y + reach + 1));
    }
}

void LandscapeCanvas::conifers(const HeightLine &line, double size, double spacing, const QColor &color,
                               quint32 seed)
{
    QRandomGenerator chance(seed);
    QPainter painter(&m_image);
    setUp(painter);
    painter.setBrush(color);
    for (double x = -size; x < width + size; x += spacing * (0.5 + chance.bounded(1.0))) {
        const double tall = size * (0.55 + 0.6 * chance.bounded(1.0));
        painter.drawPath(conifer({x, line(x) + size * 0.05}, tall, chance.generate()));
    }
}

void LandscapeCanvas::reflection(double waterline, const QColor &tint, double ripple, quint32 seed)
{
    const QImage above = m_image;
    QPainter painter(&m_image);
    const int first = static_cast<int>(waterline);
    for (int y = first; y < height; ++y) {
        const double distance = y - waterline;
        const double share = distance / (height - waterline);
        const double wave = (noise(distance / (3 + 20 * share), seed, 0.5) - 0.5) * ripple;
        const int source = std::clamp(
            static_cast<int>(waterline - 1 - distance * 0.92 + wave * (2 + 20 * share)), 0, first - 1);
        const double shift = (noise(distance / 2.5, seed + 7, 0.6) - 0.5) * ripple * (1 + 8 * share);
        painter.drawImage(QRectF(shift - 12, y, width + 24, 1), above, QRectF(0, source, width, 1));
        QColor veil = tint;
        veil.setAlphaF(static_cast<float>(tint.alphaF() * (0.55 + 0.45 * share)));
        painter.fillRect(QRectF(0, y, width, 1), veil);
    }
}

void LandscapeCanvas::fill(const QPainterPath &path, const QColor &color)
{
    fill(path, color, color);
}

void LandscapeCanvas::fill(const QPainterPath &path, const QColor &top, const QColor &bottom)
{
    const QRectF bounds = path.boundingRect();
    QLinearGradient colors(0, bounds.top(), 0, std::min<double>(bounds.bottom(), height));
    colors.setColorAt(0, top);
    colors.setColorAt(1, bottom);
    QPainter painter(&m_image);
    setUp(painter);
    painter.fillPath(path, colors);
}

QImage LandscapeCanvas::developed(quint32 seed) const
{
    QImage picture = m_image.convertToFormat(QImage::Format_RGB32);
    QRandomGenerator chance(seed);
    for (int y = 0; y < height; ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const double dx = (x - width / 2.0) / width;
            const double dy = (y - height / 2.0) / height;
            const double light = 1 - 0.42 * (dx * dx + dy * dy);
            const double grain = (chance.bounded(1.0) + chance.bounded(1.0) - 1) * 5;
            const auto channel = [&](int value) {
                return std::clamp(static_cast<int>(value * light + grain), 0, 255);
            };
            line[x] = qRgb(channel(qRed(line[x])), channel(qGreen(line[x])), channel(qBlue(line[x])));
        }
    }
    return picture;
}

} // namespace StandIn
