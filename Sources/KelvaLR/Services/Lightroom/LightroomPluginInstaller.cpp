#include "Services/Lightroom/LightroomPluginInstaller.h"

#include "Services/Lightroom/AdobeFolder.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <array>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// In the order in which they are written.
constexpr std::array pluginFiles{
    QLatin1StringView("Info.lua"),
    QLatin1StringView("LightroomSocketServer.lua"),
    QLatin1StringView("MenuAction.lua"),
};

/// Left behind by versions that carried their sources in one file.
constexpr QLatin1StringView obsoleteFile("source_reference.txt");

std::expected<void, QString> writeFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.commit()) {
        return std::unexpected("Could not write "_L1 + path + ": "_L1 + file.errorString() + u'.');
    }
    return {};
}

} // namespace

LightroomPluginInstaller::LightroomPluginInstaller(QString modulesFolder)
    : m_modulesFolder(std::move(modulesFolder))
{
}

QString LightroomPluginInstaller::defaultModulesFolder()
{
    return adobeFolder() + "/Lightroom/Modules"_L1;
}

QString LightroomPluginInstaller::pluginFolder() const
{
    return m_modulesFolder + "/KelvaLR.lrplugin"_L1;
}

bool LightroomPluginInstaller::isInPlace() const
{
    return std::ranges::all_of(
        pluginFiles, [folder = QDir(pluginFolder())](QLatin1StringView name) { return folder.exists(name); });
}

std::expected<void, QString> LightroomPluginInstaller::install() const
{
    const QDir folder(pluginFolder());
    if (!folder.mkpath(u"."_s)) {
        return std::unexpected("Could not create the folder "_L1 + folder.path() + u'.');
    }
    for (const QLatin1StringView name : pluginFiles) {
        QFile source(":/plugin/"_L1 + name);
        if (!source.open(QIODevice::ReadOnly)) {
            return std::unexpected(name + " is missing from this program."_L1);
        }
        if (const auto written = writeFile(folder.filePath(name), source.readAll()); !written) {
            return written;
        }
    }
    QFile::remove(folder.filePath(obsoleteFile));
    return {};
}

} // namespace KelvaLR
