#include "Plugin/SocketPrimitives.h"

#include "Plugin/ReceivingSocket.h"

using namespace Qt::StringLiterals;

namespace StandIn {

SocketPrimitives::SocketPrimitives(LuaState &state)
    : m_state(state)
{
}

SocketPrimitives::~SocketPrimitives() = default;

LuaTable SocketPrimitives::primitives()
{
    const auto reconnect = [this](const LuaValues &arguments) -> LuaResult {
        if (ReceivingSocket *wanted = socket(arguments)) {
            wanted->reconnect();
        }
        return {};
    };
    const auto close = [this](const LuaValues &arguments) -> LuaResult {
        if (ReceivingSocket *wanted = socket(arguments)) {
            wanted->close();
        }
        return {};
    };
    return {.items = {},
            .fields = {{"listen",
                        m_state.function([this](const LuaValues &arguments) { return listen(arguments); })},
                       {"reconnect", m_state.function(reconnect)},
                       {"close", m_state.function(close)}}};
}

LuaResult SocketPrimitives::listen(const LuaValues &arguments)
{
    const double port = argument(arguments, 0).number(-1);
    const auto *callbacks = argument(arguments, 1).as<LuaTable>();
    if (port < 0 || port > 65535 || !callbacks) {
        return std::unexpected(u"LrSocket.bind: the port must be a number from 0 to 65535."_s);
    }
    const int id = static_cast<int>(m_sockets.size()) + 1;
    auto &created = m_sockets[id] = std::make_unique<ReceivingSocket>(static_cast<quint16>(port));
    connectCallbacks(*created, *callbacks);
    created->reconnect();
    return LuaValues{static_cast<double>(id)};
}

void SocketPrimitives::connectCallbacks(ReceivingSocket &socket, const LuaTable &callbacks)
{
    const quint16 port = socket.port();
    connect(&socket, &ReceivingSocket::listening, this, &SocketPrimitives::listening);
    connect(&socket, &ReceivingSocket::connected, this,
            [this, port, callback = callbacks.field("onConnected")] {
                call(callback, {static_cast<double>(port)});
            });
    connect(
        &socket, &ReceivingSocket::lineReceived, this,
        [this, callback = callbacks.field("onMessage")](const QByteArray &line) { call(callback, {line}); });
    connect(&socket, &ReceivingSocket::closed, this,
            [this, callback = callbacks.field("onClosed")] { call(callback, {}); });
    connect(&socket, &ReceivingSocket::failed, this,
            [this, port, callback = callbacks.field("onError")](const QString &error) {
                call(callback, {error.toUtf8()});
                if (error != "timeout"_L1) {
                    Q_EMIT listenFailed(port, error);
                }
            });
}

void SocketPrimitives::call(const LuaValue &callback, const LuaValues &arguments)
{
    const auto *function = callback.as<LuaFunction>();
    if (!function) {
        return;
    }
    if (const auto result = m_state.call(*function, arguments); !result) {
        Q_EMIT callbackFailed(result.error());
    }
}

ReceivingSocket *SocketPrimitives::socket(const LuaValues &arguments) const
{
    const auto found = m_sockets.find(static_cast<int>(argument(arguments, 0).number(0)));
    return found == m_sockets.end() ? nullptr : found->second.get();
}

} // namespace StandIn
