#include "Catalog/DevelopSettingTable.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace StandIn {

namespace {

using enum SignStyle;

/// A setting from -100 to 100, unless the highest is another.
constexpr DevelopSetting balance(const char *key, const char *property, const char *group, const char *label,
                                 double highest = 100)
{
    return {.key = QLatin1StringView(key),
            .property = QLatin1StringView(property),
            .group = QLatin1StringView(group),
            .label = QLatin1StringView(label),
            .lowest = -highest,
            .highest = highest,
            .sign = marked,
            .decimals = 0};
}

constexpr DevelopSetting balance(const char *key, const char *group, const char *label)
{
    return balance(key, key, group, label);
}

constexpr DevelopSetting amount(const char *key, const char *group, const char *label, double highest = 100)
{
    DevelopSetting setting = balance(key, key, group, label, highest);
    setting.lowest = 0;
    setting.sign = plain;
    return setting;
}

constexpr DevelopSetting exposure()
{
    DevelopSetting setting = balance("Exposure2012", "Exposure2012", "Tone", "Exposure", 5);
    setting.decimals = 2;
    return setting;
}

/// In kelvins.
constexpr DevelopSetting temperature()
{
    DevelopSetting setting = amount("Temperature", "White Balance", "Temp", 50000);
    setting.lowest = 2000;
    setting.neutral = 5500; // daylight: the stand-in does not read a camera's own white balance
    return setting;
}

/// The bounds and labels are those of Lightroom's sliders. Most keys are the property's name; "2012" marks
/// the settings of the process versions since then.
constexpr std::array settings{
    temperature(),
    balance("Tint", "Tint", "White Balance", "Tint", 150),
    exposure(),
    balance("Contrast2012", "Tone", "Contrast"),
    balance("Highlights2012", "Tone", "Highlights"),
    balance("Shadows2012", "Tone", "Shadows"),
    balance("Whites2012", "Tone", "Whites"),
    balance("Blacks2012", "Tone", "Blacks"),
    balance("Texture", "Presence", "Texture"),
    balance("Clarity", "Clarity2012", "Presence", "Clarity"),
    balance("Dehaze", "Presence", "Dehaze"),
    balance("Vibrance", "Presence", "Vibrance"),
    balance("Saturation", "Presence", "Saturation"),
    amount("Sharpness", "Detail", "Sharpening Amount", 150),
    amount("LuminanceSmoothing", "Detail", "Luminance Noise"),
    amount("ColorNoiseReduction", "Detail", "Color Noise"),
    balance("PostCropVignetteAmount", "Effects", "Vignette Amount"),
    amount("GrainAmount", "Effects", "Grain Amount"),
    amount("GrainSize", "Effects", "Grain Size"),
    amount("GrainFrequency", "Effects", "Grain Roughness"),
};

const DevelopSetting *settingBy(QLatin1StringView DevelopSetting::*name, QStringView wanted)
{
    const auto *found = std::ranges::find_if(
        settings, [&](const DevelopSetting &setting) { return setting.*name == wanted; });
    return found == settings.end() ? nullptr : found;
}

} // namespace

double DevelopSetting::rounded(double value) const
{
    const double step = std::pow(10.0, decimals);
    return std::round(std::clamp(value, lowest, highest) * step) / step;
}

QString DevelopSetting::text(double value) const
{
    const double exact = rounded(value);
    const QString digits = QString::number(std::abs(exact), 'f', decimals);
    if (exact < 0) {
        return u'-' + digits;
    }
    return sign == marked && exact > 0 ? u'+' + digits : digits;
}

double DevelopSetting::valueIn(const CameraRawSettings &among) const
{
    const auto found = among.constFind(property);
    const auto *text = found == among.cend() ? nullptr : std::get_if<QString>(&found.value());
    bool isNumber = false;
    const double value = text ? text->toDouble(&isNumber) : neutral;
    return isNumber && std::isfinite(value) ? rounded(value) : neutral;
}

std::span<const DevelopSetting> developSettings()
{
    return settings;
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
