#pragma once

#include "Models/RawValue.h"

#include <QString>
#include <QStringList>

#include <optional>

namespace KelvaLR {

/// What the plug-in can be asked to do.
enum class LightroomPluginAction {
    ping,
    adjustSlider,
    adjustSliders,
    applyPreset,
    importFolder,
    cull,
    rating,
    next,
    prev,
    getStatus,
};

template <>
inline constexpr std::array<RawValueRow<LightroomPluginAction>, 10> rawValueTable<LightroomPluginAction>{{
    {LightroomPluginAction::ping, QLatin1StringView("ping")},
    {LightroomPluginAction::adjustSlider, QLatin1StringView("adjust_slider")},
    {LightroomPluginAction::adjustSliders, QLatin1StringView("adjust_sliders")},
    {LightroomPluginAction::applyPreset, QLatin1StringView("apply_preset")},
    {LightroomPluginAction::importFolder, QLatin1StringView("import_folder")},
    {LightroomPluginAction::cull, QLatin1StringView("cull")},
    {LightroomPluginAction::rating, QLatin1StringView("rating")},
    {LightroomPluginAction::next, QLatin1StringView("next")},
    {LightroomPluginAction::prev, QLatin1StringView("prev")},
    {LightroomPluginAction::getStatus, QLatin1StringView("get_status")},
}};

/// One command to the plug-in, made fresh for every request: its identifier names the reply file.
struct LightroomPluginCommand
{
    /// A new random UUID, 36 characters, upper case and without braces.
    [[nodiscard]] static QString freshRequestID();

    QString requestID = freshRequestID();
    LightroomPluginAction action = LightroomPluginAction::ping;
    std::optional<QString> slider; ///< a slider's name, or a develop settings key
    std::optional<double> value;   ///< in the slider's own unit, or a star count
    std::optional<bool> relative;
    std::optional<QString> type;        ///< "pick", "reject" or "unflag"
    std::optional<QString> adjustments; ///< "Slider:Value:Relative" items separated by ";", Relative 1 or 0
    std::optional<QString> presetName;
    std::optional<QString> folderPath;
    QStringList targetPaths; ///< absolute paths of photos; empty means the active photo

    /// The command as one line of JSON, without its line feed. None when a text is not valid Unicode or the
    /// value is not finite: neither has a form in JSON.
    [[nodiscard]] std::optional<QString> jsonText() const;

    bool operator==(const LightroomPluginCommand &) const = default;
};

} // namespace KelvaLR
