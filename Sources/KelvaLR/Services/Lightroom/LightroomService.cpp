#include "Services/Lightroom/LightroomService.h"

#include "Platform/LightroomMenus.h"
#include "Platform/RunningApplications.h"

namespace KelvaLR {

LightroomService::LightroomService(RunningApplications &applications, Accessibility &accessibility,
                                   LightroomMenus &menus, UIAutomationService &automation,
                                   LightroomPluginInstaller installer, DebugLog log, BridgeEndpoint endpoint,
                                   BridgeTiming timing, std::FILE *report, QObject *parent)
    : QObject(parent)
    , m_applications(applications)
    , m_accessibility(accessibility)
    , m_menus(menus)
    , m_automation(automation)
    , m_installer(std::move(installer))
    , m_log(std::move(log))
    , m_endpoint(std::move(endpoint))
    , m_timing(timing)
    , m_report(report)
{
    installPlugin();
}

LightroomService::~LightroomService() = default;

void LightroomService::setPluginConnected(bool isConnected)
{
    if (m_isPluginConnected == isConnected) {
        return;
    }
    m_isPluginConnected = isConnected;
    Q_EMIT isPluginConnectedChanged();
}

void LightroomService::setLastMessage(const QString &message)
{
    if (m_lastMessage == message) {
        return;
    }
    m_lastMessage = message;
    Q_EMIT lastMessageChanged();
}

bool LightroomService::installPlugin()
{
    const std::expected<void, QString> installed = m_installer.install();
    m_isPluginInstalled = installed.has_value();
    if (!installed) {
        std::fprintf(m_report, "Failed to install Lightroom plugin: %s\n", qUtf8Printable(installed.error()));
        std::fflush(m_report);
    }
    return m_isPluginInstalled;
}

void LightroomService::revealInstalledPlugin()
{
    m_applications.reveal(m_installer.pluginFolder());
}

QCoro::Task<> LightroomService::openPluginManager()
{
    return m_menus.openPluginManager();
}

} // namespace KelvaLR
