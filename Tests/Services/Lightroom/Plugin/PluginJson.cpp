#include "Services/Lightroom/Plugin/PluginJson.h"

#include <lua.hpp>

#include <clocale>

namespace KelvaLR::Testing {

namespace {

/// Loads the server file without an SDK: its tasks never start, so only its reader and writer are alive.
constexpr auto glue = R"(
    import = function()
        return { startAsyncTask = function() end }
    end
    _PLUGIN = { path = "/nonexistent" }
    local json = dofile(...).json
    function readAndWrite(text)
        local value, problem = json.decode(text)
        if problem ~= nil then
            return nil, problem
        end
        return json.encode(value), nil
    end
    write = json.encode
)";

} // namespace

PluginJson::PluginJson()
    : m_state(luaL_newstate(), lua_close)
{
    std::setlocale(LC_NUMERIC, "C");
    lua_State *state = m_state.get();
    luaL_openlibs(state);
    const bool isCompiled = luaL_loadstring(state, glue) == 0;
    lua_pushstring(state, KELVALR_PLUGIN_FOLDER "/LightroomSocketServer.lua");
    if (!isCompiled || lua_pcall(state, 1, 0, 0) != 0) {
        qFatal("The plug-in's server cannot be loaded: %s", lua_tostring(state, -1));
    }
}

void PluginJson::call(const char *function, const QByteArray &text)
{
    lua_State *state = m_state.get();
    lua_settop(state, 0);
    lua_getglobal(state, function);
    lua_pushlstring(state, text.constData(), static_cast<std::size_t>(text.size()));
    if (lua_pcall(state, 1, 2, 0) != 0) {
        qFatal("The plug-in's JSON code failed: %s", lua_tostring(state, -1));
    }
}

QByteArray PluginJson::textAt(int index) const
{
    std::size_t size = 0;
    const char *bytes = lua_tolstring(m_state.get(), index, &size);
    return {bytes, static_cast<qsizetype>(size)};
}

std::expected<QByteArray, QString> PluginJson::readAndWrite(const QByteArray &text)
{
    call("readAndWrite", text);
    if (lua_isstring(m_state.get(), 1) == 0) {
        return std::unexpected(QString::fromUtf8(textAt(2)));
    }
    return textAt(1);
}

QByteArray PluginJson::write(const QByteArray &bytes)
{
    call("write", bytes);
    return textAt(1);
}

} // namespace KelvaLR::Testing
