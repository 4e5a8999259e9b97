#include "LightroomStandIn/HostedPlugin.h"
#include "Support/PrintQt.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QJsonArray>

using namespace Qt::StringLiterals;
using StandIn::Catalog;
using StandIn::PhotoChanges;
using StandIn::Testing::HostedPlugin;
using StandIn::Testing::presetFile;
using StandIn::Testing::writeFile;
using StandIn::Testing::xmpText;

namespace {

/// A property that a sidecar must hold after a request; an empty text for one that it must not hold.
struct Expected
{
    QString sidecar;
    const char *key;
    QString text;
};

struct Row
{
    const char *name;
    QJsonObject request;
    QString status;
    QString message;
    // NOLINTBEGIN(readability-redundant-member-init): without it a row could not leave them out
    std::vector<Expected> sidecars = {};
    PhotoChanges before = {}; ///< made to every photo beforehand
    QStringList targets = {}; ///< names of photos to be sent as target_paths
    QStringList photos = {u"a.jpg"_s, u"b.CR3"_s, u"c.dng"_s};
    // NOLINTEND(readability-redundant-member-init)
};

PhotoChanges develop(const QString &property, const QString &text)
{
    return {.rating = {}, .pickStatus = {}, .develop = {{property, text}}};
}

void change(Catalog &catalog, const PhotoChanges &changes)
{
    catalog.beginChanges();
    for (const auto &photo : catalog.photos()) {
        catalog.change(photo.id, changes);
    }
    ASSERT_TRUE(catalog.commitChanges().has_value());
}

void check(const Row &row)
{
    SCOPED_TRACE(row.name);
    HostedPlugin plugin({.photos = row.photos,
                         .presets = {{u"1.xmp"_s, presetFile(u" Portra 400 "_s, u"Contrast2012=\"+40\""_s)},
                                     {u"2.xmp"_s, presetFile(u"Portra 160"_s, u"Contrast2012=\"+16\""_s)},
                                     {u"3.xmp"_s, presetFile(u"100% [.] Film"_s, u"Contrast2012=\"+3\""_s)}},
                         .facades = {}});
    if (!row.before.develop.isEmpty() || row.before.rating || row.before.pickStatus) {
        change(plugin.catalog(), row.before);
    }
    QJsonObject request = row.request;
    if (!row.targets.isEmpty()) {
        QJsonArray paths;
        for (const QString &name : row.targets) {
            paths.append(plugin.photoPath(name));
        }
        request["target_paths"_L1] = paths;
    }
    const QJsonObject reply = plugin.request(request);
    EXPECT_EQ(reply["status"_L1].toString(), row.status);
    EXPECT_EQ(reply["message"_L1].toString(), row.message);
    for (const Expected &expected : row.sidecars) {
        EXPECT_EQ(xmpText(plugin.photoPath(expected.sidecar), expected.key), expected.text) << expected.key;
    }
    EXPECT_TRUE(plugin.failures().isEmpty());
}

void checkAll(const std::vector<Row> &rows)
{
    for (const Row &row : rows) {
        check(row);
    }
}

constexpr auto exposure = "Xmp.crs.Exposure2012";
constexpr auto contrast = "Xmp.crs.Contrast2012";

const auto success = u"success"_s;
const auto error = u"error"_s;

} // namespace

TEST(PluginActions, adjustsOneSlider)
{
    const QJsonObject raise{{u"action"_s, u"adjust_slider"_s},
                            {u"slider"_s, u"Exposure"_s},
                            {u"value"_s, 0.5},
                            {u"relative"_s, true}};
    checkAll({
        {.name = "relative, on what the active photo has",
         .request = raise,
         .status = success,
         .message = u"Adjusted Exposure2012 on 1 photo to 0.7"_s,
         .sidecars = {{u"a.xmp"_s, exposure, u"+0.70"_s}, {u"b.xmp"_s, exposure, u"+0.20"_s}},
         .before = develop(u"Exposure2012"_s, u"+0.20"_s)},
        {.name = "absolute",
         .request = {{u"action"_s, u"adjust_slider"_s}, {u"slider"_s, u"CONTRAST"_s}, {u"value"_s, -12}},
         .status = success,
         .message = u"Adjusted Contrast2012 on 1 photo to -12"_s,
         .sidecars = {{u"a.xmp"_s, contrast, u"-12"_s}},
         .before = develop(u"Contrast2012"_s, u"+40"_s)},
        {.name = "relative is true only as the literal",
         .request = {{u"action"_s, u"adjust_slider"_s},
                     {u"slider"_s, u"tint"_s},
                     {u"value"_s, 5},
                     {u"relative"_s, u"true"_s}},
         .status = success,
         .message = u"Adjusted Tint on 1 photo to 5"_s,
         .sidecars = {{u"a.xmp"_s, "Xmp.crs.Tint", u"+5"_s}},
         .before = develop(u"Tint"_s, u"+30"_s)},
        {.name = "a slider name with a setting of another name",
         .request = {{u"action"_s, u"adjust_slider"_s}, {u"slider"_s, u"grain"_s}, {u"value"_s, 20}},
         .status = success,
         .message = u"Adjusted GrainAmount on 1 photo to 20"_s,
         .sidecars = {{u"a.xmp"_s, "Xmp.crs.GrainAmount", u"20"_s}}},
        {.name = "a develop setting by its own key",
         .request = {{u"action"_s, u"adjust_slider"_s}, {u"slider"_s, u"Sharpness"_s}, {u"value"_s, 60}},
         .status = success,
         .message = u"Adjusted Sharpness on 1 photo to 60"_s,
         .sidecars = {{u"a.xmp"_s, "Xmp.crs.Sharpness", u"60"_s}}},
        {.name = "several photos, no value in the message",
         .request = raise,
         .status = success,
         .message = u"Adjusted Exposure2012 on 2 photos"_s,
         .sidecars = {{u"a.xmp"_s, exposure, {}},
                      {u"b.xmp"_s, exposure, u"+0.50"_s},
                      {u"c.xmp"_s, exposure, u"+0.50"_s}},
         .targets = {u"b.CR3"_s, u"c.dng"_s}},
        {.name = "a photo that is not in the catalog",
         .request = raise,
         .status = success,
         .message = u"Adjusted Exposure2012 on 1 photo to 0.5 (1 missing)"_s,
         .sidecars = {{u"b.xmp"_s, exposure, u"+0.50"_s}},
         .targets = {u"b.CR3"_s, u"gone.jpg"_s}},
        {.name = "a photo named twice is changed once",
         .request = raise,
         .status = success,
         .message = u"Adjusted Exposure2012 on 1 photo to 0.5"_s,
         .sidecars = {{u"b.xmp"_s, exposure, u"+0.50"_s}},
         .targets = {u"b.CR3"_s, u"b.CR3"_s}},
        {.name = "no photo at all",
         .request = raise,
         .status = error,
         .message = u"No target photos found"_s,
         .photos = {}},
        {.name = "only missing photos",
         .request = raise,
         .status = error,
         .message = u"No target photos found"_s,
         .targets = {u"gone.jpg"_s}},
        {.name = "no slider",
         .request = {{u"action"_s, u"adjust_slider"_s}, {u"value"_s, 1}},
         .status = error,
         .message = u"Missing slider or value"_s},
        {.name = "a value that is no number",
         .request = {{u"action"_s, u"adjust_slider"_s}, {u"slider"_s, u"tint"_s}, {u"value"_s, u"5"_s}},
         .status = error,
         .message = u"Missing slider or value"_s},
        {.name = "a setting that the catalog does not know",
         .request = {{u"action"_s, u"adjust_slider"_s}, {u"slider"_s, u"Sparkle"_s}, {u"value"_s, 1}},
         .status = error,
         .message =
             u"Could not change the catalog: The develop setting \"Sparkle\" is not modelled by the stand-in."_s},
    });
}

TEST(PluginActions, neverTakesBadTargetPathsForTheActivePhoto)
{
    HostedPlugin plugin;
    for (const QJsonValue &paths :
         {QJsonValue(u"a.jpg"_s), QJsonValue(QJsonObject()), QJsonValue(QJsonArray{1, 2})}) {
        const auto reply =
            plugin.request({{u"action"_s, u"rating"_s}, {u"value"_s, 3}, {u"target_paths"_s, paths}});
        EXPECT_EQ(reply["message"_L1].toString(), u"The target paths are not a list of paths"_s);
    }
    for (const QJsonValue &paths : {QJsonValue(), QJsonValue(QJsonArray())}) {
        const auto reply =
            plugin.request({{u"action"_s, u"rating"_s}, {u"value"_s, 3}, {u"target_paths"_s, paths}});
        EXPECT_EQ(reply["message"_L1].toString(), u"Set rating to 3 on 1 photo"_s);
    }
}

TEST(PluginActions, adjustsSeveralSliders)
{
    const auto batch = [](const QString &adjustments) {
        return QJsonObject{{u"action"_s, u"adjust_sliders"_s}, {u"adjustments"_s, adjustments}};
    };
    checkAll({
        {.name = "relative and absolute items",
         .request = batch(u"Exposure:0.5:1;Contrast:10:0;;clarity:+7:0:x"_s),
         .status = success,
         .message = u"Adjusted 3 sliders on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, exposure, u"+0.75"_s},
                      {u"a.xmp"_s, contrast, u"+10"_s},
                      {u"a.xmp"_s, "Xmp.crs.Clarity2012", u"+7"_s}},
         .before = develop(u"Exposure2012"_s, u"+0.25"_s)},
        {.name = "the later of two items for a setting, on what was there before the command",
         .request = batch(u"contrast:30:0;Contrast2012:5:1"_s),
         .status = success,
         .message = u"Adjusted 2 sliders on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, contrast, u"+25"_s}},
         .before = develop(u"Contrast2012"_s, u"+20"_s)},
        {.name = "items that are none are dropped",
         .request = batch(
             u"Exposure:high:0;tint:0x10:0;tint:inf:0;tint:nan:0;tint:1e400:0;tint:5;:::;Contrast:1e1:0"_s),
         .status = success,
         .message = u"Adjusted 1 sliders on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, contrast, u"+10"_s}, {u"a.xmp"_s, "Xmp.crs.Tint", {}}}},
        {.name = "grain is no slider name here",
         .request = batch(u"Grain:5:0"_s),
         .status = error,
         .message =
             u"Could not change the catalog: The develop setting \"Grain\" is not modelled by the stand-in."_s},
        {.name = "missing photos are counted",
         .request = batch(u"Contrast:10:0"_s),
         .status = success,
         .message = u"Adjusted 1 sliders on 2 photos (1 missing)"_s,
         .targets = {u"c.dng"_s, u"gone.jpg"_s, u"a.jpg"_s}},
        {.name = "nothing to adjust",
         .request = batch(u"Exposure;Contrast:10"_s),
         .status = error,
         .message = u"No valid adjustments parsed"_s},
        {.name = "an empty text",
         .request = batch({}),
         .status = error,
         .message = u"Missing adjustments string"_s},
        {.name = "no text at all",
         .request = {{u"action"_s, u"adjust_sliders"_s}},
         .status = error,
         .message = u"Missing adjustments string"_s},
        {.name = "no photo at all",
         .request = batch(u"Contrast:10:0"_s),
         .status = error,
         .message = u"No target photos found"_s,
         .photos = {}},
    });
}

TEST(PluginActions, appliesPresets)
{
    const auto apply = [](const QString &name) {
        return QJsonObject{{u"action"_s, u"apply_preset"_s}, {u"preset_name"_s, name}};
    };
    checkAll({
        {.name = "the first whose name contains the request",
         .request = apply(u"portra"_s),
         .status = success,
         .message = u"Applied preset Portra 400 to 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, contrast, u"+40"_s}}},
        {.name = "an exact match goes before it",
         .request = apply(u"  PORTRA 160\t"_s),
         .status = success,
         .message = u"Applied preset Portra 160 to 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, contrast, u"+16"_s}}},
        {.name = "a name is plain text, no pattern",
         .request = apply(u"% [.]"_s),
         .status = success,
         .message = u"Applied preset 100% [.] Film to 2 photos (1 missing)"_s,
         .sidecars = {{u"b.xmp"_s, contrast, u"+3"_s}, {u"c.xmp"_s, contrast, u"+3"_s}},
         .targets = {u"c.dng"_s, u"b.CR3"_s, u"gone.jpg"_s}},
        {.name = "no such preset",
         .request = apply(u"Velvia"_s),
         .status = error,
         .message = u"Preset not found: Velvia"_s},
        {.name = "a name of white space would fit every preset",
         .request = apply(u"   "_s),
         .status = error,
         .message = u"Missing preset name"_s},
        {.name = "no name",
         .request = {{u"action"_s, u"apply_preset"_s}},
         .status = error,
         .message = u"Missing preset name"_s},
        {.name = "no photo at all",
         .request = apply(u"portra"_s),
         .status = error,
         .message = u"No target photos found"_s,
         .photos = {}},
    });
}

TEST(PluginActions, flagsAndRates)
{
    const auto cull = [](const QJsonValue &type) {
        return QJsonObject{{u"action"_s, u"cull"_s}, {u"type"_s, type}};
    };
    const auto rate = [](const QJsonValue &value) {
        return QJsonObject{{u"action"_s, u"rating"_s}, {u"value"_s, value}};
    };
    constexpr auto pick = "Xmp.xmpDM.pick";
    constexpr auto rating = "Xmp.xmp.Rating";
    const PhotoChanges picked{.rating = 2, .pickStatus = 1, .develop = {}};
    checkAll({
        {.name = "pick",
         .request = cull(u"pick"_s),
         .status = success,
         .message = u"Set pickStatus to 1 on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, pick, u"1"_s}}},
        {.name = "reject, several photos",
         .request = cull(u"reject"_s),
         .status = success,
         .message = u"Set pickStatus to -1 on 2 photos (1 missing)"_s,
         .sidecars = {{u"a.xmp"_s, pick, u"-1"_s}, {u"b.xmp"_s, pick, {}}, {u"c.xmp"_s, pick, u"-1"_s}},
         .targets = {u"a.jpg"_s, u"c.dng"_s, u"gone.jpg"_s}},
        {.name = "unflag",
         .request = cull(u"unflag"_s),
         .status = success,
         .message = u"Set pickStatus to 0 on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, pick, u"0"_s}, {u"b.xmp"_s, pick, u"1"_s}},
         .before = picked},
        {.name = "any other type, by letter case too",
         .request = cull(u"Pick"_s),
         .status = success,
         .message = u"Set pickStatus to 0 on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, pick, u"0"_s}},
         .before = picked},
        {.name = "flag without photos",
         .request = cull(u"pick"_s),
         .status = error,
         .message = u"No target photos found"_s,
         .photos = {}},
        {.name = "rating",
         .request = rate(4),
         .status = success,
         .message = u"Set rating to 4 on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, rating, u"4"_s}, {u"b.xmp"_s, rating, u"2"_s}},
         .before = picked},
        {.name = "a missing value is no stars",
         .request = {{u"action"_s, u"rating"_s}},
         .status = success,
         .message = u"Set rating to 0 on 1 photo"_s,
         .sidecars = {{u"a.xmp"_s, rating, u"0"_s}},
         .before = picked},
        {.name = "a value of another type is not taken for no stars",
         .request = rate(u"4"_s),
         .status = error,
         .message = u"The rating is not a number"_s,
         .sidecars = {{u"a.xmp"_s, rating, u"2"_s}},
         .before = picked},
        {.name = "what the catalog refuses is said, and nothing is changed",
         .request = rate(9),
         .status = error,
         .message = u"Could not change the catalog: The rating must be a whole number from 0 to 5."_s,
         .sidecars = {{u"a.xmp"_s, rating, u"2"_s}},
         .before = picked},
        {.name = "rating without photos",
         .request = rate(3),
         .status = error,
         .message = u"No target photos found"_s,
         .photos = {}},
    });
}

TEST(PluginActions, importsAFolder)
{
    HostedPlugin plugin;
    const QString folder = plugin.folder(u"it's a \"trip\" $(é)"_s);
    writeFile(folder + u"/IMG_1.JPG");
    writeFile(folder + u"/notes.txt");
    writeFile(folder + u"/IMG_2.cr3");
    writeFile(folder + u"/sub/deep.jpg");
    const auto import = [&plugin](const QString &path) {
        return plugin.request({{u"action"_s, u"import_folder"_s}, {u"folder_path"_s, path}});
    };

    QJsonObject reply = import(folder);
    EXPECT_EQ(reply["message"_L1].toString(), u"Imported 2 photos from folder"_s);
    EXPECT_EQ(reply["imported"_L1].toInt(-1), 2);
    EXPECT_EQ(reply["failed"_L1].toInt(-1), 0);
    ASSERT_EQ(plugin.catalog().photos().size(), 5U);
    EXPECT_EQ(plugin.catalog().photos()[3].path, folder + u"/IMG_1.JPG");
    EXPECT_EQ(plugin.catalog().photos()[4].path, folder + u"/IMG_2.cr3");

    EXPECT_EQ(import(folder)["message"_L1].toString(), u"No photos were imported from folder"_s);
    EXPECT_TRUE(plugin.log().contains(("import_folder failed for "_L1 + folder).toUtf8()));

    writeFile(folder + u"/IMG_0.nef");
    reply = import(folder);
    EXPECT_EQ(reply["message"_L1].toString(), u"Imported 1 photos from folder"_s);
    EXPECT_EQ(reply["imported"_L1].toInt(-1), 1);
    EXPECT_EQ(reply["failed"_L1].toInt(-1), 2);

    writeFile(plugin.folder(u"empty/readme.txt"_s));
    const auto nothing = u"No supported photo files found in folder"_s;
    for (const QString &path :
         {plugin.folder(u"empty"_s), plugin.folder(u"gone"_s), u"-R"_s, QString(folder + QChar(u'\0'))}) {
        EXPECT_EQ(import(path)["message"_L1].toString(), nothing) << path.toStdString();
    }
    EXPECT_EQ(import({})["message"_L1].toString(), u"Missing folder path"_s);
    EXPECT_EQ(plugin.request({{u"action"_s, u"import_folder"_s}})["message"_L1].toString(),
              u"Missing folder path"_s);
}

TEST(PluginActions, stepsThroughTheSelection)
{
    HostedPlugin plugin;
    const auto send = [&plugin](const QString &action) {
        return plugin.request({{u"action"_s, action}})["message"_L1].toString();
    };
    const auto notEnough = u"Not enough target photos to navigate"_s;

    plugin.catalog().select(2, {1, 2, 3});
    EXPECT_EQ(send(u"next"_s), u"Moved to photo 3"_s);
    EXPECT_EQ(plugin.catalog().activePhoto(), 3);
    EXPECT_EQ(plugin.catalog().selectedPhotos(), std::vector{3});
    EXPECT_EQ(send(u"next"_s), notEnough);

    plugin.catalog().select(3, {1, 2, 3});
    EXPECT_EQ(send(u"next"_s), u"Moved to photo 1"_s);
    plugin.catalog().select(1, {1, 2, 3});
    EXPECT_EQ(send(u"prev"_s), u"Moved to photo 3"_s);
    plugin.catalog().select(3, {1, 3});
    EXPECT_EQ(send(u"prev"_s), u"Moved to photo 1"_s);

    plugin.catalog().select(0, {1, 2});
    EXPECT_EQ(send(u"next"_s), notEnough);
    plugin.catalog().select(3, {1, 2});
    EXPECT_EQ(send(u"next"_s), u"Active photo not found in target list"_s);
}

TEST(PluginActions, tellsTheStatus)
{
    HostedPlugin plugin;
    change(plugin.catalog(), {.rating = 4,
                              .pickStatus = -1,
                              .develop = {{u"Exposure2012"_s, u"+0.50"_s},
                                          {u"Temperature"_s, u"5200"_s},
                                          {u"Shadows2012"_s, u"-8"_s}}});
    QJsonObject reply = plugin.request({{u"action"_s, u"get_status"_s}, {u"request_id"_s, u"STATUS"_s}});
    EXPECT_EQ(reply, QJsonObject({{u"request_id"_s, u"STATUS"_s},
                                  {u"status"_s, u"success"_s},
                                  {u"filename"_s, u"a.jpg"_s},
                                  {u"rating"_s, 4},
                                  {u"flag"_s, -1},
                                  {u"exposure"_s, 0.5},
                                  {u"contrast"_s, 0},
                                  {u"temp"_s, 5200},
                                  {u"tint"_s, 0},
                                  {u"highlights"_s, 0},
                                  {u"shadows"_s, -8}}));

    plugin.catalog().select(0, {});
    reply = plugin.request({{u"action"_s, u"get_status"_s}});
    EXPECT_EQ(reply["status"_L1].toString(), error);
    EXPECT_EQ(reply["message"_L1].toString(), u"No active photo"_s);

    const QByteArray log = plugin.log();
    for (const char *step :
         {"get_status: begin", "get_status: before read access", "get_status: inside read access",
          "get_status: after getTargetPhoto", "get_status: after getDevelopSettings",
          "get_status: after filename", "get_status: after read access"}) {
        EXPECT_TRUE(log.contains(step)) << step;
    }
}

TEST(PluginActions, switchesToTheDevelopModuleOnceForDevelopActions)
{
    HostedPlugin plugin;
    (void)plugin.request({{u"action"_s, u"cull"_s}});
    EXPECT_FALSE(plugin.log().contains("switching to develop module"));
    for (int count = 0; count < 2; ++count) {
        (void)plugin.request({{u"action"_s, u"adjust_slider"_s}, {u"slider"_s, u"tint"_s}, {u"value"_s, 1}});
    }
    const QByteArray log = plugin.log();
    EXPECT_TRUE(log.contains("adjust_slider: active module is library"));
    EXPECT_EQ(log.count("adjust_slider: switching to develop module"), 1);
    EXPECT_TRUE(log.contains("adjust_slider: active module is develop"));
}

TEST(PluginActions, answersPingAndUnknownActions)
{
    HostedPlugin plugin;
    EXPECT_EQ(
        plugin.request({{u"action"_s, u"ping"_s}, {u"request_id"_s, u"P"_s}}),
        QJsonObject({{u"request_id"_s, u"P"_s}, {u"status"_s, u"success"_s}, {u"message"_s, u"pong"_s}}));
    EXPECT_EQ(plugin.request({{u"action"_s, u"delete"_s}, {u"request_id"_s, u"D"_s}}),
              QJsonObject({{u"request_id"_s, u"D"_s},
                           {u"status"_s, u"error"_s},
                           {u"message"_s, u"Unsupported action: delete"_s}}));
}
