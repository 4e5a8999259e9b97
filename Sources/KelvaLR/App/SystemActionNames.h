#pragma once

#include <QLatin1StringView>

namespace KelvaLR {

/// The program's names on the session bus; the desktop's files under Packaging/ say them, too.
namespace SystemActionName {

inline constexpr QLatin1StringView service{"org.kelvalr.KelvaLR"};
inline constexpr QLatin1StringView path{"/org/kelvalr/KelvaLR"};
inline constexpr QLatin1StringView intentsInterface{"org.kelvalr.KelvaLR.Intents"};
inline constexpr QLatin1StringView openSection{"OpenKelvaLRSection"};
inline constexpr QLatin1StringView createNote{"CreateKelvaLRNote"};

/// https://specifications.freedesktop.org/desktop-entry-spec/latest/dbus.html
inline constexpr QLatin1StringView applicationInterface{"org.freedesktop.Application"};
inline constexpr QLatin1StringView activate{"Activate"};

/// The actions of the desktop entry.
inline constexpr QLatin1StringView openSectionAction{"OpenSection"};
inline constexpr QLatin1StringView createNoteAction{"CreateNote"};

} // namespace SystemActionName

} // namespace KelvaLR
