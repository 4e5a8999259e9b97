-- The catalog, which LrApplication hands out. Every call yields.

local host = ...

local Photo = host.builtin("Photo")
local writeGate = host.builtin("WriteGate")

local catalog = {}

local function photosWith(ids)
    local photos = {}
    for index, id in ipairs(ids) do
        photos[index] = Photo.withId(id)
    end
    return photos
end

function catalog:withReadAccessDo(work)
    host.yield()
    return work()
end

function catalog:withWriteAccessDo(actionName, work, timeoutParams)
    host.yield()
    return writeGate.pass(actionName, work, timeoutParams)
end

function catalog:getAllPhotos()
    host.yield()
    return photosWith(host.catalog.photos())
end

function catalog:getTargetPhoto()
    host.yield()
    local id = host.catalog.activePhoto()
    return id and Photo.withId(id)
end

-- The selected photos, or all of them when none is selected.
function catalog:getTargetPhotos()
    host.yield()
    local selected = host.catalog.selectedPhotos()
    return photosWith(#selected > 0 and selected or host.catalog.photos())
end

function catalog:setSelectedPhotos(activePhoto, photos)
    host.yield()
    local ids = {}
    for index, photo in ipairs(photos) do
        ids[index] = photo.localIdentifier
    end
    host.catalog.select(activePhoto.localIdentifier, ids)
end

function catalog:findPhotoByPath(path)
    host.yield()
    local id = host.catalog.find(path)
    return id and Photo.withId(id)
end

function catalog:addPhoto(path)
    host.yield()
    writeGate.require("LrCatalog:addPhoto")
    return Photo.withId(host.catalog.add(path))
end

return host.sealed("Catalog", { active = host.sealed("LrCatalog object", catalog) })
