local host = ...

local LrApplication = {}

function LrApplication.activeCatalog()
    return host.builtin("Catalog").active
end

function LrApplication.developPresetFolders()
    return host.builtin("DevelopPreset").folders()
end

return host.sealed("LrApplication", LrApplication)
