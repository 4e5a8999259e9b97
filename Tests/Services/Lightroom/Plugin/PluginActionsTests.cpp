#include "Services/Lightroom/Plugin/PluginReplies.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace StandIn::Testing;

namespace {

struct Row
{
    const char *name;
    QByteArray request;
    QString reply;
    /// Properties of the sidecars of all three photos, in words; "-" where it is absent.
    const char *sidecars = "";
};

const HostedPlugin::Setup setup{
    .photos = {u"a.jpg"_s, u"b.CR3"_s, u"c.dng"_s},
    .presets = {{u"1.xmp"_s, presetFile(u" Portra 400 "_s, u"Contrast2012=\"+40\""_s)},
                {u"2.xmp"_s, presetFile(u"Portra 160"_s, u"Contrast2012=\"+16\""_s)},
                {u"3.xmp"_s, presetFile(u"100% [.] Film"_s, u"Contrast2012=\"+3\""_s)}},
    .facades = {}};

void change(StandIn::Catalog &catalog, const StandIn::PhotoChanges &changes)
{
    catalog.beginChanges();
    for (const auto &photo : catalog.photos()) {
        catalog.change(photo.id, changes);
    }
    ASSERT_TRUE(catalog.commitChanges().has_value());
}

/// Every row begins with three photos that have the same stars, flag and settings; the first one is active.
void check(const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        HostedPlugin plugin(setup);
        change(plugin.catalog(),
               {.rating = 2,
                .pickStatus = -1,
                .develop = {
                    {u"Exposure2012"_s, u"+0.20"_s}, {u"Contrast2012"_s, u"+20"_s}, {u"Tint"_s, u"+30"_s}}});
        EXPECT_EQ(replyTo(plugin, row.request), row.reply);
        for (const QString &expected : QString::fromLatin1(row.sidecars).split(u"; "_s, Qt::SkipEmptyParts)) {
            const QString property = expected.section(u' ', 0, 0);
            QStringList words{property};
            for (const QString &sidecar : {u"a.xmp"_s, u"b.xmp"_s, u"c.xmp"_s}) {
                const QString text = xmpText(plugin.photoPath(sidecar), qPrintable("Xmp."_L1 + property));
                words.append(text.isEmpty() ? u"-"_s : text);
            }
            EXPECT_EQ(words.join(u' '), expected);
        }
        EXPECT_TRUE(plugin.failures().isEmpty());
    }
}

} // namespace

TEST(PluginActions, adjustsOneSlider)
{
    check({
        {"relative, on what the active photo has",
         R"({"action":"adjust_slider","slider":"Exposure","value":0.5,"relative":true})",
         success("Adjusted Exposure2012 on 1 photo to 0.7"), "crs.Exposure2012 +0.70 +0.20 +0.20"},
        {"absolute", R"({"action":"adjust_slider","slider":"CONTRAST","value":-12})",
         success("Adjusted Contrast2012 on 1 photo to -12"), "crs.Contrast2012 -12 +20 +20"},
        {"relative is true only as the literal",
         R"({"action":"adjust_slider","slider":"tint","value":5,"relative":"true"})",
         success("Adjusted Tint on 1 photo to 5"), "crs.Tint +5 +30 +30"},
        {"a slider name with a setting of another name",
         R"({"action":"adjust_slider","slider":"grain","value":20})",
         success("Adjusted GrainAmount on 1 photo to 20"), "crs.GrainAmount 20 - -"},
        {"a develop setting by its own key, which the photo does not have yet",
         R"({"action":"adjust_slider","slider":"Sharpness","value":60,"relative":true})",
         success("Adjusted Sharpness on 1 photo to 60"), "crs.Sharpness 60 - -"},
        {"several photos, no value in the message",
         R"({"action":"adjust_slider","slider":"exposure","value":1,"target_paths":["b.CR3","c.dng"]})",
         success("Adjusted Exposure2012 on 2 photos"), "crs.Exposure2012 +0.20 +1.00 +1.00"},
        {"a photo that is not in the catalog",
         R"({"action":"adjust_slider","slider":"tint","value":1,"target_paths":["b.CR3","gone.jpg"]})",
         success("Adjusted Tint on 1 photo to 1 (1 missing)"), "crs.Tint +30 +1 +30"},
        {"a photo named twice is changed once",
         R"({"action":"adjust_slider","slider":"tint","value":1,"relative":true,"target_paths":["b.CR3","b.CR3"]})",
         success("Adjusted Tint on 1 photo to 31"), "crs.Tint +30 +31 +30"},
        {"only missing photos",
         R"({"action":"adjust_slider","slider":"tint","value":1,"target_paths":["gone.jpg"]})",
         error("No target photos found"), "crs.Tint +30 +30 +30"},
        {"no slider", R"({"action":"adjust_slider","value":1})", error("Missing slider or value")},
        {"a value that is no number", R"({"action":"adjust_slider","slider":"tint","value":"5"})",
         error("Missing slider or value")},
        {"a setting that the catalog does not know",
         R"({"action":"adjust_slider","slider":"Sparkle","value":1})",
         error("Could not change the catalog: The develop setting \"Sparkle\" is not modelled by the "
               "stand-in.")},
    });
}

TEST(PluginActions, adjustsSeveralSliders)
{
    const auto batch = [](const QByteArray &adjustments) -> QByteArray {
        return R"({"action":"adjust_sliders","adjustments":")" + adjustments + "\"}";
    };
    check({
        {"relative and absolute items", batch("Exposure:0.5:1;Contrast:10:0;;clarity:+7:0:x"),
         success("Adjusted 3 sliders on 1 photo"),
         "crs.Exposure2012 +0.70 +0.20 +0.20; crs.Contrast2012 +10 +20 +20; crs.Clarity2012 +7 - -"},
        {"the later of two items for a setting, on what was there before the command",
         batch("contrast:30:0;Contrast2012:5:1"), success("Adjusted 2 sliders on 1 photo"),
         "crs.Contrast2012 +25 +20 +20"},
        {"items that are none are dropped",
         batch("Exposure:high:0;tint:0x10:0;tint:inf:0;tint:nan:0;tint:1e400:0;tint:5;:::;Contrast:1e1:0"),
         success("Adjusted 1 sliders on 1 photo"), "crs.Contrast2012 +10 +20 +20; crs.Tint +30 +30 +30"},
        {"grain is no slider name here", batch("Grain:5:0"),
         error(
             "Could not change the catalog: The develop setting \"Grain\" is not modelled by the stand-in.")},
        {"missing photos are counted",
         R"({"action":"adjust_sliders","adjustments":"Tint:1:0","target_paths":["c.dng","gone.jpg","a.jpg"]})",
         success("Adjusted 1 sliders on 2 photos (1 missing)"), "crs.Tint +1 +30 +1"},
        {"nothing to adjust", batch("Exposure;Contrast:10"), error("No valid adjustments parsed")},
        {"an empty text", batch(""), error("Missing adjustments string")},
        {"no text at all", R"({"action":"adjust_sliders"})", error("Missing adjustments string")},
    });
}

TEST(PluginActions, appliesPresets)
{
    check({
        {"the first whose name contains the request", R"({"action":"apply_preset","preset_name":"portra"})",
         success("Applied preset Portra 400 to 1 photo"), "crs.Contrast2012 +40 +20 +20"},
        {"an exact match goes before it", R"({"action":"apply_preset","preset_name":"  PORTRA 160\t"})",
         success("Applied preset Portra 160 to 1 photo"), "crs.Contrast2012 +16 +20 +20"},
        {"a name is plain text, no pattern",
         R"({"action":"apply_preset","preset_name":"% [.]","target_paths":["c.dng","b.CR3","gone.jpg"]})",
         success("Applied preset 100% [.] Film to 2 photos (1 missing)"), "crs.Contrast2012 +20 +3 +3"},
        {"no such preset", R"({"action":"apply_preset","preset_name":"Velvia"})",
         error("Preset not found: Velvia")},
        {"a name of white space would fit every preset", R"({"action":"apply_preset","preset_name":"   "})",
         error("Missing preset name")},
        {"no name", R"({"action":"apply_preset"})", error("Missing preset name")},
    });
}

TEST(PluginActions, flagsAndRates)
{
    const QString badPaths = error("The target paths are not a list of paths");
    check({
        {"pick, several photos",
         R"({"action":"cull","type":"pick","target_paths":["a.jpg","c.dng","gone.jpg"]})",
         success("Set pickStatus to 1 on 2 photos (1 missing)"), "xmpDM.pick 1 -1 1"},
        {"reject", R"({"action":"cull","type":"reject"})", success("Set pickStatus to -1 on 1 photo"),
         "xmpDM.pick -1 -1 -1"},
        {"unflag", R"({"action":"cull","type":"unflag"})", success("Set pickStatus to 0 on 1 photo"),
         "xmpDM.pick 0 -1 -1"},
        {"any other type, by letter case too", R"({"action":"cull","type":"Pick"})",
         success("Set pickStatus to 0 on 1 photo"), "xmpDM.pick 0 -1 -1"},
        {"rating", R"({"action":"rating","value":4})", success("Set rating to 4 on 1 photo"),
         "xmp.Rating 4 2 2"},
        {"a missing value is no stars", R"({"action":"rating"})", success("Set rating to 0 on 1 photo"),
         "xmp.Rating 0 2 2"},
        {"a value of another type is not taken for no stars", R"({"action":"rating","value":"4"})",
         error("The rating is not a number"), "xmp.Rating 2 2 2"},
        {"what the catalog refuses is said, and nothing is changed", R"({"action":"rating","value":9})",
         error("Could not change the catalog: The rating must be a whole number from 0 to 5."),
         "xmp.Rating 2 2 2"},
        {"bad target paths never mean the active photo",
         R"({"action":"rating","value":3,"target_paths":"a.jpg"})", badPaths, "xmp.Rating 2 2 2"},
        {"nor does an object", R"({"action":"rating","value":3,"target_paths":{}})", badPaths},
        {"nor do numbers", R"({"action":"rating","value":3,"target_paths":[1,2]})", badPaths},
        {"no target paths", R"({"action":"rating","value":3,"target_paths":null})",
         success("Set rating to 3 on 1 photo")},
        {"an empty list of them", R"({"action":"rating","value":3,"target_paths":[]})",
         success("Set rating to 3 on 1 photo")},
    });
}

TEST(PluginActions, needPhotos)
{
    HostedPlugin plugin({.photos = {}, .presets = setup.presets, .facades = {}});
    for (const char *request : {R"({"action":"adjust_slider","slider":"tint","value":1})",
                                R"({"action":"adjust_sliders","adjustments":"Tint:1:0"})",
                                R"({"action":"apply_preset","preset_name":"portra"})",
                                R"({"action":"cull","type":"pick"})", R"({"action":"rating","value":3})"}) {
        EXPECT_EQ(replyTo(plugin, request), error("No target photos found")) << request;
    }
}

TEST(PluginActions, importsAFolder)
{
    HostedPlugin plugin;
    const QString folder = plugin.folder(u"it's a \"trip\" $(é)"_s);
    for (const QString &name : {u"/IMG_1.JPG"_s, u"/notes.txt"_s, u"/IMG_2.cr3"_s, u"/sub/deep.jpg"_s}) {
        writeFile(folder + name);
    }
    const auto import = [&plugin](const QString &path) {
        return textOf(plugin.request({{u"action"_s, u"import_folder"_s}, {u"folder_path"_s, path}}));
    };

    EXPECT_EQ(import(folder),
              uR"({"failed":0,"imported":2,"message":"Imported 2 photos from folder","status":"success"})"_s);
    ASSERT_EQ(plugin.catalog().photos().size(), 5U);
    EXPECT_EQ(plugin.catalog().photos()[3].path, folder + u"/IMG_1.JPG");
    EXPECT_EQ(plugin.catalog().photos()[4].path, folder + u"/IMG_2.cr3");

    EXPECT_TRUE(import(folder).contains(u"No photos were imported from folder"_s));
    EXPECT_TRUE(plugin.log().contains(("import_folder failed for "_L1 + folder).toUtf8()));
    writeFile(folder + u"/IMG_0.nef");
    EXPECT_EQ(import(folder),
              uR"({"failed":2,"imported":1,"message":"Imported 1 photos from folder","status":"success"})"_s);

    writeFile(plugin.folder(u"empty/readme.txt"_s));
    for (const QString &path :
         {plugin.folder(u"empty"_s), plugin.folder(u"gone"_s), u"-R"_s, QString(folder + QChar(u'\0'))}) {
        EXPECT_EQ(import(path), error("No supported photo files found in folder")) << path.toStdString();
    }
    EXPECT_EQ(import({}), error("Missing folder path"));
    EXPECT_EQ(replyTo(plugin, R"({"action":"import_folder"})"), error("Missing folder path"));
}

TEST(PluginActions, stepsThroughTheSelection)
{
    const struct
    {
        int active;
        std::vector<int> selected;
        const char *request;
        QString reply;
        int activeThen;
    } rows[] = {
        {2, {1, 2, 3}, R"({"action":"next"})", success("Moved to photo 3"), 3},
        {3, {1, 2, 3}, R"({"action":"next"})", success("Moved to photo 1"), 1},
        {1, {1, 2, 3}, R"({"action":"prev"})", success("Moved to photo 3"), 3},
        {3, {1, 3}, R"({"action":"prev"})", success("Moved to photo 1"), 1},
        {3, {3}, R"({"action":"next"})", error("Not enough target photos to navigate"), 3},
        {0, {1, 2}, R"({"action":"next"})", error("Not enough target photos to navigate"), 0},
        {3, {1, 2}, R"({"action":"next"})", error("Active photo not found in target list"), 3},
    };

    HostedPlugin plugin;
    for (const auto &row : rows) {
        SCOPED_TRACE(testing::Message() << row.request << " from " << row.active);
        plugin.catalog().select(row.active, row.selected);
        const std::vector<int> selected = plugin.catalog().selectedPhotos();
        EXPECT_EQ(replyTo(plugin, row.request), row.reply);
        EXPECT_EQ(plugin.catalog().activePhoto().value_or(0), row.activeThen);
        EXPECT_EQ(plugin.catalog().selectedPhotos(),
                  row.active == row.activeThen ? selected : std::vector{row.activeThen});
    }
}

TEST(PluginActions, tellsTheStatus)
{
    HostedPlugin plugin;
    change(plugin.catalog(), {.rating = 4,
                              .pickStatus = -1,
                              .develop = {{u"Exposure2012"_s, u"+0.50"_s},
                                          {u"Temperature"_s, u"5200"_s},
                                          {u"Shadows2012"_s, u"-8"_s}}});
    EXPECT_EQ(replyTo(plugin, R"({"action":"get_status"})"),
              uR"({"contrast":0,"exposure":0.5,"filename":"a.jpg","flag":-1,"highlights":0,"rating":4,)"
              uR"("shadows":-8,"status":"success","temp":5200,"tint":0})"_s);
    plugin.catalog().select(0, {});
    EXPECT_EQ(replyTo(plugin, R"({"action":"get_status"})"), error("No active photo"));

    for (const char *step : {"begin", "before read access", "inside read access", "after getTargetPhoto",
                             "after getDevelopSettings", "after filename", "after read access"}) {
        EXPECT_TRUE(plugin.log().contains(QByteArray("get_status: ").append(step))) << step;
    }
}

TEST(PluginActions, switchesToTheDevelopModuleOnceForDevelopActions)
{
    HostedPlugin plugin;
    replyTo(plugin, R"({"action":"cull"})");
    EXPECT_FALSE(plugin.log().contains("switching to develop module"));
    for (int count = 0; count < 2; ++count) {
        replyTo(plugin, R"({"action":"adjust_slider","slider":"tint","value":1})");
    }
    const QByteArray log = plugin.log();
    EXPECT_TRUE(log.contains("adjust_slider: active module is library"));
    EXPECT_EQ(log.count("adjust_slider: switching to develop module"), 1);
    EXPECT_TRUE(log.contains("adjust_slider: active module is develop"));
}

TEST(PluginActions, thatAreUnknownAreRefused)
{
    HostedPlugin plugin;
    EXPECT_EQ(replyTo(plugin, R"({"action":"delete"})"), error("Unsupported action: delete"));
}
