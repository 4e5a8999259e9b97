-- The Lightroom half of the KelvaLR bridge.
--
-- The application connects to a local port, writes one line of JSON (the request) and hangs up. Each
-- request runs in a task of its own; its reply is a JSON file that the application picks up and deletes.
--
-- Lightroom runs this file when it initialises the plug-in, and "KelvaLR Status" runs it again.
-- Catalog and photo calls yield, so calls that may fail around them go through LrTasks.pcall: Lua 5.1
-- cannot yield across a plain pcall.

local LrApplication = import "LrApplication"
local LrApplicationView = import "LrApplicationView"
local LrFunctionContext = import "LrFunctionContext"
local LrSocket = import "LrSocket"
local LrTasks = import "LrTasks"

local PORT = 54321
local KEEP_ALIVE_STEP = 0.5 -- seconds between two looks at whether the server still runs
local RECONNECT_PAUSE = 0.1 -- seconds before listening again after a time-out; at once would storm
local DEVELOP_PAUSE = 0.3 -- seconds that Lightroom needs to settle in the Develop module
local WRITE_GATE_TIMEOUT = 5 -- seconds; the application waits eight for the reply
local LONGEST_ECHO = 64 * 1024 -- bytes of a message; replies over 1 MiB would not be read
local DEEPEST_NESTING = 100 -- arrays and objects inside each other

local byte, char, find, format, gsub, lower, match, sub =
    string.byte, string.char, string.find, string.format, string.gsub, string.lower, string.match, string.sub
local concat = table.concat

local function log(text)
    local file = io.open(_PLUGIN.path .. "/lua_debug.log", "a")
    if file then
        file:write(os.date(), ": ", text, "\n")
        file:close()
    end
end

if KelvaLRSocketStarted then
    log("Socket server already started")
    return {}
end
KelvaLRSocketStarted = true

-- Text

local REPLACEMENT_CHARACTER = "\239\191\189" -- U+FFFD

-- For each lead byte of a UTF-8 sequence: how long the sequence is, and between which bounds its second
-- byte lies (Unicode, table 3-7; the bounds keep out overlong forms, surrogates and what is past U+10FFFF).
local utf8Leads = {}
do
    local function add(first, last, length, lowest, highest)
        for lead = first, last do
            utf8Leads[lead] = { length = length, lowest = lowest, highest = highest }
        end
    end
    add(0xC2, 0xDF, 2, 0x80, 0xBF)
    add(0xE0, 0xE0, 3, 0xA0, 0xBF)
    add(0xE1, 0xEC, 3, 0x80, 0xBF)
    add(0xED, 0xED, 3, 0x80, 0x9F)
    add(0xEE, 0xEF, 3, 0x80, 0xBF)
    add(0xF0, 0xF0, 4, 0x90, 0xBF)
    add(0xF1, 0xF3, 4, 0x80, 0xBF)
    add(0xF4, 0xF4, 4, 0x80, 0x8F)
end

-- The length of the UTF-8 sequence of several bytes at a position; nil when it is not well formed.
local function sequenceLength(text, position)
    local first, second, third, fourth = byte(text, position, position + 3)
    local lead = utf8Leads[first]
    if not lead or not second or second < lead.lowest or second > lead.highest then
        return nil
    end
    if lead.length >= 3 and not (third and third >= 0x80 and third <= 0xBF) then
        return nil
    end
    if lead.length == 4 and not (fourth and fourth >= 0x80 and fourth <= 0xBF) then
        return nil
    end
    return lead.length
end

-- The position of the first byte at or after `from` that does not belong to well-formed UTF-8; or nil.
local function malformedPosition(text, from)
    local position = find(text, "[\128-\255]", from)
    while position do
        local length = sequenceLength(text, position)
        if not length then
            return position
        end
        position = find(text, "[\128-\255]", position + length)
    end
    return nil
end

-- The text with U+FFFD in the place of each byte that is not UTF-8.
local function wellFormed(text)
    local pieces, from = {}, 1
    local malformed = malformedPosition(text, from)
    while malformed do
        pieces[#pieces + 1] = sub(text, from, malformed - 1)
        pieces[#pieces + 1] = REPLACEMENT_CHARACTER
        from = malformed + 1
        malformed = malformedPosition(text, from)
    end
    pieces[#pieces + 1] = sub(text, from)
    return concat(pieces)
end

local function utf8Character(code)
    if code < 0x80 then
        return char(code)
    elseif code < 0x800 then
        return char(0xC0 + math.floor(code / 0x40), 0x80 + code % 0x40)
    elseif code < 0x10000 then
        return char(0xE0 + math.floor(code / 0x1000), 0x80 + math.floor(code / 0x40) % 0x40,
            0x80 + code % 0x40)
    end
    return char(0xF0 + math.floor(code / 0x40000), 0x80 + math.floor(code / 0x1000) % 0x40,
        0x80 + math.floor(code / 0x40) % 0x40, 0x80 + code % 0x40)
end

-- Ascending byte order, whatever the locale: Lua's own < asks strcoll.
local function inByteOrder(left, right)
    for position = 1, math.min(#left, #right) do
        local a, b = byte(left, position), byte(right, position)
        if a ~= b then
            return a < b
        end
    end
    return #left < #right
end

local function trimmed(text)
    return match(gsub(text, "^%s+", ""), "^.*%S") or ""
end

local function isFinite(value)
    return type(value) == "number" and value == value and value ~= math.huge and value ~= -math.huge
end

-- JSON (RFC 8259)
--
-- Objects become tables, arrays become tables with the metatable `Array`, null becomes `null`.
-- When a key stands twice, the last one counts.

local Array = {}
local null = {}

local QUOTE, BACKSLASH, COMMA, COLON = byte('"'), byte("\\"), byte(","), byte(":")
local OBJECT_END, ARRAY_END = byte("}"), byte("]")

local function refuse(reason, position)
    error({ reason = reason .. " at byte " .. position }, 0)
end

local function skipSpace(text, position)
    return find(text, "[^ \t\r\n]", position) or #text + 1
end

local escapedCharacters = {
    ['"'] = '"', ["\\"] = "\\", ["/"] = "/", b = "\b", f = "\f", n = "\n", r = "\r", t = "\t",
}

-- Reads "uXXXX" at a position; two of them when they are a surrogate pair. Half a pair alone is no
-- character, so it becomes U+FFFD.
local function readUnicodeEscape(text, position)
    local digits = match(text, "^u(%x%x%x%x)", position)
    if not digits then
        refuse("an unfinished \\u escape", position)
    end
    local code = tonumber(digits, 16)
    if code < 0xD800 or code > 0xDFFF then
        return utf8Character(code), position + 5
    end
    local low = code < 0xDC00 and match(text, "^\\u([dD][c-fC-F]%x%x)", position + 5)
    if not low then
        return REPLACEMENT_CHARACTER, position + 5
    end
    return utf8Character(0x10000 + (code - 0xD800) * 0x400 + tonumber(low, 16) - 0xDC00), position + 11
end

local function readEscape(text, position)
    local mark = sub(text, position, position)
    if mark == "u" then
        return readUnicodeEscape(text, position)
    end
    local character = escapedCharacters[mark]
    if not character then
        refuse("an unknown escape", position)
    end
    return character, position + 1
end

local function readString(text, start)
    local pieces, from = {}, start + 1
    while true do
        local at = find(text, '["\\%z\1-\31]', from)
        if not at then
            refuse("a string without its end", start)
        end
        pieces[#pieces + 1] = sub(text, from, at - 1)
        local mark = byte(text, at)
        if mark == QUOTE then
            return concat(pieces), at + 1
        elseif mark ~= BACKSLASH then
            refuse("a control character in a string", at)
        end
        pieces[#pieces + 1], from = readEscape(text, at + 1)
    end
end

local function readNumber(text, start)
    local _, stop = find(text, "^-?%d+", start)
    if not stop or find(text, "^-?0%d", start) then
        refuse("a malformed number", start)
    end
    local _, fractionEnd = find(text, "^%.%d+", stop + 1)
    stop = fractionEnd or stop
    local _, exponentEnd = find(text, "^[eE][+-]?%d+", stop + 1)
    stop = exponentEnd or stop
    local value = tonumber(sub(text, start, stop))
    if not isFinite(value) then
        refuse("a number out of range", start)
    end
    return value, stop + 1
end

local readValue -- arrays and objects hold values in their turn

local function readArray(text, start, depth)
    local items, count = setmetatable({}, Array), 0
    local position = skipSpace(text, start + 1)
    if byte(text, position) == ARRAY_END then
        return items, position + 1
    end
    while true do
        count = count + 1
        items[count], position = readValue(text, position, depth + 1)
        local mark = byte(text, position)
        if mark == ARRAY_END then
            return items, position + 1
        elseif mark ~= COMMA then
            refuse("an unfinished array", position)
        end
        position = position + 1
    end
end

local function readMember(text, start, depth)
    local position = skipSpace(text, start)
    if byte(text, position) ~= QUOTE then
        refuse("a missing key", position)
    end
    local key, afterKey = readString(text, position)
    position = skipSpace(text, afterKey)
    if byte(text, position) ~= COLON then
        refuse("a missing colon", position)
    end
    local value
    value, position = readValue(text, position + 1, depth + 1)
    return key, value, position
end

local function readObject(text, start, depth)
    local object = {}
    local position = skipSpace(text, start + 1)
    if byte(text, position) == OBJECT_END then
        return object, position + 1
    end
    while true do
        local key, value
        key, value, position = readMember(text, position, depth)
        object[key] = value
        local mark = byte(text, position)
        if mark == OBJECT_END then
            return object, position + 1
        elseif mark ~= COMMA then
            refuse("an unfinished object", position)
        end
        position = position + 1
    end
end

local function literal(word, value)
    return function(text, start)
        if sub(text, start, start + #word - 1) ~= word then
            refuse("an unknown word", start)
        end
        return value, start + #word
    end
end

-- What reads a value, by the byte that it begins with.
local readers = {
    [byte("{")] = readObject,
    [byte("[")] = readArray,
    [QUOTE] = readString,
    [byte("t")] = literal("true", true),
    [byte("f")] = literal("false", false),
    [byte("n")] = literal("null", null),
    [byte("-")] = readNumber,
}
for digit = byte("0"), byte("9") do
    readers[digit] = readNumber
end

-- Reads one value with the white space around it; returns it and the position of what follows.
function readValue(text, start, depth)
    local position = skipSpace(text, start)
    if depth > DEEPEST_NESTING then
        refuse("too deep a nesting", position)
    end
    local read = readers[byte(text, position)]
    if not read then
        refuse("no value", position)
    end
    local value, after = read(text, position, depth)
    return value, skipSpace(text, after)
end

-- The value that a JSON text stands for; or nil and the reason why it is none.
local function decodeJson(text)
    local malformed = malformedPosition(text, 1)
    if malformed then
        return nil, "invalid UTF-8 at byte " .. malformed
    end
    local ok, value, after = pcall(readValue, text, 1, 0)
    if not ok then
        return nil, type(value) == "table" and value.reason or tostring(value)
    elseif after <= #text then
        return nil, "text after the value at byte " .. after
    end
    return value
end

local writtenEscapes = {
    ['"'] = '\\"', ["\\"] = "\\\\", ["\b"] = "\\b", ["\f"] = "\\f", ["\n"] = "\\n", ["\r"] = "\\r",
    ["\t"] = "\\t",
}
for code = 0, 31 do
    local character = char(code)
    writtenEscapes[character] = writtenEscapes[character] or format("\\u%04x", code)
end

local function quoted(text)
    return '"' .. gsub(wellFormed(text), '["\\%z\1-\31]', writtenEscapes) .. '"'
end

-- The shortest form that reads back as the same number.
local function numberText(value)
    for _, precision in ipairs { "%.14g", "%.16g" } do
        local text = format(precision, value)
        if tonumber(text) == value then
            return text
        end
    end
    return format("%.17g", value)
end

local writeValue -- arrays and objects hold values in their turn

local function writeArray(pieces, items)
    pieces[#pieces + 1] = "["
    for index, item in ipairs(items) do
        pieces[#pieces + 1] = index > 1 and "," or ""
        writeValue(pieces, item)
    end
    pieces[#pieces + 1] = "]"
end

local function writeObject(pieces, object)
    local keys = {}
    for key in pairs(object) do
        keys[#keys + 1] = key
    end
    table.sort(keys, inByteOrder)
    pieces[#pieces + 1] = "{"
    for index, key in ipairs(keys) do
        pieces[#pieces + 1] = (index > 1 and "," or "") .. quoted(key) .. ":"
        writeValue(pieces, object[key])
    end
    pieces[#pieces + 1] = "}"
end

function writeValue(pieces, value)
    local kind = type(value)
    if value == null or kind == "number" and not isFinite(value) then
        pieces[#pieces + 1] = "null"
    elseif kind == "string" then
        pieces[#pieces + 1] = quoted(value)
    elseif kind == "number" then
        pieces[#pieces + 1] = numberText(value)
    elseif kind == "table" then
        local write = getmetatable(value) == Array and writeArray or writeObject
        write(pieces, value)
    else
        pieces[#pieces + 1] = tostring(value)
    end
end

local function encodeJson(value)
    local pieces = {}
    writeValue(pieces, value)
    return concat(pieces)
end

-- Requests and replies

local function ofType(kind, value)
    if type(value) == kind then
        return value
    end
    return nil
end

-- The target paths of a request, each once and in order; nil when they are not a list of strings. Taking
-- such a list for an empty one would change the active photo instead.
local function readTargetPaths(value)
    if value == nil or value == null then
        return {}
    elseif getmetatable(value) ~= Array then
        return nil
    end
    local paths, seen = {}, {}
    for _, path in ipairs(value) do
        if type(path) ~= "string" then
            return nil
        elseif not seen[path] then
            seen[path] = true
            paths[#paths + 1] = path
        end
    end
    return paths
end

-- A message that cannot be read still gets a reply where its sender looks for it.
local function requestIdWithin(message)
    return match(message, '"request_id"%s*:%s*"([A-Za-z0-9_-]+)"') or ""
end

local function readRequest(message)
    local object = decodeJson(message)
    if type(object) ~= "table" or object == null or getmetatable(object) == Array then
        return { id = requestIdWithin(message) }
    end
    return {
        id = ofType("string", object.request_id) or "",
        action = ofType("string", object.action),
        slider = ofType("string", object.slider),
        type = ofType("string", object.type),
        adjustments = ofType("string", object.adjustments),
        presetName = ofType("string", object.preset_name),
        folderPath = ofType("string", object.folder_path),
        value = ofType("number", object.value),
        hasUnreadableValue = object.value ~= nil and object.value ~= null and type(object.value) ~= "number",
        relative = object.relative == true,
        targetPaths = readTargetPaths(object.target_paths),
    }
end

local function success(message)
    return { status = "success", message = message }
end

local function failure(message)
    return { status = "error", message = message }
end

local function shortened(text)
    if #text > LONGEST_ECHO then
        return sub(text, 1, LONGEST_ECHO) .. "..."
    end
    return text
end

local function replyPath(id)
    return "/tmp/kelvalr-lightroom-" .. gsub(id, "[^A-Za-z0-9_-]", "_") .. ".json"
end

-- Writes a new file in one write(2), so that nobody reads half of it: with a buffer that holds all of it where
-- the C library takes the size that is asked for, without any buffer where it does not (glibc). "x" refuses
-- what somebody else has put there: a link would lead the text astray, and a pipe would hold up Lightroom.
local function writeWhole(path, text)
    pcall(os.remove, path) -- a reply to an earlier request of this name
    local file, problem = io.open(path, WIN_ENV and "wb" or "wbx")
    if not file then
        return nil, problem
    end
    file:setvbuf((MAC_ENV or WIN_ENV) and "full" or "no", #text + 1)
    local written, writeProblem = file:write(text)
    local closed, closeProblem = file:close()
    return written and closed, writeProblem or closeProblem
end

local function sendReply(id, reply)
    reply.request_id = id
    reply.message = reply.message and shortened(reply.message)
    local text = encodeJson(reply)
    log("sendReply: " .. text)
    local path = replyPath(id)
    local written, problem = writeWhole(path, text .. "\n")
    if written then
        log("reply file written: " .. path)
    else
        log("reply file write failed: " .. tostring(problem))
    end
end

-- The catalog

-- A member of an SDK object; nil when this version of Lightroom does not have it.
local function member(object, name)
    local ok, value = LrTasks.pcall(function()
        return object[name]
    end)
    if ok then
        return value
    end
    return nil
end

local function photoCount(photos)
    return #photos == 1 and "1 photo" or #photos .. " photos"
end

local function missingNote(missing)
    return missing > 0 and " (" .. missing .. " missing)" or ""
end

-- A function from a path to its photo, or to nil.
local function photoFinder(catalog)
    if member(catalog, "findPhotoByPath") then
        return function(path)
            return catalog:findPhotoByPath(path)
        end
    end
    local photos = {}
    for _, photo in ipairs(catalog:getAllPhotos()) do
        photos[photo:getRawMetadata("path")] = photo
    end
    return function(path)
        return photos[path]
    end
end

local function photosAtPaths(catalog, paths)
    local photos, missing = {}, 0
    catalog:withReadAccessDo(function()
        local ok, findPhoto = LrTasks.pcall(photoFinder, catalog)
        for _, path in ipairs(paths) do
            local found, photo
            if ok then
                found, photo = LrTasks.pcall(findPhoto, path)
            end
            if found and photo then
                photos[#photos + 1] = photo
            else
                missing = missing + 1
            end
        end
    end)
    return photos, missing
end

-- The photos that a request is about, and how many of the paths it names are not in the catalog.
local function targetPhotos(catalog, request)
    if #request.targetPaths > 0 then
        return photosAtPaths(catalog, request.targetPaths)
    end
    return { catalog:getTargetPhoto() }, 0
end

-- Changes the catalog in one undo step. Returns true; or false, the error, and whether the work had begun.
local function change(catalog, actionName, work)
    local begun = false
    local ok, problem = LrTasks.pcall(function()
        catalog:withWriteAccessDo(actionName, function()
            begun = true
            work()
        end, { timeout = WRITE_GATE_TIMEOUT })
    end)
    if not ok then
        return false, tostring(problem), begun
    elseif not begun then
        return false, "Lightroom is busy with another change", begun
    end
    return true
end

-- Makes the same change to each target photo; returns nil, or the reply that says why it could not.
local function changeEach(catalog, actionName, photos, work)
    local ok, problem = change(catalog, actionName, function()
        for _, photo in ipairs(photos) do
            work(photo)
        end
    end)
    return not ok and failure("Could not change the catalog: " .. problem) or nil
end

-- The develop settings of a photo; none when Lightroom cannot read them.
local function developSettings(photo)
    local ok, settings = LrTasks.pcall(function()
        return photo:getDevelopSettings()
    end)
    return ok and type(settings) == "table" and settings or {}
end

local function numberOrZero(value)
    return isFinite(value) and value or 0
end

local function currentModule()
    return tostring(LrApplicationView.getCurrentModuleName())
end

local function showDevelopModule()
    if currentModule() ~= "develop" then
        LrApplicationView.switchToModule("develop")
        LrTasks.sleep(DEVELOP_PAUSE)
    end
end

local function showDevelopModuleLogged(action)
    local module = currentModule()
    log(action .. ": active module is " .. module)
    if module ~= "develop" then
        log(action .. ": switching to develop module")
        showDevelopModule()
    end
end

-- Sliders

local sliderSettings = {
    exposure = "Exposure2012",
    contrast = "Contrast2012",
    highlights = "Highlights2012",
    shadows = "Shadows2012",
    whites = "Whites2012",
    blacks = "Blacks2012",
    temperature = "Temperature",
    temp = "Temperature",
    tint = "Tint",
    texture = "Texture",
    clarity = "Clarity",
    dehaze = "Dehaze",
    vibrance = "Vibrance",
    saturation = "Saturation",
    sat = "Saturation",
    grain = "GrainAmount",
    grainamount = "GrainAmount",
    grainsize = "GrainSize",
    grainfrequency = "GrainFrequency",
}

-- The develop setting behind a slider name; a name that is no slider is taken for a setting itself.
local function settingOf(slider)
    return sliderSettings[lower(slider)] or slider
end

local function batchSettingOf(slider)
    return lower(slider) == "grain" and slider or settingOf(slider)
end

-- Decimal notation only: tonumber alone would also take "0x10", "inf" and "nan".
local function decimalNumber(text)
    local number = not find(text, "[^%d%s.eE+-]") and tonumber(text)
    return isFinite(number) and number or nil
end

-- "Exposure:0.5:1;Contrast:10:0" as a list of { setting, value, relative }; unreadable items are left out.
local function readAdjustments(text)
    local items = {}
    for piece in string.gmatch(text, "[^;]+") do
        -- A field begins after a colon, so that a long text without one is not searched again and again.
        local slider, valueText, relative = match(":" .. piece, ":([^:]+):([^:]+):([^:]+)")
        local value = valueText and decimalNumber(valueText)
        if value then
            items[#items + 1] = { setting = batchSettingOf(slider), value = value, relative = relative == "1" }
        end
    end
    return items
end

-- The settings that a list of adjustments gives a photo with these settings. The last item for a setting
-- counts; a relative one adds to what the photo had before.
local function adjusted(before, items)
    local changes = {}
    for _, item in ipairs(items) do
        local base = item.relative and numberOrZero(before[item.setting]) or 0
        changes[item.setting] = base + item.value
    end
    return changes
end

-- Presets

local function normalisedName(name)
    return lower(trimmed(name))
end

-- The presets of a folder, by whichever of these calls this version of Lightroom has.
local function presetsIn(folder)
    for _, name in ipairs { "getDevelopPresets", "getPresets", "getChildPresets" } do
        local list = member(folder, name)
        if list then
            local ok, presets = LrTasks.pcall(list, folder)
            if ok and type(presets) == "table" then
                return presets
            end
        end
    end
    return {}
end

local function nameOf(preset)
    local ok, name = LrTasks.pcall(function()
        return preset:getName()
    end)
    return ok and ofType("string", name) or nil
end

-- The preset with this name, else the first whose name contains it. Returns it and its own name; or nil,
-- and a message when the presets could not be read.
local function findPreset(requested)
    local listFolders = member(LrApplication, "developPresetFolders")
    if not listFolders then
        return nil, "Lightroom preset folder API is unavailable."
    end
    local ok, folders = LrTasks.pcall(listFolders)
    if not ok or type(folders) ~= "table" then
        return nil, "Could not read Lightroom preset folders."
    end
    local wanted = normalisedName(requested)
    local partial, partialName
    for _, folder in ipairs(folders) do
        for _, preset in ipairs(presetsIn(folder)) do
            local name = nameOf(preset)
            local normalised = name and normalisedName(name)
            if normalised == wanted then
                return preset, name
            elseif not partial and normalised and find(normalised, wanted, 1, true) then
                partial, partialName = preset, name
            end
        end
    end
    return partial, partialName
end

-- Folders

local supportedExtensions = {
    jpg = true, jpeg = true, png = true, tif = true, tiff = true, heic = true, heif = true,
    dng = true, arw = true, cr2 = true, cr3 = true, nef = true, nrw = true, raf = true, rw2 = true,
    orf = true, pef = true, srw = true, x3f = true,
}

local function isSupportedPhoto(name)
    local extension = match(name, "%.([^.]*)$")
    return extension ~= nil and supportedExtensions[lower(extension)] == true
end

local function shellQuoted(text)
    return "'" .. gsub(text, "'", "'\\''") .. "'"
end

-- The paths of the photos in a folder, sorted.
local function photoFilesIn(folder)
    local paths = {}
    local listing = not find(folder, "%z") and io.popen("/bin/ls -1 -- " .. shellQuoted(folder) .. " 2>/dev/null")
    if listing then
        for name in listing:lines() do
            if isSupportedPhoto(name) then
                paths[#paths + 1] = folder .. "/" .. name
            end
        end
        listing:close()
    end
    table.sort(paths, inByteOrder)
    return paths
end

-- Actions: each takes a request and returns its reply

local actions = {}

function actions.ping()
    return success("pong")
end

function actions.adjust_slider(request)
    showDevelopModuleLogged("adjust_slider")
    if not request.slider or request.slider == "" or not request.value then
        return failure("Missing slider or value")
    end
    local catalog = LrApplication.activeCatalog()
    local photos, missing = targetPhotos(catalog, request)
    if #photos == 0 then
        return failure("No target photos found")
    end
    local item = { setting = settingOf(request.slider), value = request.value, relative = request.relative }
    local newValue
    local problem = changeEach(catalog, "KelvaLR Slider", photos, function(photo)
        local changes = adjusted(item.relative and developSettings(photo) or {}, { item })
        newValue = changes[item.setting]
        photo:applyDevelopSettings(changes)
    end)
    return problem or success("Adjusted " .. item.setting .. " on " .. photoCount(photos)
        .. (#photos == 1 and format(" to %.14g", newValue) or "") .. missingNote(missing))
end

function actions.adjust_sliders(request)
    if not request.adjustments or request.adjustments == "" then
        return failure("Missing adjustments string")
    end
    showDevelopModuleLogged("adjust_sliders")
    local catalog = LrApplication.activeCatalog()
    local photos, missing = targetPhotos(catalog, request)
    if #photos == 0 then
        return failure("No target photos found")
    end
    local items = readAdjustments(request.adjustments)
    if #items == 0 then
        return failure("No valid adjustments parsed")
    end
    local problem = changeEach(catalog, "KelvaLR Batch Sliders", photos, function(photo)
        photo:applyDevelopSettings(adjusted(developSettings(photo), items))
    end)
    return problem or success("Adjusted " .. #items .. " sliders on " .. photoCount(photos) .. missingNote(missing))
end

function actions.apply_preset(request)
    -- A name of nothing but white space would be part of every preset's name.
    if not request.presetName or trimmed(request.presetName) == "" then
        return failure("Missing preset name")
    end
    showDevelopModule()
    local catalog = LrApplication.activeCatalog()
    local photos, missing = targetPhotos(catalog, request)
    if #photos == 0 then
        return failure("No target photos found")
    end
    local preset, name = findPreset(request.presetName)
    if not preset then
        return failure(name or "Preset not found: " .. request.presetName)
    end
    local ok, problem, begun = change(catalog, "KelvaLR Apply Preset", function()
        for _, photo in ipairs(photos) do
            photo:applyDevelopPreset(preset)
        end
    end)
    if not ok then
        return failure((begun and "Could not apply preset: " or "Could not change the catalog: ") .. problem)
    end
    return success("Applied preset " .. name .. " to " .. photoCount(photos) .. missingNote(missing))
end

function actions.import_folder(request)
    if not request.folderPath or request.folderPath == "" then
        return failure("Missing folder path")
    end
    local paths = photoFilesIn(request.folderPath)
    if #paths == 0 then
        return failure("No supported photo files found in folder")
    end
    local catalog = LrApplication.activeCatalog()
    local added, failed = 0, 0
    local ok, problem = change(catalog, "KelvaLR Import Folder", function()
        for _, path in ipairs(paths) do
            local isAdded, photo = LrTasks.pcall(function()
                return catalog:addPhoto(path)
            end)
            if isAdded then
                added = added + 1
            else
                failed = failed + 1
                log("import_folder failed for " .. path .. ": " .. tostring(photo))
            end
        end
    end)
    if not ok then
        return failure("Could not change the catalog: " .. problem)
    elseif added == 0 then
        return failure("No photos were imported from folder")
    end
    local reply = success("Imported " .. added .. " photos from folder")
    reply.imported, reply.failed = added, failed
    return reply
end

-- Sets one field of the raw metadata of the target photos.
local function setMetadata(request, actionName, field, value)
    local catalog = LrApplication.activeCatalog()
    local photos, missing = targetPhotos(catalog, request)
    if #photos == 0 then
        return failure("No target photos found")
    end
    local problem = changeEach(catalog, actionName, photos, function(photo)
        photo:setRawMetadata(field, value)
    end)
    return problem or success(format("Set %s to %.14g on ", field, value) .. photoCount(photos) .. missingNote(missing))
end

local pickStatuses = { pick = 1, reject = -1, unflag = 0 }

function actions.cull(request)
    return setMetadata(request, "KelvaLR Flag", "pickStatus", pickStatuses[request.type] or 0)
end

function actions.rating(request)
    if request.hasUnreadableValue then
        return failure("The rating is not a number")
    end
    return setMetadata(request, "KelvaLR Rating", "rating", request.value or 0)
end

local function positionOf(photo, photos)
    for position, candidate in ipairs(photos) do
        if candidate.localIdentifier == photo.localIdentifier then
            return position
        end
    end
    return nil
end

local function step(distance)
    local catalog = LrApplication.activeCatalog()
    local photos, active = catalog:getTargetPhotos(), catalog:getTargetPhoto()
    if not active or #photos < 2 then
        return failure("Not enough target photos to navigate")
    end
    local position = positionOf(active, photos)
    if not position then
        return failure("Active photo not found in target list")
    end
    local newPosition = (position - 1 + distance) % #photos + 1
    local photo = photos[newPosition]
    catalog:setSelectedPhotos(photo, { photo })
    return success("Moved to photo " .. newPosition)
end

function actions.next()
    return step(1)
end

function actions.prev()
    return step(-1)
end

local function photoStatus(photo)
    log("get_status: after getTargetPhoto")
    local settings = developSettings(photo)
    log("get_status: after getDevelopSettings")
    local filename = photo:getFormattedMetadata("fileName") or "Unknown"
    log("get_status: after filename")
    return {
        status = "success",
        filename = filename,
        rating = numberOrZero(photo:getRawMetadata("rating")),
        flag = numberOrZero(photo:getRawMetadata("pickStatus")),
        exposure = numberOrZero(settings.Exposure2012),
        contrast = numberOrZero(settings.Contrast2012),
        temp = numberOrZero(settings.Temperature),
        tint = numberOrZero(settings.Tint),
        highlights = numberOrZero(settings.Highlights2012),
        shadows = numberOrZero(settings.Shadows2012),
    }
end

function actions.get_status()
    local catalog = LrApplication.activeCatalog()
    local reply
    log("get_status: before read access")
    LrTasks.pcall(function()
        catalog:withReadAccessDo(function()
            log("get_status: inside read access")
            local photo = catalog:getTargetPhoto()
            reply = photo and photoStatus(photo) or failure("No active photo")
        end)
    end)
    log("get_status: after read access")
    return reply or failure("Could not read Lightroom status")
end

-- The server

local function perform(request, message)
    if not request.action then
        return failure("Invalid command format: " .. message)
    end
    local action = actions[request.action]
    if not action then
        return failure("Unsupported action: " .. request.action)
    elseif not request.targetPaths then
        return failure("The target paths are not a list of paths")
    end
    log(request.action .. ": begin")
    local ok, reply = LrTasks.pcall(action, request)
    return ok and reply or failure("Command failed: " .. tostring(reply))
end

local function answer(message)
    local request = readRequest(message)
    sendReply(request.id, perform(request, message))
end

-- Whether a line is a web browser's. A page can send one to any port of this computer, with a text of its own
-- choice behind it.
local function isWebRequest(line)
    return find(line, "^%u+ .* HTTP/%d") ~= nil
end

local function serve(context)
    local running = true
    local isDeaf = false -- to the rest of a connection

    LrSocket.bind {
        functionContext = context,
        plugin = _PLUGIN,
        port = PORT,
        mode = "receive",

        -- A task for each message, so that a slow command does not hold up the socket.
        onMessage = function(_, message)
            if isDeaf then
                return
            end
            isDeaf = isWebRequest(message)
            log("Received message: " .. message)
            LrTasks.startAsyncTask(function()
                answer(message)
            end)
        end,

        onClosed = function(socket)
            log("Listener closed")
            isDeaf = false
            socket:reconnect()
        end,

        onError = function(socket, problem)
            log("Listener error: " .. tostring(problem))
            if problem ~= "timeout" then
                running = false
                return
            end
            LrTasks.startAsyncTask(function()
                LrTasks.sleep(RECONNECT_PAUSE)
                if running then
                    isDeaf = false
                    socket:reconnect()
                end
            end)
        end,
    }

    while running do
        LrTasks.sleep(KEEP_ALIVE_STEP)
    end
    log("Socket loop exited")
end

LrTasks.startAsyncTask(function()
    log("Async task started")
    LrFunctionContext.callWithContext("KelvaLRSocketContext", serve)
end)

return {
    sectionsForTopOfDialog = function()
        return {}
    end,

    -- For whoever wants to check the reader and the writer by themselves.
    json = { decode = decodeJson, encode = encodeJson, null = null },
}
