#include "Platform/Unavailable/UnavailableLightroomMenus.h"

namespace KelvaLR {

QCoro::Task<std::expected<QString, QString>> UnavailableLightroomMenus::clickBridgeStatus()
{
    co_return std::unexpected(
        QStringLiteral("The menus of Lightroom Classic cannot be reached on this system."));
}

QCoro::Task<> UnavailableLightroomMenus::openPluginManager()
{
    co_return;
}

} // namespace KelvaLR
