#include "Rendering/PhotoRenderer.h"

#include "Catalog/DevelopSettingTable.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace StandIn {

namespace {

/// From a stored level to a displayed one, 0 to 1, for one colour.
using LevelTable = std::array<float, 256>;

struct Pixel
{
    float red;
    float green;
    float blue;
};

/// The transfer curve of sRGB (IEC 61966-2-1) and its inverse.
double linearLight(double level)
{
    return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
}

double displayLevel(double light)
{
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

double smoothStep(double from, double to, double value)
{
    const double place = std::clamp((value - from) / (to - from), 0.0, 1.0);
    return place * place * (3 - 2 * place);
}

/// A warmer setting takes the light for bluer than it is, so the picture turns yellow. Counted in mireds,
/// whose steps look alike, and bounded where the picture would be all of one colour.
double warmth(const DevelopLook &look)
{
    const double neutral = developSettingWithKey(u"Temperature")->neutral;
    const double mireds = 1e6 / neutral - 1e6 / std::max(look.temperature, 1.0);
    return std::clamp(mireds / 100, -2.0, 2.0);
}

/// The curve through which all three colours go, on displayed levels.
double toned(double level, const DevelopLook &look)
{
    const double brightness = smoothStep(0.35, 1, level);
    const double darkness = 1 - smoothStep(0, 0.65, level);
    level += look.highlights / 100 * 0.22 * brightness * (1.2 - std::min(level, 1.0));
    level += look.highlights / 100 * 0.06 * brightness;
    level += look.shadows / 100 * 0.28 * darkness * std::min(level * 4, 1.0);
    level *= 1 + look.whites / 100 * 0.22 * brightness;
    level += look.blacks / 100 * 0.16 * darkness;
    level -= look.dehaze / 100 * 0.10 * (1 - std::min(level, 1.0));
    level = std::clamp(level, 0.0, 1.0);
    const double steepness = look.contrast / 100 + 0.5 * look.clarity / 100 + 0.4 * look.dehaze / 100;
    const double bent = level * level * (3 - 2 * level);
    return std::clamp(level + std::clamp(0.9 * steepness, -1.0, 1.5) * (bent - level), 0.0, 1.0);
}

LevelTable levelTable(double stops, const DevelopLook &look)
{
    LevelTable table{};
    for (std::size_t stored = 0; stored < table.size(); ++stored) {
        const double light = linearLight(static_cast<double>(stored) / 255) * std::exp2(stops);
        table[stored] = static_cast<float>(toned(displayLevel(light), look));
    }
    return table;
}

/// How the colours of a pixel move away from its grey.
class Colouring
{
public:
    explicit Colouring(const DevelopLook &look)
        : m_saturation(look.isMonochrome ? 0 : static_cast<float>(1 + look.saturation / 100))
        , m_vibrance(static_cast<float>(look.vibrance / 100))
    {
    }

    [[nodiscard]] Pixel operator()(Pixel pixel) const
    {
        // The luminance weights of sRGB's primaries.
        const float grey = 0.2126F * pixel.red + 0.7152F * pixel.green + 0.0722F * pixel.blue;
        const auto [lowest, highest] = std::minmax({pixel.red, pixel.green, pixel.blue});
        const float strength = m_saturation * (1 + m_vibrance * (1 - (highest - lowest)));
        return {grey + (pixel.red - grey) * strength, grey + (pixel.green - grey) * strength,
                grey + (pixel.blue - grey) * strength};
    }

private:
    float m_saturation;
    float m_vibrance;
};

/// How much light is left at each distance from the centre.
class Vignette
{
public:
    Vignette(QSize size, double amount)
        : m_width(static_cast<float>(size.width()))
        , m_height(static_cast<float>(size.height()))
        , m_strength(static_cast<float>(amount / 100))
    {
    }

    [[nodiscard]] float factor(int x, int y) const
    {
        const float across = 2 * static_cast<float>(x) / m_width - 1;
        const float down = 2 * static_cast<float>(y) / m_height - 1;
        const float distance = (across * across + down * down) / 2;
        return 1 + m_strength * 0.85F * distance * distance * (3 - 2 * distance);
    }

private:
    float m_width;
    float m_height;
    float m_strength;
};

int stored(float level)
{
    return static_cast<int>(std::lrint(std::clamp(level, 0.0F, 1.0F) * 255));
}

} // namespace

QImage developed(const QImage &photo, const DevelopLook &look)
{
    const double warm = warmth(look);
    const LevelTable red = levelTable(look.exposure + 0.4 * warm, look);
    const LevelTable green = levelTable(look.exposure - 0.4 * look.tint / 150, look);
    const LevelTable blue = levelTable(look.exposure - 0.4 * warm, look);
    const Colouring colouring(look);
    const Vignette vignette(photo.size(), look.vignette);

    QImage picture = photo.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb before = line[x];
            const Pixel after = colouring({red[qRed(before)], green[qGreen(before)], blue[qBlue(before)]});
            const float light = vignette.factor(x, y);
            line[x] =
                qRgb(stored(after.red * light), stored(after.green * light), stored(after.blue * light));
        }
    }
    return picture;
}

} // namespace StandIn
