-- Develop presets and their folders, which LrApplication hands out.

local host = ...

local function newPreset(record)
    return host.sealed("LrDevelopPreset object", {
        getName = function()
            host.yield()
            return record.name
        end,
        id = record.id,
    })
end

local function newFolder(record)
    local presets = {}
    for index, preset in ipairs(record.presets) do
        presets[index] = newPreset(preset)
    end
    return host.sealed("LrDevelopPresetFolder object", {
        getName = function()
            host.yield()
            return record.name
        end,
        getDevelopPresets = function()
            host.yield()
            return presets
        end,
    })
end

local DevelopPreset = {}

function DevelopPreset.folders()
    host.yield()
    local folders = {}
    for index, record in ipairs(host.presets.folders()) do
        folders[index] = newFolder(record)
    end
    return folders
end

return host.sealed("DevelopPreset", DevelopPreset)
