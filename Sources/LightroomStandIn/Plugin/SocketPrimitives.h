#pragma once

#include "Lua/LuaState.h"

#include <QObject>

#include <map>
#include <memory>

namespace StandIn {

class ReceivingSocket;

/// The sockets of a plug-in, and the functions by which its LrSocket makes and drives them.
class SocketPrimitives : public QObject
{
    Q_OBJECT

public:
    explicit SocketPrimitives(LuaState &state);
    ~SocketPrimitives() override;

    /// listen(port, {onConnected, onMessage, onClosed, onError}) → id; reconnect(id); close(id).
    [[nodiscard]] LuaTable primitives();

Q_SIGNALS:
    void listening(quint16 port);
    void listenFailed(quint16 port, const QString &error);
    void callbackFailed(const QString &error);

private:
    LuaResult listen(const LuaValues &arguments);
    void connectCallbacks(ReceivingSocket &socket, const LuaTable &callbacks);
    void call(const LuaValue &callback, const LuaValues &arguments);
    [[nodiscard]] ReceivingSocket *socket(const LuaValues &arguments) const;

    LuaState &m_state;
    std::map<int, std::unique_ptr<ReceivingSocket>> m_sockets;
};

} // namespace StandIn
