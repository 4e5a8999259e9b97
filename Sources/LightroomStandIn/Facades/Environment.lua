-- Prepares the environment in which a plug-in runs: its `import`, and what the facades share.
--
-- `host` holds the stand-in's own functions (tasks, sockets, catalog, ...). Each facade is a chunk that is
-- given `host` and returns its SDK module.

local host = ...

local coroutine = coroutine

host.coroutine = coroutine

-- What plug-ins do not find in Lightroom either.
for _, name in ipairs { "coroutine", "debug", "module", "package", "require" } do
    _G[name] = nil
end

-- Gives the event loop a turn, or so many seconds. Outside a task, or under a plain pcall, Lua refuses.
host.yield = coroutine.yield

-- Makes a table refuse the members that it does not have, by name, instead of answering with nil.
function host.sealed(name, members)
    local function refuse(_, key)
        error(name .. "." .. tostring(key) .. " is not modelled by the stand-in.", 2)
    end
    return setmetatable(members, { __index = refuse, __newindex = refuse, __metatable = false })
end

local function loader(sourceOf)
    local loaded = {}
    return function(name)
        if loaded[name] == nil then
            local source = sourceOf(name)
            if not source then
                error("The SDK module " .. tostring(name) .. " is not modelled by the stand-in.", 3)
            end
            loaded[name] = assert(loadstring(source, "=" .. name))(host)
        end
        return loaded[name]
    end
end

-- The stand-in's own facade, for the facades themselves and for those that take the place of one.
host.builtin = loader(host.builtinSource)

import = loader(host.facadeSource)

_PLUGIN = host.sealed("_PLUGIN", host.plugin)

-- Neither: this is no Lightroom of either system.
MAC_ENV, WIN_ENV = false, false
