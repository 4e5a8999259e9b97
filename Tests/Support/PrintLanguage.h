#pragma once

#include "Services/Lightroom/Language/RouteExplanation.h"

#include <concepts>
#include <ostream>

// Shows the cases of the command language's variants in the messages of failed tests, as JSON.

namespace KelvaLR {

namespace LightroomCommand {

template <typename Command>
    requires std::constructible_from<LightroomComputerUseCommand, Command>
void PrintTo(const Command &command, std::ostream *out)
{
    *out << explainedRoute({}, Route::Command{command}).toStdString();
}

} // namespace LightroomCommand

namespace ImportedPhotoBatch {

template <typename Batch>
    requires std::constructible_from<ImportedPhotoBatchIntent, Batch>
void PrintTo(const Batch &batch, std::ostream *out)
{
    *out << explainedRoute(batch.prompt, Route::Batch{batch}).toStdString();
}

} // namespace ImportedPhotoBatch

namespace Route {

template <typename Road>
    requires std::constructible_from<PromptRoute, Road>
void PrintTo(const Road &road, std::ostream *out)
{
    *out << explainedRoute({}, road).toStdString();
}

} // namespace Route

} // namespace KelvaLR
