#include "Catalog/PresetLibrary.h"

#include "Catalog/XmpPacket.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

/// What a preset file says about itself, not about the photo.
constexpr std::array descriptiveProperties{
    "AllowFiltering"_L1,
    "CameraModelRestriction"_L1,
    "Cluster"_L1,
    "ContactInfo"_L1,
    "Copyright"_L1,
    "Description"_L1,
    "Group"_L1,
    "HasSettings"_L1,
    "Name"_L1,
    "PresetType"_L1,
    "ShortName"_L1,
    "SortName"_L1,
    "SupportsAmount"_L1,
    "SupportsAmount2"_L1,
    "SupportsColor"_L1,
    "SupportsHighDynamicRange"_L1,
    "SupportsMonochrome"_L1,
    "SupportsNormalDynamicRange"_L1,
    "SupportsOutputReferred"_L1,
    "SupportsSceneReferred"_L1,
    "UUID"_L1,
};

std::expected<DevelopPreset, QString> readPreset(const QString &path)
{
    const auto packet = XmpPacket::read(path);
    if (!packet) {
        return std::unexpected(u"The preset \"%1\" cannot be read: %2."_s.arg(path, packet.error()));
    }
    DevelopPreset preset{.name = packet->text("Xmp.crs.Name").trimmed(),
                         .settings = packet->cameraRawSettings()};
    for (const QLatin1StringView property : descriptiveProperties) {
        preset.settings.remove(property);
    }
    if (preset.settings.isEmpty()) {
        return std::unexpected(u"The preset \"%1\" holds no develop settings."_s.arg(path));
    }
    if (preset.name.isEmpty()) {
        preset.name = QFileInfo(path).completeBaseName();
    }
    return preset;
}

std::expected<PresetFolder, QString> readFolder(const QDir &directory, const QString &name)
{
    PresetFolder folder{.name = name, .presets = {}};
    for (const QString &file : directory.entryList({u"*.xmp"_s}, QDir::Files, QDir::Name)) {
        auto preset = readPreset(directory.filePath(file));
        if (!preset) {
            return std::unexpected(preset.error());
        }
        folder.presets.push_back(*std::move(preset));
    }
    return folder;
}

} // namespace

PresetLibrary PresetLibrary::shipped()
{
    PresetLibrary library;
    if (auto folder = readFolder(QDir(u":/LightroomStandIn/Presets"_s), u"Stand-in Presets"_s)) {
        library.m_folders.push_back(*std::move(folder));
    }
    return library;
}

std::expected<void, QString> PresetLibrary::addFolder(const QString &path)
{
    const QFileInfo info(path);
    if (!info.isDir() || !info.isReadable() || !info.isExecutable()) {
        return std::unexpected(u"\"%1\" cannot be read as a preset folder."_s.arg(path));
    }
    auto folder = readFolder(QDir(info.absoluteFilePath()), info.fileName());
    if (!folder) {
        return std::unexpected(folder.error());
    }
    m_folders.insert(m_folders.begin(), *std::move(folder));
    return {};
}

const DevelopPreset *PresetLibrary::preset(std::size_t place) const
{
    for (const PresetFolder &folder : m_folders) {
        if (place < folder.presets.size()) {
            return &folder.presets[place];
        }
        place -= folder.presets.size();
    }
    return nullptr;
}

} // namespace StandIn
