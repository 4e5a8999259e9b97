#pragma once

#include <QLatin1StringView>
#include <QString>

namespace StandIn {

/// How Camera Raw writes the sign of a setting.
enum class SignStyle {
    plain,  ///< "25"
    marked, ///< "+25", "-25", "0"
};

/// A numeric develop setting: its key in the SDK, its property in a sidecar, and what it may be.
struct DevelopSetting
{
    QLatin1StringView key;
    QLatin1StringView property; ///< in the "crs" namespace of Camera Raw
    double lowest;
    double highest;
    SignStyle sign;
    int decimals;

    /// The value as Camera Raw writes it, brought into the bounds: "+0.50", "-10", "5500".
    [[nodiscard]] QString text(double value) const;
};

/// The setting with this SDK key; null when the stand-in does not know it.
[[nodiscard]] const DevelopSetting *developSettingWithKey(QStringView key);

/// The setting that is kept in this property; null when the stand-in does not know it.
[[nodiscard]] const DevelopSetting *developSettingInProperty(QStringView property);

} // namespace StandIn
