#include "SamplePhotos/Landscapes.h"

#include "SamplePhotos/LandscapeCanvas.h"

#include <algorithm>
#include <cmath>

namespace StandIn {

namespace {

using Canvas = LandscapeCanvas;

constexpr int width = Canvas::width;
constexpr int height = Canvas::height;

QColor between(const QColor &from, const QColor &to, double share)
{
    const auto part = static_cast<float>(share);
    return QColor::fromRgbF(std::lerp(from.redF(), to.redF(), part),
                            std::lerp(from.greenF(), to.greenF(), part),
                            std::lerp(from.blueF(), to.blueF(), part));
}

/// A mountain range: `base` is its foot, `rise` how far its peaks go above it, `breadth` the distance of its
/// peaks.
HeightLine range(double base, double rise, double breadth, double roughness, quint32 seed)
{
    return [=](double x) { return base - rise * (noise(x / breadth + 10, seed, roughness) - 0.25); };
}

/// A dune: two feet, its peak, and the point in front where the crest runs out.
struct Dune
{
    QPointF left;
    QPointF peak;
    QPointF right;
    QPointF front;
};

/// The side toward the light with the ground before it, the side in its own shadow, and the crest between
/// them.
void paintDune(Canvas &canvas, const Dune &dune, const QColor &lit, const QColor &shade)
{
    const auto [left, peak, right, front] = dune;
    QPainterPath outline(left);
    outline.cubicTo({(left.x() + peak.x()) / 2, left.y()},
                    {peak.x() - (peak.x() - left.x()) * 0.2, peak.y() + 6}, peak);
    outline.cubicTo({peak.x() + (right.x() - peak.x()) * 0.25, peak.y() + 14},
                    {(peak.x() + right.x()) / 2, right.y()}, right);
    outline.lineTo(std::max<double>(right.x(), width), right.y());
    outline.lineTo(std::max<double>(right.x(), width), height);
    outline.lineTo(std::min(left.x(), 0.0), height);
    outline.lineTo(std::min(left.x(), 0.0), left.y());
    outline.closeSubpath();
    canvas.fill(outline, lit, between(lit, shade, 0.45));

    QPainterPath shadow(peak);
    shadow.cubicTo({peak.x() + (right.x() - peak.x()) * 0.25, peak.y() + 14},
                   {(peak.x() + right.x()) / 2, right.y()}, right);
    shadow.lineTo(right.x(), front.y());
    shadow.lineTo(front);
    const double drop = front.y() - peak.y();
    shadow.cubicTo({front.x() + 90, front.y() - drop * 0.4}, {peak.x() - 70, peak.y() + drop * 0.45}, peak);
    shadow.closeSubpath();
    QColor thin = shade;
    thin.setAlpha(0);
    canvas.fill(shadow.intersected(outline), shade, thin);
}

} // namespace

QImage dawnOverTheRidges()
{
    Canvas canvas;
    canvas.gradient(0, height,
                    {{0, QColor(52, 66, 112)},
                     {0.22, QColor(112, 104, 146)},
                     {0.4, QColor(222, 150, 140)},
                     {0.52, QColor(252, 206, 156)},
                     {1, QColor(255, 232, 196)}});
    const QPointF sun(770, 382);
    canvas.clouds(190, 120, QColor(255, 196, 180, 60), 26, 11);
    canvas.clouds(290, 50, QColor(255, 214, 176, 90), 16, 12);
    canvas.glow(sun, 620, QColor(255, 190, 120, 210));
    canvas.glow(sun, 200, QColor(255, 236, 190, 240));
    canvas.disc(sun, 30, QColor(255, 250, 232));
    const QColor far(206, 150, 150);
    const QColor near(30, 34, 58);
    constexpr int ranges = 6;
    for (int index = 0; index < ranges; ++index) {
        const double share = static_cast<double>(index) / (ranges - 1);
        const QColor color = between(far, near, std::pow(share, 0.8));
        const double base = 430 + 330 * std::pow(share, 1.25);
        const HeightLine line =
            range(base, 120 + 150 * share, 330 - 90 * share, 0.44 + 0.06 * share, 31 + index);
        canvas.land(line, color, between(color, QColor(255, 206, 170), 0.55 * (1 - share)));
        canvas.mist(base + 30, 60, QColor(255, 212, 178, static_cast<int>(110 * (1 - share))));
    }
    const HeightLine edge = range(790, 70, 420, 0.35, 77);
    canvas.land(edge, QColor(18, 22, 40), QColor(12, 15, 28));
    canvas.conifers(edge, 80, 24, QColor(18, 22, 40), 5);
    canvas.glow(sun, 420, QColor(255, 176, 110, 70));
    return canvas.developed(1);
}

QImage duneSea()
{
    Canvas canvas;
    const QPointF sun(150, 300);
    canvas.gradient(0, 440,
                    {{0, QColor(58, 108, 168)}, {0.6, QColor(150, 182, 202)}, {1, QColor(250, 220, 182)}});
    canvas.gradient(430, height, {{0, QColor(232, 190, 146)}, {1, QColor(196, 126, 76)}});
    canvas.glow(sun, 620, QColor(255, 206, 140, 190));
    canvas.clouds(110, 60, QColor(255, 244, 232, 80), 22, 3);
    canvas.clouds(300, 40, QColor(255, 226, 190, 90), 14, 5);
    // From back to front. Each front lies no lower than the feet of the next dune, whose ground covers the
    // rest.
    const std::vector<Dune> dunes{
        {{560, 438}, {800, 386}, {1010, 438}, {770, 447}},
        {{-60, 446}, {210, 392}, {470, 446}, {180, 455}},
        {{900, 454}, {1110, 400}, {1330, 452}, {1075, 478}},
        {{330, 478}, {600, 404}, {860, 478}, {560, 522}},
        {{-260, 522}, {60, 440}, {420, 522}, {20, 562}},
        {{620, 562}, {960, 436}, {1360, 562}, {870, 660}},
        {{80, 660}, {470, 500}, {940, 660}, {380, 820}},
        {{-320, 812}, {-30, 640}, {330, 812}, {-60, 900}},
        {{560, 812}, {1060, 610}, {1500, 812}, {940, 1000}},
    };
    for (std::size_t index = 0; index < dunes.size(); ++index) {
        const double share = static_cast<double>(index) / static_cast<double>(dunes.size() - 1);
        const QColor lit = between(QColor(246, 212, 172), QColor(250, 190, 116), share);
        const QColor shade = between(QColor(196, 142, 116), QColor(104, 50, 34), share);
        paintDune(canvas, dunes[index], lit, shade);
        canvas.mist(dunes[index].peak.y() + 60, 50,
                    QColor(255, 222, 180, static_cast<int>(60 * (1 - share))));
    }
    canvas.glow(sun, 760, QColor(255, 190, 110, 70));
    return canvas.developed(2);
}

QImage mountainLake()
{
    Canvas canvas;
    constexpr double waterline = 500;
    canvas.gradient(0, waterline,
                    {{0, QColor(44, 104, 176)}, {0.55, QColor(126, 178, 220)}, {1, QColor(224, 236, 240)}});
    canvas.clouds(150, 70, QColor(255, 255, 255, 110), 34, 21);
    canvas.clouds(260, 60, QColor(255, 255, 255, 80), 24, 22);
    const HeightLine far = range(430, 350, 260, 0.54, 8);
    canvas.land(far, QColor(122, 142, 172), QColor(176, 196, 210));
    canvas.slopes(far, 110, QColor(250, 252, 255, 235), -1.0, 9);
    const HeightLine middle = range(470, 300, 240, 0.52, 16);
    canvas.land(middle, QColor(76, 94, 120), QColor(116, 140, 150));
    canvas.slopes(middle, 62, QColor(238, 244, 252, 220), -1.0, 17);
    canvas.mist(468, 46, QColor(226, 238, 244, 130));
    const HeightLine shore = range(492, 70, 260, 0.4, 23);
    canvas.land(shore, QColor(52, 88, 66), QColor(34, 66, 52));
    canvas.conifers(shore, 42, 9, QColor(30, 62, 48), 24);
    canvas.reflection(waterline, QColor(24, 74, 104, 110), 5, 25);
    canvas.mist(waterline + 2, 7, QColor(240, 248, 252, 120));
    const HeightLine bank = [](double x) { return 770 - 60 * noise(x / 300, 91, 0.5) + x * 0.05; };
    canvas.land(bank, QColor(40, 62, 40), QColor(18, 32, 24));
    canvas.conifers([&](double x) { return x < 330 ? bank(x) : height + 400.0; }, 250, 62, QColor(16, 36, 30),
                    92);
    return canvas.developed(3);
}

QImage forestInFog()
{
    Canvas canvas;
    canvas.gradient(0, height,
                    {{0, QColor(196, 212, 206)}, {0.5, QColor(222, 230, 220)}, {1, QColor(150, 172, 158)}});
    canvas.glow({820, 130}, 620, QColor(255, 250, 220, 200));
    const QColor far(190, 206, 198);
    const QColor near(18, 40, 34);
    constexpr int rows = 7;
    for (int index = 0; index < rows; ++index) {
        const double share = static_cast<double>(index) / (rows - 1);
        const QColor color = between(far, near, std::pow(share, 0.9));
        const double base = 330 + 470 * std::pow(share, 1.1);
        const HeightLine line = range(base, 120, 420, 0.4, 50 + index);
        canvas.conifers(line, 90 + 230 * share, 15 + 46 * share, color, 60 + index);
        canvas.land(line, color, between(color, QColor(216, 226, 216), 0.6 * (1 - share)));
        canvas.mist(base + 20, 110, QColor(222, 232, 224, static_cast<int>(175 * (1 - 0.85 * share))));
    }
    canvas.glow({820, 130}, 900, QColor(255, 246, 206, 70));
    return canvas.developed(4);
}

QImage starlitValley()
{
    Canvas canvas;
    canvas.gradient(0, height,
                    {{0, QColor(8, 12, 34)},
                     {0.4, QColor(22, 36, 78)},
                     {0.66, QColor(58, 78, 122)},
                     {0.8, QColor(122, 120, 136)},
                     {1, QColor(20, 20, 30)}});
    for (int step = 0; step < 36; ++step) {
        const double share = step / 35.0;
        const QPointF place(120 + 900 * share, 40 + 400 * share + 50 * (noise(share * 6, 5) - 0.5));
        canvas.glow(place, 120 + 70 * noise(share * 9, 6), QColor(120, 130, 190, 26));
        canvas.glow(place, 60, QColor(220, 190, 210, 16));
    }
    canvas.stars(2600, 600, 7);
    canvas.glow({930, 150}, 220, QColor(220, 226, 255, 90));
    QPainterPath moon;
    moon.addEllipse(QPointF(930, 150), 21, 21);
    QPainterPath unlit;
    unlit.addEllipse(QPointF(920, 144), 20, 20);
    canvas.fill(moon.subtracted(unlit), QColor(248, 246, 232));
    const HeightLine far = range(600, 210, 330, 0.47, 14);
    canvas.land(far, QColor(42, 56, 92), QColor(70, 80, 110));
    canvas.slopes(far, 44, QColor(150, 168, 214, 150), 1.0, 15);
    canvas.mist(610, 60, QColor(120, 126, 150, 90));
    const HeightLine middle = range(680, 160, 380, 0.42, 18);
    canvas.land(middle, QColor(24, 34, 60), QColor(30, 40, 64));
    canvas.conifers(middle, 34, 12, QColor(20, 30, 52), 19);
    canvas.mist(690, 40, QColor(90, 100, 128, 70));
    const HeightLine near = range(775, 90, 460, 0.35, 29);
    canvas.land(near, QColor(12, 18, 32), QColor(6, 10, 18));
    canvas.conifers(near, 110, 46, QColor(8, 13, 24), 30);
    QPainterPath tent;
    tent.moveTo(520, near(520) + 26);
    tent.lineTo(556, near(520) - 18);
    tent.lineTo(604, near(520) + 26);
    tent.closeSubpath();
    canvas.fill(tent, QColor(255, 214, 130), QColor(228, 128, 50));
    canvas.glow({560, near(520) + 10}, 150, QColor(255, 170, 80, 190));
    return canvas.developed(5);
}

QImage eveningCoast()
{
    Canvas canvas;
    constexpr double horizon = 400;
    canvas.gradient(0, horizon,
                    {{0, QColor(70, 82, 132)},
                     {0.45, QColor(190, 118, 134)},
                     {0.8, QColor(248, 168, 112)},
                     {1, QColor(255, 214, 150)}});
    const QPointF sun(420, 378);
    canvas.glow(sun, 520, QColor(255, 160, 90, 200));
    canvas.clouds(140, 80, QColor(96, 70, 110, 120), 26, 41);
    canvas.clouds(230, 60, QColor(255, 150, 120, 120), 26, 42);
    canvas.clouds(318, 30, QColor(255, 206, 150, 130), 16, 43);
    canvas.glow(sun, 150, QColor(255, 232, 180, 240));
    canvas.disc(sun, 34, QColor(255, 246, 214));
    canvas.reflection(horizon, QColor(44, 62, 96, 95), 9, 44);
    for (int wave = 0; wave < 90; ++wave) {
        const double share = wave / 89.0;
        const double y = horizon + 4 + 300 * share * share;
        const double x = sun.x() + (noise(wave * 3.7, 45) - 0.5) * (60 + 320 * share);
        const double reach = 12 + 90 * share * noise(wave * 1.9, 46);
        QPainterPath glint;
        glint.addEllipse({x, y}, reach, 0.8 + 2.6 * share);
        canvas.fill(glint, QColor(255, 230, 180, static_cast<int>(150 - 90 * share)));
    }
    const HeightLine farCape = [](double x) {
        return x < 760 ? height + 10.0
                       : horizon + 4 - 110 * std::pow((x - 760) / 440, 0.6) * (0.7 + 0.5 * noise(x / 90, 47));
    };
    QPainterPath cape;
    cape.moveTo(760, horizon + 4);
    for (int x = 760; x <= width + 2; ++x) {
        cape.lineTo(x, farCape(x));
    }
    cape.lineTo(width + 2, horizon + 4);
    cape.closeSubpath();
    canvas.fill(cape, QColor(104, 70, 96), QColor(140, 90, 104));
    const HeightLine beach = [](double x) {
        return 700 - 120 * std::pow(x / width, 1.6) + 22 * (noise(x / 180, 48, 0.4) - 0.5);
    };
    const HeightLine wash = [&](double x) { return beach(x) - 26 - 14 * noise(x / 70, 49, 0.5); };
    canvas.land(wash, QColor(255, 226, 206, 190), QColor(150, 120, 128));
    canvas.land([&](double x) { return wash(x) + 9 + 6 * noise(x / 40, 50); }, QColor(150, 116, 124),
                QColor(112, 84, 96));
    canvas.land(beach, QColor(150, 108, 100), QColor(70, 48, 58));
    const HeightLine rocks = [](double x) {
        return x < 760 ? height + 10.0
                       : 790 - 250 * std::pow((x - 760) / 440, 1.3) * (0.7 + 0.6 * noise(x / 110, 51, 0.55));
    };
    canvas.land(rocks, QColor(58, 40, 56), QColor(18, 12, 22));
    const HeightLine grass = [&](double x) { return rocks(x) + 46 + 40 * noise(x / 80, 53, 0.5); };
    canvas.land(grass, QColor(34, 24, 36), QColor(10, 8, 14));
    return canvas.developed(6);
}

} // namespace StandIn
