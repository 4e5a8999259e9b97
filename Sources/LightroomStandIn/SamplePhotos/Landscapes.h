#pragma once

#include <QImage>

namespace StandIn {

// Six landscapes, the same at every call.

[[nodiscard]] QImage dawnOverTheRidges();
[[nodiscard]] QImage duneSea();
[[nodiscard]] QImage mountainLake();
[[nodiscard]] QImage forestInFog();
[[nodiscard]] QImage starlitValley();
[[nodiscard]] QImage eveningCoast();

} // namespace StandIn
