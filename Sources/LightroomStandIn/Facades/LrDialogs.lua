local host = ...

local LrDialogs = {}

function LrDialogs.message(message, info, style)
    host.application.showMessage(message, info or "", style or "warning")
end

return host.sealed("LrDialogs", LrDialogs)
