#include "Lua/LuaState.h"

#include <lua.hpp>

#include <clocale>
#include <exception>

namespace StandIn {

namespace {

/// Tables nested deeper than this do not cross; the data that crosses is flat.
constexpr int deepestTable = 8;
constexpr int roomForNesting = 2 * deepestTable + 4;

/// Where a state keeps the address of the shared pointer that owns it, for the references that calls make.
constexpr const char *ownerKey = "StandIn.owner";

std::shared_ptr<lua_State> ownerOf(lua_State *stack)
{
    lua_getfield(stack, LUA_REGISTRYINDEX, ownerKey);
    const auto *owner = static_cast<const std::shared_ptr<lua_State> *>(lua_touserdata(stack, -1));
    lua_pop(stack, 1);
    return *owner;
}

QByteArray bytesAt(lua_State *stack, int index)
{
    std::size_t length = 0;
    const char *bytes = lua_tolstring(stack, index, &length);
    return {bytes, static_cast<qsizetype>(length)};
}

LuaValue valueAt(lua_State *stack, int index, int depth);

LuaTable tableAt(lua_State *stack, int index, int depth)
{
    LuaTable table;
    const auto count = static_cast<int>(lua_objlen(stack, index));
    for (int item = 1; item <= count; ++item) {
        lua_rawgeti(stack, index, item);
        table.items.push_back(valueAt(stack, lua_gettop(stack), depth + 1));
        lua_pop(stack, 1);
    }
    lua_pushnil(stack);
    while (lua_next(stack, index) != 0) {
        if (lua_type(stack, -2) == LUA_TSTRING) {
            table.fields.push_back({bytesAt(stack, -2), valueAt(stack, lua_gettop(stack), depth + 1)});
        }
        lua_pop(stack, 1);
    }
    return table;
}

/// `index` counts from the bottom of the stack, which must have room for two more values a level.
LuaValue valueAt(lua_State *stack, int index, int depth)
{
    switch (lua_type(stack, index)) {
    case LUA_TBOOLEAN:
        return lua_toboolean(stack, index) != 0;
    case LUA_TNUMBER:
        return lua_tonumber(stack, index);
    case LUA_TSTRING:
        return bytesAt(stack, index);
    case LUA_TFUNCTION:
        lua_pushvalue(stack, index);
        return LuaFunction{std::make_shared<const LuaReference>(ownerOf(stack), stack)};
    case LUA_TTABLE:
        return depth < deepestTable ? LuaValue(tableAt(stack, index, depth)) : LuaValue();
    default:
        return {};
    }
}

LuaValues valuesFrom(lua_State *stack, int first)
{
    LuaValues values;
    const int last = lua_gettop(stack);
    for (int index = first; index <= last && lua_checkstack(stack, roomForNesting) != 0; ++index) {
        values.push_back(valueAt(stack, index, 0));
    }
    return values;
}

void push(lua_State *stack, const LuaValue &value);

struct Pusher
{
    lua_State *stack;

    void operator()(std::monostate) const { lua_pushnil(stack); }

    void operator()(bool value) const { lua_pushboolean(stack, value ? 1 : 0); }

    void operator()(double value) const { lua_pushnumber(stack, value); }

    void operator()(const QByteArray &bytes) const
    {
        lua_pushlstring(stack, bytes.constData(), static_cast<std::size_t>(bytes.size()));
    }

    void operator()(const LuaFunction &function) const { function.reference->push(stack); }

    void operator()(const LuaTable &table) const
    {
        lua_createtable(stack, static_cast<int>(table.items.size()), static_cast<int>(table.fields.size()));
        int position = 0;
        for (const LuaValue &item : table.items) {
            push(stack, item);
            lua_rawseti(stack, -2, ++position);
        }
        for (const LuaField &field : table.fields) {
            (*this)(field.name);
            push(stack, field.value);
            lua_rawset(stack, -3);
        }
    }
};

void push(lua_State *stack, const LuaValue &value)
{
    std::visit(Pusher{stack}, value.data);
}

/// Pushes the values, as far as the stack can grow; how many it pushed.
int pushAll(lua_State *stack, const LuaValues &values)
{
    int pushed = 0;
    for (const LuaValue &value : values) {
        if (lua_checkstack(stack, roomForNesting) == 0) {
            break;
        }
        push(stack, value);
        ++pushed;
    }
    return pushed;
}

LuaResult callGuarded(const LuaPrimitive &primitive, const LuaValues &arguments)
{
    try {
        return primitive(arguments);
    } catch (const std::exception &error) {
        return std::unexpected(QString::fromUtf8(error.what()));
    }
}

/// Leaves the results, or one error text, on the stack; the number of results, or -1 for an error.
int runPrimitive(lua_State *stack)
{
    const auto *primitive = static_cast<const LuaPrimitive *>(lua_touserdata(stack, lua_upvalueindex(1)));
    const LuaResult result = callGuarded(*primitive, valuesFrom(stack, 1));
    if (!result) {
        push(stack, result.error().toUtf8());
        return -1;
    }
    return pushAll(stack, *result);
}

/// Only plain values live in this frame: lua_error leaves it by longjmp, which runs no destructors.
int callPrimitive(lua_State *stack)
{
    const int results = runPrimitive(stack);
    return results >= 0 ? results : lua_error(stack);
}

QString takeError(lua_State *stack)
{
    const char *text = lua_tostring(stack, -1);
    const QString error = text ? QString::fromUtf8(text) : QStringLiteral("an error that is no text");
    lua_pop(stack, 1);
    return error;
}

std::shared_ptr<lua_State> openState()
{
    std::setlocale(LC_NUMERIC, "C");
    return {luaL_newstate(), [](lua_State *state) { lua_close(state); }};
}

} // namespace

LuaReference::LuaReference(const std::shared_ptr<lua_State> &owner, lua_State *stack)
    : m_owner(owner)
    , m_slot(luaL_ref(stack, LUA_REGISTRYINDEX))
{
}

LuaReference::~LuaReference()
{
    if (const auto owner = m_owner.lock()) {
        luaL_unref(owner.get(), LUA_REGISTRYINDEX, m_slot);
    }
}

void LuaReference::push(lua_State *stack) const
{
    lua_rawgeti(stack, LUA_REGISTRYINDEX, m_slot);
}

LuaState::LuaState()
    : m_state(openState())
{
    lua_State *stack = m_state.get();
    luaL_openlibs(stack);
    lua_pushlightuserdata(stack, &m_state);
    lua_setfield(stack, LUA_REGISTRYINDEX, ownerKey);
}

LuaFunction LuaState::function(LuaPrimitive primitive)
{
    lua_State *stack = m_state.get();
    lua_pushlightuserdata(stack, &m_primitives.emplace_back(std::move(primitive)));
    lua_pushcclosure(stack, callPrimitive, 1);
    return {std::make_shared<const LuaReference>(m_state, stack)};
}

std::expected<LuaFunction, QString> LuaState::load(const QByteArray &source, const QByteArray &name)
{
    lua_State *stack = m_state.get();
    const auto size = static_cast<std::size_t>(source.size());
    if (luaL_loadbuffer(stack, source.constData(), size, name.constData()) != 0) {
        return std::unexpected(takeError(stack));
    }
    return LuaFunction{std::make_shared<const LuaReference>(m_state, stack)};
}

LuaResult LuaState::call(const LuaFunction &function, const LuaValues &arguments)
{
    lua_State *stack = m_state.get();
    const int before = lua_gettop(stack);
    lua_checkstack(stack, roomForNesting);
    function.reference->push(stack);
    if (lua_pcall(stack, pushAll(stack, arguments), LUA_MULTRET, 0) != 0) {
        return std::unexpected(takeError(stack));
    }
    LuaValues results = valuesFrom(stack, before + 1);
    lua_settop(stack, before);
    return results;
}

void LuaState::setGlobal(const char *name, const LuaValue &value)
{
    push(m_state.get(), value);
    lua_setglobal(m_state.get(), name);
}

LuaThread::LuaThread(LuaState &state, const LuaFunction &body)
    : m_thread(lua_newthread(state.m_state.get()))
    , m_anchor(std::make_unique<LuaReference>(state.m_state, state.m_state.get()))
{
    body.reference->push(m_thread);
}

std::expected<LuaThread::Step, QString> LuaThread::resume(const LuaValues &arguments)
{
    const int status = lua_resume(m_thread, pushAll(m_thread, arguments));
    if (status != 0 && status != LUA_YIELD) {
        return std::unexpected(takeError(m_thread));
    }
    Step step{.isFinished = status == 0, .values = valuesFrom(m_thread, 1)};
    lua_settop(m_thread, 0);
    return step;
}

} // namespace StandIn
