#include "Services/Assistant/Realtime/RealtimeToolDefinition.h"

#include "Services/Assistant/Realtime/RealtimeToolAction.h"
#include "Services/Assistant/Realtime/RealtimeToolKeys.h"

#include <QJsonArray>

#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

struct PropertyRow
{
    QLatin1StringView name;
    QLatin1StringView type;
    QLatin1StringView description;
};

constexpr std::array properties{
    PropertyRow{
        RealtimeToolKey::action, "string"_L1,
        "The Lightroom action to perform. Use lr_import_folder only for Lightroom Classic folder imports. "
        "Use lr_apply_preset when the user names an installed preset. Use lr_adjust_slider for one slider, "
        "lr_adjust_sliders for inferred multi-slider looks, lr_cull_photo to pick/reject/unflag, "
        "lr_set_rating to rate 0-5, lr_navigate to go next/prev, and lr_get_status to query state."_L1},
    PropertyRow{RealtimeToolKey::appName, "string"_L1,
                "Adobe Lightroom or Adobe Lightroom Classic (required for open_app)."_L1},
    PropertyRow{RealtimeToolKey::targetName, "string"_L1,
                "The Lightroom UI element to click or focus (required for click, optional for type)."_L1},
    PropertyRow{
        RealtimeToolKey::text, "string"_L1,
        "The text to type (required for type). For lr_cull_photo, use 'pick', 'reject', or 'unflag'. For "
        "lr_navigate, use 'next' or 'prev'. For lr_adjust_sliders, use a batch string formatted as "
        "'Slider1:Value1:Relative1;Slider2:Value2:Relative2' (where Relative is '1' for true/relative and "
        "'0' for false/absolute)."_L1},
    PropertyRow{RealtimeToolKey::key, "string"_L1,
                "The keyboard key to press (required for press_key). E.g. 'enter', 'tab', 'escape', "
                "'space'."_L1},
    PropertyRow{RealtimeToolKey::slider, "string"_L1,
                "The Lightroom slider name (e.g. 'Exposure', 'Contrast', 'Temp', 'Tint', 'Highlights', "
                "'Shadows', 'Whites', 'Blacks', 'Saturation') (required for lr_adjust_slider)."_L1},
    PropertyRow{RealtimeToolKey::value, "number"_L1,
                "The value to set (required for lr_adjust_slider and lr_set_rating). E.g., +0.3 for relative "
                "exposure, -10 for relative contrast, or a star rating integer 0-5."_L1},
    PropertyRow{RealtimeToolKey::relative, "boolean"_L1,
                "Whether the slider adjustment is relative (true) or absolute (false) (optional for "
                "lr_adjust_slider, defaults to true)."_L1},
    PropertyRow{RealtimeToolKey::presetName, "string"_L1,
                "The exact Lightroom preset name to apply (required for lr_apply_preset)."_L1},
    PropertyRow{RealtimeToolKey::folderPath, "string"_L1,
                "The absolute local folder path to import into Lightroom Classic (required for "
                "lr_import_folder)."_L1},
};

QJsonArray actionNames()
{
    QJsonArray names;
    for (const auto &row : rawValueTable<RealtimeToolAction>) {
        names.append(row.raw);
    }
    return names;
}

OrderedJsonObject propertyDefinitions()
{
    OrderedJsonObject definitions;
    for (const PropertyRow &row : properties) {
        OrderedJsonObject definition;
        definition.add("type"_L1, row.type);
        if (row.name == RealtimeToolKey::action) {
            definition.add("enum"_L1, actionNames());
        }
        definitions.add(row.name, definition.add("description"_L1, row.description));
    }
    return definitions;
}

} // namespace

OrderedJsonObject computerUseToolDefinition()
{
    const auto parameters = OrderedJsonObject()
                                .add("type"_L1, "object"_L1)
                                .add("properties"_L1, propertyDefinitions())
                                .add("required"_L1, QJsonArray{RealtimeToolKey::action})
                                .add("additionalProperties"_L1, false);
    return OrderedJsonObject()
        .add("type"_L1, "function"_L1)
        .add("name"_L1, RealtimeToolKey::toolName)
        .add("description"_L1,
             "Control Adobe Lightroom or Lightroom Classic development, culling, rating, navigation, plugin "
             "status, and focused Lightroom UI interactions."_L1)
        .add("parameters"_L1, parameters);
}

} // namespace KelvaLR
