#pragma once

#include "Catalog/CameraRawSettings.h"

#include <expected>
#include <vector>

namespace StandIn {

/// A develop preset: the camera raw settings that it gives a photo.
struct DevelopPreset
{
    QString name;
    CameraRawSettings settings;

    bool operator==(const DevelopPreset &) const = default;
};

struct PresetFolder
{
    QString name;
    std::vector<DevelopPreset> presets; ///< in the order of their file names

    bool operator==(const PresetFolder &) const = default;
};

/// The develop presets of the stand-in, read from ".xmp" preset files. Errors are finished sentences.
class PresetLibrary
{
public:
    /// The presets that come with the stand-in.
    [[nodiscard]] static PresetLibrary shipped();

    /// Puts the preset files of a folder before the presets that are here already.
    [[nodiscard]] std::expected<void, QString> addFolder(const QString &path);

    [[nodiscard]] const std::vector<PresetFolder> &folders() const { return m_folders; }

    /// A preset by its place, counting from 0 through all folders; null past the last one.
    [[nodiscard]] const DevelopPreset *preset(std::size_t place) const;

private:
    std::vector<PresetFolder> m_folders;
};

} // namespace StandIn
