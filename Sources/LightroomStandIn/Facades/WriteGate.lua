-- The one gate through which the catalog is changed: one task at a time, and all of its changes or none.

local host = ...

local LrTasks = host.builtin("LrTasks")

local POLL_STEP = 0.05 -- seconds

local WriteGate = {}

local holder -- the task inside the gate

local function waitUntilFree(deadline)
    while holder and host.tasks.now() < deadline do
        LrTasks.sleep(POLL_STEP)
    end
    return not holder
end

local function blocked(actionName)
    error("LrCatalog:withWriteAccessDo: could not execute action '" .. tostring(actionName)
        .. "'. It was blocked by another write access call, and no timeout parameters were provided.", 0)
end

local function runInside(work)
    holder = host.tasks.current()
    host.catalog.beginChanges()
    local ok, problem = LrTasks.pcall(work, {})
    if ok then
        ok, problem = pcall(host.catalog.commitChanges)
    else
        host.catalog.discardChanges()
    end
    holder = nil
    if not ok then
        error(problem, 0)
    end
end

-- Returns "executed", or "aborted" when another task held the gate for the whole time-out.
function WriteGate.pass(actionName, work, timeoutParams)
    if holder and not timeoutParams then
        blocked(actionName)
    elseif holder and not waitUntilFree(host.tasks.now() + (timeoutParams.timeout or 0)) then
        if timeoutParams.callback then
            timeoutParams.callback(actionName, work)
        end
        return "aborted"
    end
    runInside(work)
    return "executed"
end

-- Fails unless the running task is inside the gate.
function WriteGate.require(call)
    if not holder or holder ~= host.tasks.current() then
        error(call .. ": must be called inside LrCatalog:withWriteAccessDo.", 0)
    end
end

return host.sealed("WriteGate", WriteGate)
