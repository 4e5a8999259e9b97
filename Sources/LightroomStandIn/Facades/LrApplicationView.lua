local host = ...

local LrApplicationView = {}

local modules = { library = true, develop = true, map = true, book = true, slideshow = true, print = true, web = true }

function LrApplicationView.getCurrentModuleName()
    return host.application.currentModule()
end

function LrApplicationView.switchToModule(name)
    host.yield()
    if not modules[name] then
        error("LrApplicationView.switchToModule: there is no module " .. tostring(name), 2)
    end
    host.application.switchToModule(name)
end

return host.sealed("LrApplicationView", LrApplicationView)
