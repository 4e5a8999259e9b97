#include "Catalog/DevelopSettingTable.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace StandIn {

namespace {

using enum SignStyle;

constexpr DevelopSetting signedSlider(const char *key, const char *property)
{
    return {QLatin1StringView(key), QLatin1StringView(property), -100, 100, marked, 0};
}

constexpr DevelopSetting amount(const char *key, double highest = 100)
{
    return {QLatin1StringView(key), QLatin1StringView(key), 0, highest, plain, 0};
}

/// The bounds are those of Lightroom's sliders. Most keys are the property's name; "2012" marks the settings
/// of the process versions since then.
constexpr std::array settings{
    DevelopSetting{QLatin1StringView("Exposure2012"), QLatin1StringView("Exposure2012"), -5, 5, marked, 2},
    signedSlider("Contrast2012", "Contrast2012"),
    signedSlider("Highlights2012", "Highlights2012"),
    signedSlider("Shadows2012", "Shadows2012"),
    signedSlider("Whites2012", "Whites2012"),
    signedSlider("Blacks2012", "Blacks2012"),
    DevelopSetting{QLatin1StringView("Temperature"), QLatin1StringView("Temperature"), 2000, 50000, plain, 0},
    DevelopSetting{QLatin1StringView("Tint"), QLatin1StringView("Tint"), -150, 150, marked, 0},
    signedSlider("Texture", "Texture"),
    signedSlider("Clarity", "Clarity2012"),
    signedSlider("Dehaze", "Dehaze"),
    signedSlider("Vibrance", "Vibrance"),
    signedSlider("Saturation", "Saturation"),
    amount("Sharpness", 150),
    amount("LuminanceSmoothing"),
    amount("ColorNoiseReduction"),
    amount("GrainAmount"),
    amount("GrainSize"),
    amount("GrainFrequency"),
    signedSlider("PostCropVignetteAmount", "PostCropVignetteAmount"),
};

const DevelopSetting *settingBy(QLatin1StringView DevelopSetting::*name, QStringView wanted)
{
    const auto *found = std::ranges::find_if(
        settings, [&](const DevelopSetting &setting) { return setting.*name == wanted; });
    return found == settings.end() ? nullptr : found;
}

} // namespace

QString DevelopSetting::text(double value) const
{
    const double step = std::pow(10.0, decimals);
    const double rounded = std::round(std::clamp(value, lowest, highest) * step) / step;
    const QString digits = QString::number(std::abs(rounded), 'f', decimals);
    if (rounded < 0) {
        return u'-' + digits;
    }
    return sign == marked && rounded > 0 ? u'+' + digits : digits;
}

const DevelopSetting *developSettingWithKey(QStringView key)
{
    return settingBy(&DevelopSetting::key, key);
}

const DevelopSetting *developSettingInProperty(QStringView property)
{
    return settingBy(&DevelopSetting::property, property);
}

} // namespace StandIn
