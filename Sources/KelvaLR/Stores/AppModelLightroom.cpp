// What the window says of the road to Lightroom, and what the user does about it there.
#include "Services/Lightroom/LightroomConnectionWatch.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Stores/RespondingScope.h"
#include "Support/DetachedTask.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

std::optional<LightroomConnection> AppModel::lightroomHint() const
{
    const LightroomConnection &connection = m_services.lightroomConnection.connection();
    const bool isUsable = std::holds_alternative<Connection::Usable>(connection);
    return isUsable || connection == m_dismissedHint ? std::nullopt : std::optional(connection);
}

void AppModel::lookAtLightroom()
{
    m_services.lightroomConnection.look();
}

void AppModel::dismissLightroomHint()
{
    if (const std::optional<LightroomConnection> hint = lightroomHint()) {
        m_dismissedHint = hint;
        updateLightroomHint();
    }
}

void AppModel::openLightroom()
{
    if (!m_isResponding) {
        startDetached(openInstalledLightroom());
    }
}

void AppModel::updateLightroomHint()
{
    if (m_services.lightroomConnection.connection() != m_dismissedHint) {
        m_dismissedHint.reset();
    }
    m_services.lightroomConnection.setFollowed(lightroomHint().has_value());
    Q_EMIT lightroomHintChanged();
}

QCoro::Task<> AppModel::openInstalledLightroom()
{
    const RespondingScope responding(*this);
    const QPointer<AppModel> self(this);
    const ComputerUseResult result = co_await m_services.computerUseService.openLightroomApp(u"Lightroom"_s);
    if (!self) {
        co_return;
    }
    appendAssistantMessage(result.summary);
    lookAtLightroom();
}

} // namespace KelvaLR
