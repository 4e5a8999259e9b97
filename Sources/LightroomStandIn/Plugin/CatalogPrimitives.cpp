#include "Plugin/CatalogPrimitives.h"

#include "Catalog/Catalog.h"
#include "Catalog/DevelopSettingTable.h"
#include "Catalog/PresetLibrary.h"

#include <QFileInfo>

#include <cmath>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

int photoId(const LuaValues &arguments)
{
    return static_cast<int>(argument(arguments, 0).number(0));
}

LuaValue numberOrNil(std::optional<int> number)
{
    return number ? LuaValue(static_cast<double>(*number)) : LuaValue();
}

LuaTable listOf(const std::vector<int> &ids)
{
    LuaTable list;
    for (const int id : ids) {
        list.items.emplace_back(static_cast<double>(id));
    }
    return list;
}

/// A text of a sidecar as the SDK hands it out: numbers and truth values as such.
LuaValue settingValue(const QString &text)
{
    bool isNumber = false;
    if (const double number = text.toDouble(&isNumber); isNumber && std::isfinite(number)) {
        return number;
    }
    if (text == "True"_L1 || text == "False"_L1) {
        return text == "True"_L1;
    }
    return text.toUtf8();
}

LuaValue settingValue(const QStringList &texts)
{
    LuaTable list;
    for (const QString &text : texts) {
        list.items.emplace_back(text.toUtf8());
    }
    return list;
}

LuaTable settingTable(const CameraRawSettings &settings)
{
    LuaTable table;
    for (auto setting = settings.cbegin(); setting != settings.cend(); ++setting) {
        const DevelopSetting *known = developSettingInProperty(setting.key());
        const QByteArray key =
            known ? QByteArray(known->key.data(), known->key.size()) : setting.key().toUtf8();
        table.fields.push_back(
            {key, std::visit([](const auto &value) { return settingValue(value); }, setting.value())});
    }
    if (const DevelopSetting *temperature = developSettingWithKey(u"Temperature");
        !settings.contains(temperature->property)) {
        table.fields.push_back({"Temperature", temperature->neutral});
    }
    return table;
}

std::expected<CameraRawSettings, QString> settingsFrom(const LuaTable &table)
{
    CameraRawSettings settings;
    for (const LuaField &field : table.fields) {
        const QString key = QString::fromUtf8(field.name);
        const DevelopSetting *setting = developSettingWithKey(key);
        const auto *value = field.value.as<double>();
        if (!setting) {
            return std::unexpected(u"The develop setting \"%1\" is not modelled by the stand-in."_s.arg(key));
        }
        if (!value || !std::isfinite(*value)) {
            return std::unexpected(u"The develop setting \"%1\" must be a number."_s.arg(key));
        }
        settings.insert(setting->property, setting->text(*value));
    }
    return settings;
}

/// A whole number within the bounds; the error names the field.
std::expected<int, QString> wholeNumber(const LuaValue &value, QStringView field, int lowest, int highest)
{
    const double number = value.number(std::nan(""));
    if (!(number >= lowest && number <= highest) || number != std::floor(number)) {
        return std::unexpected(
            u"The %1 must be a whole number from %2 to %3."_s.arg(field).arg(lowest).arg(highest));
    }
    return static_cast<int>(number);
}

LuaResult nothing(const std::expected<void, QString> &result)
{
    return result ? LuaResult() : std::unexpected(result.error());
}

/// A function that answers from the state of the photo whose id is its first argument.
template <typename Answer>
LuaFunction stateReader(LuaState &state, const Catalog &catalog, Answer answer)
{
    return state.function([&catalog, answer](const LuaValues &arguments) -> LuaResult {
        const auto photo = catalog.state(photoId(arguments));
        return photo ? LuaResult(LuaValues{answer(*photo)}) : std::unexpected(photo.error());
    });
}

/// A function that answers from the photo whose id is its first argument.
template <typename Answer>
LuaFunction photoReader(LuaState &state, const Catalog &catalog, Answer answer)
{
    return state.function([&catalog, answer](const LuaValues &arguments) -> LuaResult {
        const Photo *photo = catalog.photo(photoId(arguments));
        return LuaValues{photo ? LuaValue(answer(*photo)) : LuaValue()};
    });
}

void addReaders(LuaTable &table, LuaState &state, Catalog &catalog)
{
    table.fields.push_back({"photos", state.function([&catalog](const LuaValues &) -> LuaResult {
                                std::vector<int> ids;
                                for (const Photo &photo : catalog.photos()) {
                                    ids.push_back(photo.id);
                                }
                                return LuaValues{listOf(ids)};
                            })});
    table.fields.push_back({"selectedPhotos", state.function([&catalog](const LuaValues &) -> LuaResult {
                                return LuaValues{listOf(catalog.selectedPhotos())};
                            })});
    table.fields.push_back({"activePhoto", state.function([&catalog](const LuaValues &) -> LuaResult {
                                return LuaValues{numberOrNil(catalog.activePhoto())};
                            })});
    table.fields.push_back({"find", state.function([&catalog](const LuaValues &arguments) -> LuaResult {
                                const Photo *photo = catalog.find(argument(arguments, 0).text());
                                return LuaValues{
                                    numberOrNil(photo ? std::optional(photo->id) : std::nullopt)};
                            })});
    table.fields.push_back(
        {"path", photoReader(state, catalog, [](const Photo &photo) { return photo.path.toUtf8(); })});
    table.fields.push_back({"fileName", photoReader(state, catalog, [](const Photo &photo) {
                                return QFileInfo(photo.path).fileName().toUtf8();
                            })});
    table.fields.push_back({"rating", stateReader(state, catalog, [](const PhotoState &photo) {
                                return numberOrNil(photo.rating);
                            })});
    table.fields.push_back({"pickStatus", stateReader(state, catalog, [](const PhotoState &photo) {
                                return static_cast<double>(photo.pickStatus);
                            })});
    table.fields.push_back({"developSettings", stateReader(state, catalog, [](const PhotoState &photo) {
                                return settingTable(photo.develop);
                            })});
}

void addSelection(LuaTable &table, LuaState &state, Catalog &catalog)
{
    table.fields.push_back({"select", state.function([&catalog](const LuaValues &arguments) -> LuaResult {
                                std::vector<int> ids;
                                if (const auto *list = argument(arguments, 1).as<LuaTable>()) {
                                    for (const LuaValue &item : list->items) {
                                        ids.push_back(static_cast<int>(item.number(0)));
                                    }
                                }
                                catalog.select(photoId(arguments), ids);
                                return {};
                            })});
}

void addGate(LuaTable &table, LuaState &state, Catalog &catalog)
{
    table.fields.push_back({"beginChanges", state.function([&catalog](const LuaValues &) -> LuaResult {
                                catalog.beginChanges();
                                return {};
                            })});
    table.fields.push_back({"commitChanges", state.function([&catalog](const LuaValues &) -> LuaResult {
                                return nothing(catalog.commitChanges());
                            })});
    table.fields.push_back({"discardChanges", state.function([&catalog](const LuaValues &) -> LuaResult {
                                catalog.discardChanges();
                                return {};
                            })});
}

void addMetadataWriters(LuaTable &table, LuaState &state, Catalog &catalog)
{
    table.fields.push_back({"setRating", state.function([&catalog](const LuaValues &arguments) -> LuaResult {
                                const auto rating = wholeNumber(argument(arguments, 1), u"rating", 0, 5);
                                if (!rating) {
                                    return std::unexpected(rating.error());
                                }
                                catalog.change(photoId(arguments),
                                               {.rating = *rating, .pickStatus = {}, .develop = {}});
                                return {};
                            })});
    table.fields.push_back(
        {"setPickStatus", state.function([&catalog](const LuaValues &arguments) -> LuaResult {
             const auto pickStatus = wholeNumber(argument(arguments, 1), u"pick status", -1, 1);
             if (!pickStatus) {
                 return std::unexpected(pickStatus.error());
             }
             catalog.change(photoId(arguments), {.rating = {}, .pickStatus = *pickStatus, .develop = {}});
             return {};
         })});
    table.fields.push_back({"add", state.function([&catalog](const LuaValues &arguments) -> LuaResult {
                                const auto added = catalog.addPhoto(argument(arguments, 0).text());
                                return added ? LuaResult(LuaValues{static_cast<double>(*added)})
                                             : std::unexpected(added.error());
                            })});
}

void addDevelopWriters(LuaTable &table, LuaState &state, Catalog &catalog, const PresetLibrary &presets)
{
    table.fields.push_back(
        {"applyDevelopSettings", state.function([&](const LuaValues &arguments) -> LuaResult {
             const auto *values = argument(arguments, 1).as<LuaTable>();
             const auto settings =
                 values ? settingsFrom(*values) : std::unexpected(u"There are no develop settings."_s);
             if (!settings) {
                 return std::unexpected(settings.error());
             }
             catalog.change(photoId(arguments), {.rating = {}, .pickStatus = {}, .develop = *settings});
             return {};
         })});
    table.fields.push_back(
        {"applyDevelopPreset", state.function([&](const LuaValues &arguments) -> LuaResult {
             const double place = argument(arguments, 1).number(-1);
             const DevelopPreset *preset =
                 place < 0 ? nullptr : presets.preset(static_cast<std::size_t>(place));
             if (!preset) {
                 return std::unexpected(u"There is no such develop preset."_s);
             }
             catalog.change(photoId(arguments),
                            {.rating = {}, .pickStatus = {}, .develop = preset->settings});
             return {};
         })});
}

} // namespace

LuaTable catalogPrimitives(LuaState &state, Catalog &catalog, const PresetLibrary &presets)
{
    LuaTable table;
    addReaders(table, state, catalog);
    addSelection(table, state, catalog);
    addGate(table, state, catalog);
    addMetadataWriters(table, state, catalog);
    addDevelopWriters(table, state, catalog, presets);
    return table;
}

LuaTable presetPrimitives(LuaState &state, const PresetLibrary &presets)
{
    const auto folders = [&presets](const LuaValues &) -> LuaResult {
        LuaTable list;
        double place = 0;
        for (const PresetFolder &folder : presets.folders()) {
            LuaTable members;
            for (const DevelopPreset &preset : folder.presets) {
                members.items.emplace_back(
                    LuaTable{.items = {}, .fields = {{"name", preset.name.toUtf8()}, {"id", place++}}});
            }
            list.items.emplace_back(
                LuaTable{.items = {}, .fields = {{"name", folder.name.toUtf8()}, {"presets", members}}});
        }
        return LuaValues{list};
    };
    return {.items = {}, .fields = {{"folders", state.function(folders)}}};
}

} // namespace StandIn
