#pragma once

#include "Services/Lightroom/Language/ParsedLightroomSliderCommand.h"

#include <QString>

#include <variant>

namespace KelvaLR {

/// What can be done to a batch of imported photos, one struct for each. Every one carries the whole request
/// as `prompt`, because its words also say which photos are meant.
namespace ImportedPhotoBatch {

struct ApplyPreset
{
    QString name;
    QString prompt;

    bool operator==(const ApplyPreset &) const = default;
};

struct Cull
{
    QString type; ///< "pick", "reject" or "unflag"
    QString prompt;

    bool operator==(const Cull &) const = default;
};

struct Rate
{
    int rating = 0; ///< 0 to 5
    QString prompt;

    bool operator==(const Rate &) const = default;
};

struct AdjustSlider
{
    ParsedLightroomSliderCommand slider;
    QString prompt;

    bool operator==(const AdjustSlider &) const = default;
};

struct AdjustSliders
{
    QString adjustments; ///< "name:value:flag" entries joined by ";", flag "1" for relative
    QString prompt;

    bool operator==(const AdjustSliders &) const = default;
};

} // namespace ImportedPhotoBatch

/// One action on a batch of imported photos.
using ImportedPhotoBatchIntent =
    std::variant<ImportedPhotoBatch::ApplyPreset, ImportedPhotoBatch::Cull, ImportedPhotoBatch::Rate,
                 ImportedPhotoBatch::AdjustSlider, ImportedPhotoBatch::AdjustSliders>;

/// The whole request that the intent was read from.
[[nodiscard]] inline const QString &prompt(const ImportedPhotoBatchIntent &intent)
{
    return std::visit([](const auto &batch) -> const QString & { return batch.prompt; }, intent);
}

} // namespace KelvaLR
