#include "Plugin/PluginManifest.h"

#include "Lua/LuaState.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

std::vector<PluginMenuItem> menuItems(const LuaValue &value)
{
    std::vector<PluginMenuItem> items;
    const auto *table = value.as<LuaTable>();
    for (const LuaValue &item : table ? table->items : std::vector<LuaValue>()) {
        if (const auto *fields = item.as<LuaTable>()) {
            items.push_back({fields->field("title").text(), fields->field("file").text()});
        }
    }
    return items;
}

LuaResult runFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::unexpected(file.errorString());
    }
    LuaState state;
    const auto chunk = state.load(file.readAll(), "=Info.lua");
    return chunk ? state.call(*chunk) : std::unexpected(chunk.error());
}

} // namespace

std::expected<PluginManifest, QString> PluginManifest::read(const QString &folder)
{
    const auto result = runFile(QDir(folder).filePath(u"Info.lua"_s));
    if (!result) {
        return std::unexpected(u"The plug-in's Info.lua cannot be read: %1"_s.arg(result.error()));
    }
    const auto *info = argument(*result, 0).as<LuaTable>();
    if (!info || info->field("LrToolkitIdentifier").text().isEmpty() ||
        info->field("LrPluginName").text().isEmpty()) {
        return std::unexpected(u"The plug-in's Info.lua does not name the plug-in."_s);
    }
    const auto *forced = info->field("LrForceInitPlugin").as<bool>();
    return PluginManifest{.identifier = info->field("LrToolkitIdentifier").text(),
                          .name = info->field("LrPluginName").text(),
                          .initFile = info->field("LrInitPlugin").text(),
                          .isInitForced = forced && *forced,
                          .libraryMenuItems = menuItems(info->field("LrLibraryMenuItems"))};
}

} // namespace StandIn
