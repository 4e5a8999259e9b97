-- The plug-in runs in Lightroom's Lua 5.1; the stand-in's facades run in the same dialect.
std = "lua51"
max_line_length = 120
read_globals = { "import", "_PLUGIN", "MAC_ENV", "WIN_ENV" }
exclude_files = { "build" }

files["Sources/KelvaLR/Services/Lightroom/Plugin"] = {
    globals = { "KelvaLRSocketStarted" }, -- lives as long as the plug-in's environment
}

files["Sources/LightroomStandIn/Facades"] = {
    ignore = { "212/self" }, -- SDK methods are called with a colon, whether they need the object or not
}

files["Sources/LightroomStandIn/Facades/Environment.lua"] = {
    globals = { "import", "_PLUGIN", "MAC_ENV", "WIN_ENV" },
}
