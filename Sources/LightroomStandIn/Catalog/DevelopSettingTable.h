#pragma once

#include "Catalog/CameraRawSettings.h"

#include <QLatin1StringView>
#include <QString>

#include <span>

namespace StandIn {

/// How Camera Raw writes the sign of a setting.
enum class SignStyle {
    plain,  ///< "25"
    marked, ///< "+25", "-25", "0"
};

/// A numeric develop setting: its names in the SDK, in a sidecar and beside its slider, and what it may be.
struct DevelopSetting
{
    QLatin1StringView key;
    QLatin1StringView property; ///< in the "crs" namespace of Camera Raw
    QLatin1StringView group;    ///< the heading of its sliders in the Develop module
    QLatin1StringView label;    ///< of its slider; no two are the same
    double lowest;
    double highest;
    SignStyle sign;
    int decimals;
    double neutral = 0; ///< of a photo whose sidecar does not say

    /// The value as Camera Raw writes it, brought into the bounds: "+0.50", "-10", "5500".
    [[nodiscard]] QString text(double value) const;

    /// The value among these settings; the neutral one where it is none or no number.
    [[nodiscard]] double valueIn(const CameraRawSettings &settings) const;

    /// The value as text() writes it, as a number.
    [[nodiscard]] double rounded(double value) const;
};

/// All of them, in the order of the Develop module.
[[nodiscard]] std::span<const DevelopSetting> developSettings();

/// The setting with this SDK key; null when the stand-in does not know it.
[[nodiscard]] const DevelopSetting *developSettingWithKey(QStringView key);

/// The setting that is kept in this property; null when the stand-in does not know it.
[[nodiscard]] const DevelopSetting *developSettingInProperty(QStringView property);

} // namespace StandIn
