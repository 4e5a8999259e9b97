#pragma once

#include "Models/RawValue.h"

namespace KelvaLR {

/// What a language model may ask for; the table is in the order in which the tool offers the actions.
enum class RealtimeToolAction {
    openApp,
    inspectUI,
    click,
    type,
    pressKey,
    adjustSlider,
    adjustSliders,
    applyPreset,
    importFolder,
    cullPhoto,
    setRating,
    navigate,
    getStatus,
};

template <>
inline constexpr std::array<RawValueRow<RealtimeToolAction>, 13> rawValueTable<RealtimeToolAction>{{
    {RealtimeToolAction::openApp, QLatin1StringView("open_app")},
    {RealtimeToolAction::inspectUI, QLatin1StringView("inspect_ui")},
    {RealtimeToolAction::click, QLatin1StringView("click")},
    {RealtimeToolAction::type, QLatin1StringView("type")},
    {RealtimeToolAction::pressKey, QLatin1StringView("press_key")},
    {RealtimeToolAction::adjustSlider, QLatin1StringView("lr_adjust_slider")},
    {RealtimeToolAction::adjustSliders, QLatin1StringView("lr_adjust_sliders")},
    {RealtimeToolAction::applyPreset, QLatin1StringView("lr_apply_preset")},
    {RealtimeToolAction::importFolder, QLatin1StringView("lr_import_folder")},
    {RealtimeToolAction::cullPhoto, QLatin1StringView("lr_cull_photo")},
    {RealtimeToolAction::setRating, QLatin1StringView("lr_set_rating")},
    {RealtimeToolAction::navigate, QLatin1StringView("lr_navigate")},
    {RealtimeToolAction::getStatus, QLatin1StringView("lr_get_status")},
}};

} // namespace KelvaLR
