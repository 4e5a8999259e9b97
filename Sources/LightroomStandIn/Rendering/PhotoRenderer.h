#pragma once

#include "Rendering/DevelopLook.h"

#include <QImage>

namespace StandIn {

/// The photo as these settings develop it: an impression for the eye, not Camera Raw's arithmetic. Any
/// thread.
[[nodiscard]] QImage developed(const QImage &photo, const DevelopLook &look);

} // namespace StandIn
