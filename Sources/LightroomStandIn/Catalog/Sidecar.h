#pragma once

#include "Catalog/CameraRawSettings.h"

#include <expected>
#include <optional>

namespace StandIn {

/// What the sidecar of a photo says about it.
struct PhotoState
{
    std::optional<int> rating; ///< stars; none when never rated
    int pickStatus = 0;        ///< 1 picked, -1 rejected
    QStringList keywords;
    CameraRawSettings develop;

    bool operator==(const PhotoState &) const = default;
};

/// Changes to a photo that are not in its sidecar yet.
struct PhotoChanges
{
    std::optional<int> rating;
    std::optional<int> pickStatus;
    std::optional<QStringList> keywords;
    CameraRawSettings develop;

    /// The state with these changes made.
    [[nodiscard]] PhotoState appliedTo(PhotoState state) const;
};

/// Reads an XMP sidecar; an absent one gives an untouched photo. The error is a finished sentence.
[[nodiscard]] std::expected<PhotoState, QString> readSidecar(const QString &path);

/// Makes the changes in the sidecar, in one step, and keeps whatever else it holds. One that cannot be read
/// is left as it is.
[[nodiscard]] std::expected<void, QString> changeSidecar(const QString &path, const PhotoChanges &changes);

} // namespace StandIn
