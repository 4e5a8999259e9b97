local host = ...

local coroutine = host.coroutine

local LrTasks = {}

function LrTasks.startAsyncTask(body)
    host.tasks.start(body)
end

function LrTasks.sleep(seconds)
    host.yield(seconds)
end

function LrTasks.yield()
    host.yield()
end

function LrTasks.canYield()
    return host.tasks.current() ~= nil
end

-- A protected call that may yield: the function runs in a thread of its own, whose yields are passed on.
function LrTasks.pcall(body, ...)
    local thread = coroutine.create(function(...)
        return body(...)
    end)
    local function continue(ok, ...)
        if ok and coroutine.status(thread) == "suspended" then
            return continue(coroutine.resume(thread, host.yield(...)))
        end
        return ok, ...
    end
    return continue(coroutine.resume(thread, ...))
end

return host.sealed("LrTasks", LrTasks)
