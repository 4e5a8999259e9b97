#pragma once

#include "AppIntents/KelvaLRIntents.h"

#include <QLatin1StringView>

#include <array>

namespace KelvaLR {

/// How a user may ask the system for an action.
struct KelvaLRShortcut
{
    QLatin1StringView title; ///< of the action
    std::array<QLatin1StringView, 2> phrases;
    QLatin1StringView shortTitle;
    QLatin1StringView systemImage;
};

/// In the order in which they are offered.
inline constexpr std::array<KelvaLRShortcut, 2> KelvaLRShortcuts{{
    {OpenKelvaLRSectionIntent::title,
     {QLatin1StringView("Open KelvaLR"), QLatin1StringView("Open Chat in KelvaLR")},
     QLatin1StringView("Open KelvaLR"),
     QLatin1StringView("message")},
    {CreateKelvaLRNoteIntent::title,
     {QLatin1StringView("Create a note in KelvaLR"), QLatin1StringView("Save this to KelvaLR")},
     QLatin1StringView("Create Note"),
     QLatin1StringView("square.and.pencil")},
}};

} // namespace KelvaLR
