#pragma once

#include "Catalog/CameraRawSettings.h"

namespace StandIn {

/// The develop settings that the preview shows, in the units of their sliders.
struct DevelopLook
{
    double temperature = 0; ///< kelvins
    double tint = 0;
    double exposure = 0; ///< stops
    double contrast = 0;
    double highlights = 0;
    double shadows = 0;
    double whites = 0;
    double blacks = 0;
    double clarity = 0;
    double dehaze = 0;
    double vibrance = 0;
    double saturation = 0;
    double vignette = 0;
    bool isMonochrome = false;

    [[nodiscard]] static DevelopLook from(const CameraRawSettings &settings);

    bool operator==(const DevelopLook &) const = default;
};

} // namespace StandIn
