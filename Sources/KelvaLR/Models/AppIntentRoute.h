#pragma once

#include "Models/SidebarSection.h"

#include <QUuid>

#include <optional>

namespace KelvaLR {

/// A request of a system action for the window. Two requests with equal content differ in their `id`.
struct AppIntentRoute
{
    QUuid id = QUuid::createUuid();
    SidebarSection destination = SidebarSection::chat;
    std::optional<QString> prefilledPrompt;

    bool operator==(const AppIntentRoute &) const = default;
};

} // namespace KelvaLR
