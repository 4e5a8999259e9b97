#pragma once

#include <QLatin1StringView>

#include <array>

namespace KelvaLR {

/// The photo file extensions that can be imported, in lower case and without the dot.
inline constexpr std::array<QLatin1StringView, 19> supportedPhotoExtensions{
    QLatin1StringView("jpg"),  QLatin1StringView("jpeg"), QLatin1StringView("png"),  QLatin1StringView("tif"),
    QLatin1StringView("tiff"), QLatin1StringView("heic"), QLatin1StringView("heif"), QLatin1StringView("dng"),
    QLatin1StringView("arw"),  QLatin1StringView("cr2"),  QLatin1StringView("cr3"),  QLatin1StringView("nef"),
    QLatin1StringView("nrw"),  QLatin1StringView("raf"),  QLatin1StringView("rw2"),  QLatin1StringView("orf"),
    QLatin1StringView("pef"),  QLatin1StringView("srw"),  QLatin1StringView("x3f"),
};

} // namespace KelvaLR
