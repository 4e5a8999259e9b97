#pragma once

#include "AppIntents/KelvaLRSectionIntentValue.h"

#include <QString>

#include <optional>
#include <variant>

namespace KelvaLR {

class AppIntentRouter;

/// Shows a section of the window, and leaves the composer as it is.
struct OpenKelvaLRSectionIntent
{
    static constexpr QLatin1StringView title{"Open KelvaLR Section"};
    static constexpr QLatin1StringView sectionTitle{"Section"};

    KelvaLRSectionIntentValue section = KelvaLRSectionIntentValue::chat;

    bool operator==(const OpenKelvaLRSectionIntent &) const = default;
};

/// Places the text in the composer, as it is; nothing is submitted.
struct CreateKelvaLRNoteIntent
{
    static constexpr QLatin1StringView title{"Create KelvaLR Note"};
    static constexpr QLatin1StringView textTitle{"Text"};

    QString text;

    bool operator==(const CreateKelvaLRNoteIntent &) const = default;
};

/// What the system may ask of the program. Both want its window in front first.
using KelvaLRIntent = std::variant<OpenKelvaLRSectionIntent, CreateKelvaLRNoteIntent>;

/// Leaves the request with the router, from where the window takes it. Never fails.
/// @return what to tell the user; none when the window says enough
std::optional<QString> perform(const KelvaLRIntent &intent, AppIntentRouter &router);

} // namespace KelvaLR
