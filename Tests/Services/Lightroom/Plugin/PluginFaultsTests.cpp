#include "LightroomStandIn/HostedPlugin.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QJsonArray>

using namespace Qt::StringLiterals;
using StandIn::Testing::HostedPlugin;
using StandIn::Testing::presetFile;
using StandIn::Testing::writeFile;
using StandIn::Testing::xmpText;

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

struct Row
{
    const char *name;
    QByteArray changes;
    QJsonObject request;
    QString message;
};

HostedPlugin::Setup withFacade(const QString &module, const QByteArray &source)
{
    return {.presets = {{u"1.xmp"_s, presetFile(u"Portra"_s, u"Contrast2012=\"+40\""_s)}},
            .facades = {{module, source}}};
}

} // namespace

TEST(PluginFaults, areAnsweredInWords)
{
    const QJsonObject preset{{u"action"_s, u"apply_preset"_s}, {u"preset_name"_s, u"portra"_s}};
    const QJsonObject status{{u"action"_s, u"get_status"_s}};
    const QJsonObject raise{{u"action"_s, u"adjust_slider"_s},
                            {u"slider"_s, u"exposure"_s},
                            {u"value"_s, 0.5},
                            {u"relative"_s, true}};
    const std::vector<Row> rows{
        {"no preset interface", "application.developPresetFolders = absent", preset,
         u"Lightroom preset folder API is unavailable."_s},
        {"the presets cannot be read", "function application.developPresetFolders() error('locked') end",
         preset, u"Could not read Lightroom preset folders."_s},
        {"another call lists the presets",
         "function application.developPresetFolders() return { over({}, {"
         "  getDevelopPresets = absent, getPresets = function() error('no') end,"
         "  getChildPresets = function() return { real.developPresetFolders()[1]:getDevelopPresets()[1] } "
         "end }) } end",
         preset, u"Applied preset Portra to 1 photo"_s},
        {"a folder without presets",
         "function application.developPresetFolders() return { over({}, {}) } end", preset,
         u"Preset not found: portra"_s},
        {"a preset that cannot be applied", "function photo.applyDevelopPreset() error('out of ink', 0) end",
         preset, u"Could not apply preset: out of ink"_s},
        {"the status cannot be read", "function catalog.withReadAccessDo() error('locked') end", status,
         u"Could not read Lightroom status"_s},
        {"a photo that fails while its status is read", "function photo.getRawMetadata() error('gone') end",
         status, u"Could not read Lightroom status"_s},
        {"unreadable settings count as 0",
         "function photo.getDevelopSettings() LrTasks.yield() error('no') end", raise,
         u"Adjusted Exposure2012 on 1 photo to 0.5"_s},
        {"settings that are no table count as 0", "function photo.getDevelopSettings() return 'none' end",
         raise, u"Adjusted Exposure2012 on 1 photo to 0.5"_s},
        {"a write gate that stays shut", "function catalog.withWriteAccessDo() return 'aborted' end", raise,
         u"Could not change the catalog: Lightroom is busy with another change"_s},
        {"a write gate that stays shut for a preset",
         "function catalog.withWriteAccessDo() return 'aborted' end", preset,
         u"Could not change the catalog: Lightroom is busy with another change"_s},
        {"a change that is refused", "function photo.applyDevelopSettings() error('read-only', 0) end", raise,
         u"Could not change the catalog: read-only"_s},
        {"no catalog", "function application.activeCatalog() error('no catalog', 0) end", raise,
         u"Command failed: no catalog"_s},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        HostedPlugin plugin(withFacade(u"LrApplication"_s, faultyApplication(row.changes)));
        EXPECT_EQ(plugin.request(row.request)["message"_L1].toString(), row.message);
    }
}

TEST(PluginFaults, findPhotosWithoutAPathLookup)
{
    HostedPlugin plugin(
        withFacade(u"LrApplication"_s, faultyApplication("catalog.findPhotoByPath = absent")));
    const QJsonArray paths{plugin.photoPath(u"b.CR3"_s), plugin.photoPath(u"gone.jpg"_s)};
    const auto reply =
        plugin.request({{u"action"_s, u"rating"_s}, {u"value"_s, 5}, {u"target_paths"_s, paths}});
    EXPECT_EQ(reply["message"_L1].toString(), u"Set rating to 5 on 1 photo (1 missing)"_s);
    EXPECT_EQ(xmpText(plugin.photoPath(u"b.xmp"_s), "Xmp.xmp.Rating"), u"5"_s);
}

TEST(PluginFaults, countPhotosAsMissingWhoseLookupFails)
{
    HostedPlugin plugin(
        withFacade(u"LrApplication"_s,
                   faultyApplication("function catalog.findPhotoByPath() LrTasks.yield() error('no') end")));
    const QJsonArray paths{plugin.photoPath(u"a.jpg"_s)};
    const auto reply =
        plugin.request({{u"action"_s, u"rating"_s}, {u"value"_s, 5}, {u"target_paths"_s, paths}});
    EXPECT_EQ(reply["message"_L1].toString(), u"No target photos found"_s);
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
    const auto reply = plugin.request({{u"action"_s, u"rating"_s}, {u"value"_s, 5}});
    EXPECT_EQ(reply["message"_L1].toString(),
              u"Could not change the catalog: Lightroom is busy with another change"_s);
    EXPECT_FALSE(QFile::exists(plugin.photoPath(u"a.xmp"_s)));
}

TEST(PluginFaults, leaveABrokenSidecarAsItIs)
{
    HostedPlugin plugin;
    const QString sidecar = plugin.photoPath(u"a.xmp"_s);
    writeFile(sidecar, "no XMP at all");
    const auto reply = plugin.request({{u"action"_s, u"rating"_s}, {u"value"_s, 5}});
    EXPECT_TRUE(reply["message"_L1].toString().startsWith(
        u"Could not change the catalog: Could not read %1: "_s.arg(sidecar)));
    EXPECT_EQ(StandIn::Testing::readFile(sidecar), "no XMP at all");
}
