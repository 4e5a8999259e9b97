return {
    LrSdkVersion = 6.0,
    LrSdkMinimumVersion = 5.0,

    LrToolkitIdentifier = "com.kelva.KelvaLR",
    LrPluginName = "KelvaLR Assistant Bridge",

    -- Without the second line Lightroom runs the first only when the plug-in is first used, so the
    -- bridge would not be there when Lightroom starts.
    LrInitPlugin = "LightroomSocketServer.lua",
    LrForceInitPlugin = true,

    LrLibraryMenuItems = {
        { title = "KelvaLR Status", file = "MenuAction.lua" },
    },
    LrExportMenuItems = {
        { title = "KelvaLR Status", file = "MenuAction.lua" },
    },

    VERSION = { major = 1, minor = 0, revision = 0 },
}
