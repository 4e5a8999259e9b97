#pragma once

#include "Models/RawValue.h"

namespace KelvaLR {

/// The user's settings, all of them switches; the raw value is the key under which one is kept.
enum class Preference { startInQuietMode, readResponsesAloud, allowComputerControl };

template <>
inline constexpr std::array<RawValueRow<Preference>, 3> rawValueTable<Preference>{{
    {Preference::startInQuietMode, QLatin1StringView("startInQuietMode")},
    {Preference::readResponsesAloud, QLatin1StringView("readResponsesAloud")},
    {Preference::allowComputerControl, QLatin1StringView("allowComputerControl")},
}};

/// What holds while a preference has never been written.
[[nodiscard]] constexpr bool defaultValue(Preference preference)
{
    return preference == Preference::startInQuietMode;
}

/// Keeps the user's settings between runs. Main thread.
class Preferences
{
public:
    Preferences() = default;
    virtual ~Preferences() = default;
    Q_DISABLE_COPY_MOVE(Preferences)

    [[nodiscard]] virtual bool isOn(Preference preference) const = 0;
    /// Takes effect at once, also in a KelvaLR that runs already.
    /// @return false when it cannot be kept; it then holds for this object only
    virtual bool setOn(Preference preference, bool isOn) = 0;
};

} // namespace KelvaLR
