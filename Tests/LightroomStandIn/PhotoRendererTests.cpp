#include "Rendering/PhotoRenderer.h"

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;
using namespace StandIn;

namespace {

/// The same colour everywhere.
QImage plain(QColor colour)
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

DevelopLook lookOf(const char *property, const char *value)
{
    return DevelopLook::from({{QString::fromLatin1(property), QString::fromLatin1(value)}});
}

int spread(QColor colour)
{
    const auto [least, most] = std::minmax({colour.red(), colour.green(), colour.blue()});
    return most - least;
}

} // namespace

TEST(PhotoRenderer, leavesAnUntouchedPhotoAsItIs)
{
    QImage ramp(256, 4, QImage::Format_RGB32);
    for (int x = 0; x < ramp.width(); ++x) {
        for (int y = 0; y < ramp.height(); ++y) {
            ramp.setPixel(x, y, qRgb(x, 255 - x, x / 2));
        }
    }
    EXPECT_EQ(developed(ramp, DevelopLook::from({})), ramp);
    EXPECT_TRUE(developed(QImage(), DevelopLook::from({})).isNull());
}

TEST(PhotoRenderer, showsWhatEachSettingDoes)
{
    const QColor middle(110, 120, 130);
    const QColor dark(30, 32, 34);
    const QColor bright(205, 210, 215);
    const QColor colourful(180, 90, 40);
    const auto brighter = [](QColor after, QColor before) { return after.green() > before.green() + 5; };
    const auto darker = [](QColor after, QColor before) { return after.green() < before.green() - 5; };
    const auto same = [](QColor after, QColor before) {
        return std::abs(after.green() - before.green()) <= 2;
    };
    const auto warmer = [](QColor after, QColor before) {
        return after.red() > before.red() && after.blue() < before.blue();
    };
    const auto cooler = [](QColor after, QColor before) {
        return after.red() < before.red() && after.blue() > before.blue();
    };
    const auto magenta = [](QColor after, QColor before) { return after.green() < before.green(); };
    const auto grey = [](QColor after, QColor) { return spread(after) == 0; };
    const auto richer = [](QColor after, QColor before) { return spread(after) > spread(before) + 5; };

    const struct
    {
        const char *property;
        const char *value;
        QColor before;
        std::function<bool(QColor after, QColor before)> isAsExpected;
    } rows[] = {
        {"Exposure2012", "+1.00", middle, brighter},
        {"Exposure2012", "-1.00", middle, darker},
        {"Contrast2012", "+50", dark, darker},
        {"Contrast2012", "+50", bright, brighter},
        {"Highlights2012", "-100", bright, darker},
        {"Highlights2012", "-100", dark, same},
        {"Shadows2012", "+100", dark, brighter},
        {"Shadows2012", "+100", bright, same},
        {"Whites2012", "+50", bright, brighter},
        {"Blacks2012", "-50", dark, darker},
        {"Temperature", "9000", middle, warmer},
        {"Temperature", "3000", middle, cooler},
        {"Tint", "+60", middle, magenta},
        {"Saturation", "-100", colourful, grey},
        {"Saturation", "+60", colourful, richer},
        {"Vibrance", "+80", middle, richer},
        {"ConvertToGrayscale", "True", colourful, grey},
    };

    for (const auto &row : rows) {
        const QImage after = developed(plain(row.before), lookOf(row.property, row.value));
        EXPECT_TRUE(row.isAsExpected(after.pixelColor(32, 24), row.before))
            << row.property << " " << row.value << ": " << after.pixelColor(32, 24).name().toStdString();
    }
}

TEST(PhotoRenderer, darkensTheCornersForAVignette)
{
    const QColor middle(110, 120, 130);
    const QImage after = developed(plain(middle), lookOf("PostCropVignetteAmount", "-50"));
    EXPECT_LT(after.pixelColor(0, 0).green(), middle.green() - 20);
    EXPECT_EQ(after.pixelColor(32, 24).green(), middle.green());
}
