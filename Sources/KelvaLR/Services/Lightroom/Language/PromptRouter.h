#pragma once

#include "Services/Lightroom/Language/ImportedPhotoBatchIntent.h"
#include "Services/Lightroom/Language/LightroomComputerUseCommand.h"

#include <QString>

#include <variant>

namespace KelvaLR {

class FrontmostApplication;

/// The roads that a typed request can take, one struct for each.
namespace Route {

/// Nothing but white space.
struct Ignored
{
    bool operator==(const Ignored &) const = default;
};

/// The user asks whether Lightroom answers.
struct ConnectionTest
{
    bool operator==(const ConnectionTest &) const = default;
};

/// A folder of photos is to be imported.
struct FolderImport
{
    QString path; ///< as the user wrote it; a tilde is not expanded

    bool operator==(const FolderImport &) const = default;
};

/// Something is to be done to imported photos.
struct Batch
{
    ImportedPhotoBatchIntent intent;

    bool operator==(const Batch &) const = default;
};

/// A command that is carried out locally.
struct Command
{
    LightroomComputerUseCommand command;

    bool operator==(const Command &) const = default;
};

/// Everything else goes to the chat assistant.
struct Chat
{
    bool operator==(const Chat &) const = default;
};

} // namespace Route

using PromptRoute = std::variant<Route::Ignored, Route::ConnectionTest, Route::FolderImport, Route::Batch,
                                 Route::Command, Route::Chat>;

/// Decides where a request goes; white space around it does not matter. Carries nothing out. Main thread,
/// because some texts raise the question which application is frontmost.
[[nodiscard]] PromptRoute routePrompt(const QString &text, const FrontmostApplication &frontmost);

} // namespace KelvaLR
