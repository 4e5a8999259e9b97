local host = ...

local LrTasks = host.builtin("LrTasks")

local LrFunctionContext = {}

local function newContext(name)
    local handlers = {}
    local context = host.sealed("LrFunctionContext object", {
        addCleanupHandler = function(_, handler)
            handlers[#handlers + 1] = handler
        end,
        name = name,
    })
    local function cleanUp(...)
        for index = #handlers, 1, -1 do
            LrTasks.pcall(handlers[index], ...)
        end
    end
    return context, cleanUp
end

-- Calls body(context, ...); the cleanup handlers run, last one first, whether it returns or fails.
function LrFunctionContext.pcallWithContext(name, body, ...)
    local context, cleanUp = newContext(name)
    local function finish(ok, ...)
        cleanUp(ok, ...)
        return ok, ...
    end
    return finish(LrTasks.pcall(body, context, ...))
end

function LrFunctionContext.callWithContext(name, body, ...)
    local function unwrap(ok, ...)
        if not ok then
            error((...), 0)
        end
        return ...
    end
    return unwrap(LrFunctionContext.pcallWithContext(name, body, ...))
end

return host.sealed("LrFunctionContext", LrFunctionContext)
