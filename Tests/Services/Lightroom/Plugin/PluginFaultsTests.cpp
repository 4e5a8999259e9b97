#include "Services/Lightroom/Plugin/PluginReplies.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace Qt::StringLiterals;
using namespace StandIn::Testing;

namespace {

/// An LrApplication that is the stand-in's own but for what `changes` does to the tables `application`,
/// `catalog` and, once for each photo, `photo`. What a table is given as nil, it then lacks.
QByteArray faultyApplication(const QByteArray &changes)
{
    return R"(
        local host = ...
        local LrTasks = host.builtin("LrTasks")
        local real = host.builtin("LrApplication")
        local absent = {}
        local function over(original, overrides)
            return setmetatable({}, { __index = function(_, key)
                local value = overrides[key]
                if value == absent then
                    error(tostring(key) .. " is absent")
                elseif value ~= nil then
                    return value
                elseif type(original[key]) == "function" then
                    return function(self, ...) return original[key](original, ...) end
                end
                return original[key]
            end })
        end
        local application, catalog, photo = {}, {}, {}
        local realCatalog = real.activeCatalog()
        local function faulty(realPhoto) return realPhoto and over(realPhoto, photo) end
        function catalog.getTargetPhoto() return faulty(realCatalog:getTargetPhoto()) end
        function catalog.findPhotoByPath(_, path) return faulty(realCatalog:findPhotoByPath(path)) end
)" + changes +
           R"(
        application.activeCatalog = application.activeCatalog or function() return over(realCatalog, catalog) end
        return over({ activeCatalog = 0, developPresetFolders = function() return real.developPresetFolders() end },
                    application)
    )";
}

constexpr auto busy = "Could not change the catalog: Lightroom is busy with another change";

} // namespace

TEST(PluginFaults, areAnsweredInWords)
{
    constexpr auto preset = R"({"action":"apply_preset","preset_name":"portra"})";
    constexpr auto status = R"({"action":"get_status"})";
    constexpr auto raise = R"({"action":"adjust_slider","slider":"exposure","value":0.5,"relative":true})";
    constexpr auto rate = R"({"action":"rating","value":5,"target_paths":["b.CR3","gone.jpg"]})";

    const struct
    {
        const char *name;
        QByteArray changes;
        const char *request;
        QString reply;
        const char *ratingOfB = "";
    } rows[] = {
        {"no preset interface", "application.developPresetFolders = absent", preset,
         error("Lightroom preset folder API is unavailable.")},
        {"the presets cannot be read", "function application.developPresetFolders() error('locked') end",
         preset, error("Could not read Lightroom preset folders.")},
        {"another call lists the presets",
         "function application.developPresetFolders() return { over({}, {"
         "  getDevelopPresets = absent, getPresets = function() error('no') end,"
         "  getChildPresets = function() return { real.developPresetFolders()[1]:getDevelopPresets()[1] } "
         "end }) } end",
         preset, success("Applied preset Portra to 1 photo")},
        {"a folder without presets",
         "function application.developPresetFolders() return { over({}, {}) } end", preset,
         error("Preset not found: portra")},
        {"a preset that cannot be applied", "function photo.applyDevelopPreset() error('out of ink', 0) end",
         preset, error("Could not apply preset: out of ink")},
        {"the status cannot be read", "function catalog.withReadAccessDo() error('locked') end", status,
         error("Could not read Lightroom status")},
        {"a photo that fails while its status is read", "function photo.getRawMetadata() error('gone') end",
         status, error("Could not read Lightroom status")},
        {"unreadable settings count as 0",
         "function photo.getDevelopSettings() LrTasks.yield() error('no') end", raise,
         success("Adjusted Exposure2012 on 1 photo to 0.5")},
        {"settings that are no table count as 0", "function photo.getDevelopSettings() return 'none' end",
         raise, success("Adjusted Exposure2012 on 1 photo to 0.5")},
        {"a write gate that stays shut", "function catalog.withWriteAccessDo() return 'aborted' end", raise,
         error(busy)},
        {"a write gate that stays shut for a preset",
         "function catalog.withWriteAccessDo() return 'aborted' end", preset, error(busy)},
        {"a change that is refused", "function photo.applyDevelopSettings() error('read-only', 0) end", raise,
         error("Could not change the catalog: read-only")},
        {"no catalog", "function application.activeCatalog() error('no catalog', 0) end", raise,
         error("Command failed: no catalog")},
        {"photos are found without a path lookup", "catalog.findPhotoByPath = absent", rate,
         success("Set rating to 5 on 1 photo (1 missing)"), "5"},
        {"photos whose lookup fails count as missing",
         "function catalog.findPhotoByPath() LrTasks.yield() error('no') end", rate,
         error("No target photos found")},
    };

    for (const auto &row : rows) {
        SCOPED_TRACE(row.name);
        HostedPlugin plugin({.presets = {{u"1.xmp"_s, presetFile(u"Portra"_s, u"Contrast2012=\"+40\""_s)}},
                             .facades = {{u"LrApplication"_s, faultyApplication(row.changes)}}});
        EXPECT_EQ(replyTo(plugin, row.request), row.reply);
        EXPECT_EQ(xmpText(plugin.photoPath(u"b.xmp"_s), "Xmp.xmp.Rating"),
                  QString::fromLatin1(row.ratingOfB));
    }
}

TEST(PluginFaults, sayThatAnotherTaskHoldsTheWriteGate)
{
    HostedPlugin plugin;
    // Another script of the same plug-in, which never gives the gate back.
    writeFile(plugin.pluginFolder() + u"/MenuAction.lua", R"(
        local LrApplication, LrTasks = import "LrApplication", import "LrTasks"
        LrTasks.startAsyncTask(function()
            LrApplication.activeCatalog():withWriteAccessDo("holds it", function()
                while true do LrTasks.sleep(0.1) end
            end)
        end)
    )");
    ASSERT_TRUE(plugin.host().chooseMenuItem(u"KelvaLR Status"_s).has_value());
    EXPECT_EQ(replyTo(plugin, R"({"action":"rating","value":5})"), error(busy));
    EXPECT_FALSE(QFile::exists(plugin.photoPath(u"a.xmp"_s)));
}

TEST(PluginFaults, leaveABrokenSidecarAsItIs)
{
    HostedPlugin plugin;
    const QString sidecar = plugin.photoPath(u"a.xmp"_s);
    writeFile(sidecar, "no XMP at all");
    EXPECT_TRUE(replyTo(plugin, R"({"action":"rating","value":5})")
                    .contains(u"Could not change the catalog: Could not read %1: "_s.arg(sidecar)));
    EXPECT_EQ(readFile(sidecar), "no XMP at all");
}
