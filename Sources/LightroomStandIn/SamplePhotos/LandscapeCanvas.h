#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPointF>

#include <functional>
#include <vector>

namespace StandIn {

/// Smooth noise between 0 and 1 along a line, the same for the same seed. `roughness` is how much of it each
/// finer octave adds, from 0 to 1.
[[nodiscard]] double noise(double position, quint32 seed, double roughness = 0.5);

/// A height line across the picture: y for each x, in pixels.
using HeightLine = std::function<double(double x)>;

struct ColorStop
{
    double position; ///< from 0 at the top to 1 at the bottom
    QColor color;
};

/// A picture that is painted from back to front with what landscapes are made of.
class LandscapeCanvas
{
public:
    static constexpr int width = 1200;
    static constexpr int height = 800;

    LandscapeCanvas();

    /// Fills the picture between two heights with colours from top to bottom.
    void gradient(double top, double bottom, const std::vector<ColorStop> &stops);

    /// Light around a point, strongest there.
    void glow(QPointF center, double radius, const QColor &color);
    void disc(QPointF center, double radius, const QColor &color);
    void stars(int count, double lowest, quint32 seed);

    /// Soft bands of cloud around a height.
    void clouds(double center, double spread, const QColor &color, int count, quint32 seed);

    /// A haze that is thickest at one height.
    void mist(double center, double spread, const QColor &color);

    /// The land below a line, from one colour at the line's highest point to another at the bottom.
    void land(const HeightLine &line, const QColor &top, const QColor &bottom);

    /// Snow or light on the slopes of a land that face one side.
    void slopes(const HeightLine &line, double depth, const QColor &color, double side, quint32 seed);

    /// A row of conifers that stand on a line.
    void conifers(const HeightLine &line, double size, double spacing, const QColor &color, quint32 seed);

    /// Still water from a height on: what is above it upside down, rippled and tinted.
    void reflection(double waterline, const QColor &tint, double ripple, quint32 seed);

    void fill(const QPainterPath &path, const QColor &color);
    void fill(const QPainterPath &path, const QColor &top, const QColor &bottom);

    /// The picture, darkened a little toward its corners and with the grain of a film.
    [[nodiscard]] QImage developed(quint32 seed) const;

private:
    QImage m_image;
};

} // namespace StandIn
