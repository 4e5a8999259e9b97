#include "App/SystemActionService.h"

#include "App/SystemActionAdaptors.h"
#include "App/SystemActionNames.h"

#include <QDBusConnectionInterface>

#include <chrono>
#include <utility>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::milliseconds handOverDeadline{10'000};

/// The call that asks the running program for an action, or for no more than its window.
struct CallFor
{
    QDBusMessage operator()(const OpenKelvaLRSectionIntent &intent) const
    {
        return call(SystemActionName::intentsInterface, SystemActionName::openSection)
               << rawValue(intent.section);
    }

    QDBusMessage operator()(const CreateKelvaLRNoteIntent &intent) const
    {
        return call(SystemActionName::intentsInterface, SystemActionName::createNote) << intent.text;
    }

    static QDBusMessage activation()
    {
        return call(SystemActionName::applicationInterface, SystemActionName::activate) << QVariantMap();
    }

private:
    static QDBusMessage call(QLatin1StringView interface, QLatin1StringView method)
    {
        QDBusMessage message = QDBusMessage::createMethodCall(SystemActionName::service,
                                                              SystemActionName::path, interface, method);
        message.setAutoStartService(false); // the one that runs is meant
        return message;
    }
};

} // namespace

SystemActionService::SystemActionService(AppIntentRouter &router, Present present)
    : m_router(router)
    , m_present(std::move(present))
{
}

SystemActionService::~SystemActionService()
{
    if (m_bus) {
        m_bus->unregisterService(SystemActionName::service);
        m_bus->unregisterObject(SystemActionName::path);
    }
}

SystemActionService::Publication SystemActionService::publish(QDBusConnection bus)
{
    if (!bus.isConnected()) {
        return Publication::noBus;
    }
    if (!findChild<IntentsAdaptor *>()) {
        new IntentsAdaptor(*this, bus);
        new ApplicationAdaptor(*this, bus);
    }
    // The object first: whoever waits for the name calls at once.
    bus.registerObject(SystemActionName::path, this, QDBusConnection::ExportAdaptors);
    if (bus.registerService(SystemActionName::service)) {
        m_bus = bus;
        return Publication::published;
    }
    bus.unregisterObject(SystemActionName::path);
    return isAnotherRunning(bus) ? Publication::anotherRuns : Publication::noBus;
}

bool isAnotherRunning(const QDBusConnection &bus)
{
    return bus.isConnected() && bus.interface()->isServiceRegistered(SystemActionName::service);
}

std::expected<void, QString> SystemActionService::activate()
{
    if (!m_present()) {
        return std::unexpected(u"KelvaLR could not open its window."_s);
    }
    return {};
}

std::expected<std::optional<QString>, QString> SystemActionService::run(const KelvaLRIntent &intent)
{
    if (const auto active = activate(); !active) {
        return std::unexpected(active.error());
    }
    return perform(intent, m_router);
}

std::expected<std::optional<QString>, QString> handOver(const QDBusConnection &bus,
                                                        const std::optional<KelvaLRIntent> &intent)
{
    const QDBusMessage call = intent ? std::visit(CallFor(), *intent) : CallFor::activation();
    const QDBusMessage reply = bus.call(call, QDBus::Block, int(handOverDeadline.count()));
    if (reply.type() == QDBusMessage::ErrorMessage) {
        const bool isItsOwnSentence = QDBusError(reply).type() == QDBusError::Failed;
        return std::unexpected(isItsOwnSentence ? reply.errorMessage()
                                                : u"KelvaLR already runs, but does not answer."_s);
    }
    const QVariantList answers = reply.arguments();
    return answers.isEmpty() ? std::nullopt : std::optional(answers.constFirst().toString());
}

} // namespace KelvaLR
