#include "Plugin/PluginEnvironment.h"

#include "Plugin/CatalogPrimitives.h"
#include "Plugin/CurrentModule.h"

#include <QElapsedTimer>
#include <QFile>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

QByteArray shippedFacade(const QString &name)
{
    QFile file(u":/LightroomStandIn/Facades/%1.lua"_s.arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

LuaResult sourceOrNil(const QByteArray &source)
{
    return LuaValues{source.isEmpty() ? LuaValue() : LuaValue(source)};
}

/// Only the SDK's own modules can be imported, not what the facades share among themselves.
bool isImportable(const QString &name)
{
    return name.startsWith("Lr"_L1);
}

double secondsSinceStart()
{
    static const QElapsedTimer clock = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    return static_cast<double>(clock.nsecsElapsed()) / 1e9;
}

} // namespace

PluginEnvironment::PluginEnvironment(const PluginIdentity &plugin, Catalog &catalog,
                                     const PresetLibrary &presets, CurrentModule &module,
                                     const QHash<QString, QByteArray> &facades)
    : m_module(module)
    , m_scheduler(m_state)
    , m_sockets(m_state)
{
    connect(&m_scheduler, &TaskScheduler::taskFailed, this, &PluginEnvironment::taskFailed);
    connect(&m_sockets, &SocketPrimitives::callbackFailed, this, &PluginEnvironment::taskFailed);
    connect(&m_sockets, &SocketPrimitives::listening, this, &PluginEnvironment::listening);
    connect(&m_sockets, &SocketPrimitives::listenFailed, this, &PluginEnvironment::listenFailed);

    const auto prepare = m_state.load(shippedFacade(u"Environment"_s), "=Environment");
    const auto prepared = prepare ? m_state.call(*prepare, {primitives(plugin, catalog, presets, facades)})
                                  : LuaResult(std::unexpected(prepare.error()));
    if (!prepared) {
        qFatal("The environment of the plug-in cannot be prepared: %s", qUtf8Printable(prepared.error()));
    }
}

PluginEnvironment::~PluginEnvironment() = default;

std::expected<void, QString> PluginEnvironment::run(const QByteArray &source, const QString &name)
{
    const auto chunk = m_state.load(source, "@" + name.toUtf8());
    if (!chunk) {
        return std::unexpected(chunk.error());
    }
    if (const auto result = m_state.call(*chunk); !result) {
        return std::unexpected(result.error());
    }
    return {};
}

LuaTable PluginEnvironment::primitives(const PluginIdentity &plugin, Catalog &catalog,
                                       const PresetLibrary &presets,
                                       const QHash<QString, QByteArray> &facades)
{
    const auto builtinSource = [](const LuaValues &arguments) {
        return sourceOrNil(shippedFacade(argument(arguments, 0).text()));
    };
    const auto facadeSource = [facades](const LuaValues &arguments) {
        const QString name = argument(arguments, 0).text();
        const QByteArray replacement = facades.value(name);
        const bool isShipped = replacement.isEmpty() && isImportable(name);
        return sourceOrNil(isShipped ? shippedFacade(name) : replacement);
    };
    const LuaTable identity{.items = {},
                            .fields = {{"path", plugin.folder.toUtf8()}, {"id", plugin.identifier.toUtf8()}}};
    return {.items = {},
            .fields = {{"builtinSource", m_state.function(builtinSource)},
                       {"facadeSource", m_state.function(facadeSource)},
                       {"plugin", identity},
                       {"tasks", taskPrimitives()},
                       {"sockets", m_sockets.primitives()},
                       {"application", applicationPrimitives()},
                       {"catalog", catalogPrimitives(m_state, catalog, presets)},
                       {"presets", presetPrimitives(m_state, presets)}}};
}

LuaTable PluginEnvironment::taskPrimitives()
{
    const auto start = [this](const LuaValues &arguments) -> LuaResult {
        const auto *body = argument(arguments, 0).as<LuaFunction>();
        if (!body) {
            return std::unexpected(u"LrTasks.startAsyncTask: a task needs a function."_s);
        }
        m_scheduler.start(*body);
        return {};
    };
    const auto current = [this](const LuaValues &) -> LuaResult {
        const auto task = m_scheduler.currentTask();
        return LuaValues{task ? LuaValue(static_cast<double>(*task)) : LuaValue()};
    };
    const auto now = [](const LuaValues &) -> LuaResult { return LuaValues{secondsSinceStart()}; };
    return {.items = {},
            .fields = {{"start", m_state.function(start)},
                       {"current", m_state.function(current)},
                       {"now", m_state.function(now)}}};
}

LuaTable PluginEnvironment::applicationPrimitives()
{
    const auto currentModule = [this](const LuaValues &) -> LuaResult { return LuaValues{m_module.name()}; };
    const auto switchToModule = [this](const LuaValues &arguments) -> LuaResult {
        m_module.switchTo(argument(arguments, 0).text().toUtf8());
        return {};
    };
    const auto showMessage = [this](const LuaValues &arguments) -> LuaResult {
        Q_EMIT messageShown({.title = argument(arguments, 0).text(),
                             .text = argument(arguments, 1).text(),
                             .kind = argument(arguments, 2).text()});
        return {};
    };
    return {.items = {},
            .fields = {{"currentModule", m_state.function(currentModule)},
                       {"switchToModule", m_state.function(switchToModule)},
                       {"showMessage", m_state.function(showMessage)}}};
}

} // namespace StandIn
