#pragma once

#include "Platform/LightroomMenus.h"

namespace KelvaLR {

/// For a system on which this build cannot reach the menus of Lightroom.
class UnavailableLightroomMenus final : public LightroomMenus
{
public:
    QCoro::Task<std::expected<QString, QString>> clickBridgeStatus() override;
    QCoro::Task<> openPluginManager() override;
};

} // namespace KelvaLR
