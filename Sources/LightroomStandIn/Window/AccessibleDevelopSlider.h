#pragma once

namespace StandIn {

/// Lets assistive technology find develop settings in the sliders of this program. Once is enough.
void installAccessibleDevelopSliders();

} // namespace StandIn
