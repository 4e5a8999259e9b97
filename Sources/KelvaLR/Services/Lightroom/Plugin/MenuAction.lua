-- "KelvaLR Status": starts the bridge if it does not run yet, and says whether it runs.

local LrDialogs = import "LrDialogs"

-- The server does not yield while it is loaded, so a plain pcall is enough.
local ok, problem = pcall(dofile, _PLUGIN.path .. "/LightroomSocketServer.lua")

if ok then
    LrDialogs.message("KelvaLR Assistant Bridge",
        "The background assistant connection is active and running.", "info")
else
    LrDialogs.message("KelvaLR Assistant Bridge",
        "Could not start the background assistant connection: " .. tostring(problem), "critical")
end
