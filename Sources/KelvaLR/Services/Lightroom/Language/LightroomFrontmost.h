#pragma once

namespace KelvaLR {

class FrontmostApplication;

/// Whether the frontmost application is a Lightroom, by its name or its identifier. Main thread.
[[nodiscard]] bool isLightroomFrontmost(const FrontmostApplication &frontmost);

} // namespace KelvaLR
