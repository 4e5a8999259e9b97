#pragma once

#include "Lua/LuaState.h"
#include "Lua/TaskScheduler.h"
#include "Plugin/DialogMessage.h"
#include "Plugin/SocketPrimitives.h"

#include <QHash>
#include <QObject>

#include <expected>

namespace StandIn {

class Catalog;
class CurrentModule;
class PresetLibrary;

struct PluginIdentity
{
    QString folder;
    QString identifier;
};

/// The Lua state in which a loaded plug-in lives, with its globals, tasks and sockets. Destroying it ends
/// them.
class PluginEnvironment : public QObject
{
    Q_OBJECT

public:
    PluginEnvironment(const PluginIdentity &plugin, Catalog &catalog, const PresetLibrary &presets,
                      CurrentModule &module, const QHash<QString, QByteArray> &facades);
    ~PluginEnvironment() override;

    /// Runs a script to its end, outside any task. The error is Lua's own text.
    [[nodiscard]] std::expected<void, QString> run(const QByteArray &source, const QString &name);

Q_SIGNALS:
    void listening(quint16 port);
    void listenFailed(quint16 port, const QString &error);
    void messageShown(const StandIn::DialogMessage &message);
    void taskFailed(const QString &error);

private:
    [[nodiscard]] LuaTable primitives(const PluginIdentity &plugin, Catalog &catalog,
                                      const PresetLibrary &presets,
                                      const QHash<QString, QByteArray> &facades);
    [[nodiscard]] LuaTable taskPrimitives();
    [[nodiscard]] LuaTable applicationPrimitives();

    CurrentModule &m_module;

    // Destroyed from the last to the first: whatever refers to the state goes before it.
    LuaState m_state;
    TaskScheduler m_scheduler;
    SocketPrimitives m_sockets;
};

} // namespace StandIn
