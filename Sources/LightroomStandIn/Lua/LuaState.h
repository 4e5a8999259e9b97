#pragma once

#include "Lua/LuaValue.h"

#include <deque>
#include <memory>

struct lua_State;

namespace StandIn {

/// A value in the registry of a Lua state; it lets go of it when it is destroyed, unless the state went
/// first.
class LuaReference
{
public:
    /// Takes the value on top of the stack.
    LuaReference(const std::shared_ptr<lua_State> &owner, lua_State *stack);
    ~LuaReference();
    LuaReference(const LuaReference &) = delete;
    LuaReference &operator=(const LuaReference &) = delete;

    void push(lua_State *stack) const;

private:
    std::weak_ptr<lua_State> m_owner;
    int m_slot;
};

/// A Lua 5.1 interpreter with its standard library. Nothing here throws or jumps: errors are returned.
/// Lua reads and writes numbers by the C locale of the process, so making a state sets LC_NUMERIC to "C".
class LuaState
{
public:
    LuaState();
    LuaState(const LuaState &) = delete;
    LuaState &operator=(const LuaState &) = delete;

    [[nodiscard]] LuaFunction function(LuaPrimitive primitive);

    /// Compiles a chunk; `name` stands in its error messages.
    [[nodiscard]] std::expected<LuaFunction, QString> load(const QByteArray &source, const QByteArray &name);

    /// Calls a function outside any task: it cannot yield.
    [[nodiscard]] LuaResult call(const LuaFunction &function, const LuaValues &arguments = {});

    void setGlobal(const char *name, const LuaValue &value);

private:
    friend class LuaThread;

    std::deque<LuaPrimitive>
        m_primitives; ///< closures in the state point into it, so it must outlive the state
    std::shared_ptr<lua_State> m_state;
};

/// A function that runs in a Lua thread of its own, and so can yield.
class LuaThread
{
public:
    LuaThread(LuaState &state, const LuaFunction &body);

    struct Step
    {
        bool isFinished = false;
        LuaValues values; ///< what it yielded or, at its end, returned
    };

    /// Runs it to its next yield or its end. Not to be called again after its end or an error.
    [[nodiscard]] std::expected<Step, QString> resume(const LuaValues &arguments = {});

private:
    lua_State *m_thread; ///< lives while the anchor and the state do
    std::unique_ptr<LuaReference> m_anchor;
};

} // namespace StandIn
