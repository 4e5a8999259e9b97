#pragma once

#include <QString>

namespace KelvaLR {

/// A request to move one develop slider.
struct ParsedLightroomSliderCommand
{
    QString sliderName;    ///< the plug-in's key, such as "exposure" or "grainamount"
    double value = 0;      ///< in the slider's own unit (EV, kelvin, slider units); not clamped
    bool relative = false; ///< add the value to the photo's setting instead of replacing it

    bool operator==(const ParsedLightroomSliderCommand &) const = default;
};

} // namespace KelvaLR
