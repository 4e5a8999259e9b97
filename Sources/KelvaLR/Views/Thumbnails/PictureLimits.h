#pragma once

#include <QtGlobal>

namespace KelvaLR {

/// In pixels; a picture that claims more is not decoded. The largest sensors behind our formats have 102
/// million. A progressive JPEG needs up to 6 bytes for each pixel of it while it is decoded, however small
/// its thumbnail.
inline constexpr qint64 largestPicture = 128'000'000;

} // namespace KelvaLR
