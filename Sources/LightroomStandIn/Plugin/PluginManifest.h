#pragma once

#include <QString>

#include <expected>
#include <vector>

namespace StandIn {

struct PluginMenuItem
{
    QString title;
    QString file; ///< inside the plug-in folder

    bool operator==(const PluginMenuItem &) const = default;
};

/// What the Info.lua of a plug-in folder says, as far as the stand-in acts on it.
struct PluginManifest
{
    QString identifier;
    QString name;
    QString initFile; ///< empty when the plug-in has none
    bool isInitForced = false;
    std::vector<PluginMenuItem> libraryMenuItems;

    /// Reads Info.lua in this folder. The error is a finished sentence.
    [[nodiscard]] static std::expected<PluginManifest, QString> read(const QString &folder);

    bool operator==(const PluginManifest &) const = default;
};

} // namespace StandIn
