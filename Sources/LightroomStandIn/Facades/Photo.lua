-- Photos, which the catalog hands out.
-- Every call yields; what changes a photo is refused outside a write gate.

local host = ...

local writeGate = host.builtin("WriteGate")

local formatted = {
    fileName = function(id)
        return host.catalog.fileName(id)
    end,
}

local readable = {
    path = function(id)
        return host.catalog.path(id)
    end,
    rating = function(id)
        return host.catalog.rating(id)
    end,
    pickStatus = function(id)
        return host.catalog.pickStatus(id)
    end,
}

local writable = {
    rating = function(id, value)
        host.catalog.setRating(id, value or 0)
    end,
    pickStatus = function(id, value)
        host.catalog.setPickStatus(id, value)
    end,
}

local function lookUp(fields, call, key)
    local field = fields[key]
    if not field then
        error("LrPhoto:" .. call .. ": the key " .. tostring(key) .. " is not modelled by the stand-in.", 3)
    end
    return field
end

local function newPhoto(id)
    local photo = { localIdentifier = id }

    function photo:getFormattedMetadata(key)
        host.yield()
        return lookUp(formatted, "getFormattedMetadata", key)(self.localIdentifier)
    end

    function photo:getRawMetadata(key)
        host.yield()
        return lookUp(readable, "getRawMetadata", key)(self.localIdentifier)
    end

    function photo:setRawMetadata(key, value)
        host.yield()
        local set = lookUp(writable, "setRawMetadata", key)
        writeGate.require("LrPhoto:setRawMetadata")
        set(self.localIdentifier, value)
    end

    function photo:getDevelopSettings()
        host.yield()
        return host.catalog.developSettings(self.localIdentifier)
    end

    function photo:applyDevelopSettings(settings)
        host.yield()
        writeGate.require("LrPhoto:applyDevelopSettings")
        host.catalog.applyDevelopSettings(self.localIdentifier, settings)
    end

    function photo:applyDevelopPreset(preset)
        host.yield()
        writeGate.require("LrPhoto:applyDevelopPreset")
        host.catalog.applyDevelopPreset(self.localIdentifier, preset.id)
    end

    return host.sealed("LrPhoto object", photo)
end

local photos = {}

local Photo = {}

-- The one object that stands for a photo.
function Photo.withId(id)
    photos[id] = photos[id] or newPhoto(id)
    return photos[id]
end

return host.sealed("Photo", Photo)
