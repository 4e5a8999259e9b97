#pragma once

#include "Platform/LightroomMenus.h"

#include <chrono>

namespace KelvaLR {

class Accessibility;
class RunningApplications;

/// Lightroom's menu items, found and pressed by way of the accessibility interface.
class AccessibleLightroomMenus final : public LightroomMenus
{
public:
    /// What is given by reference outlives this object and its tasks.
    /// @param activation how long Lightroom is given to come forward
    AccessibleLightroomMenus(RunningApplications &applications, Accessibility &accessibility,
                             std::chrono::milliseconds activation = std::chrono::milliseconds(500));

    QCoro::Task<std::expected<QString, QString>> clickBridgeStatus() override;
    QCoro::Task<> openPluginManager() override;

private:
    RunningApplications &m_applications;
    Accessibility &m_accessibility;
    std::chrono::milliseconds m_activation;
};

} // namespace KelvaLR
