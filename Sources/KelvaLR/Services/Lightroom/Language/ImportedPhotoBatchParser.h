#pragma once

#include "Services/Lightroom/Language/ImportedPhotoBatchIntent.h"

#include <optional>

// Recognises requests about the imported photos, such as "rate the selected photos 4 stars", and which of the
// photos they mean. Stateless, any thread.

namespace KelvaLR {

/// None when the text does not speak of imported photos or names nothing that can be done to them.
[[nodiscard]] std::optional<ImportedPhotoBatchIntent> importedPhotoBatchIntent(const QString &text);

/// Whether a lower-cased text speaks of imported photos at all.
[[nodiscard]] bool referencesImportedPhotoSelection(QStringView lower);

/// Whether a lower-cased text means every imported photo, not only the selected ones.
[[nodiscard]] bool meansAllImportedPhotos(QStringView lower);

/// Whether an assistant action (`lr_...`, in any case, blanks around it ignored) can be aimed at chosen
/// photos.
[[nodiscard]] bool isImportedPhotoTargetableAction(const QString &action);

} // namespace KelvaLR
