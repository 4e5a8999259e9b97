#pragma once

#include <QString>

#include <expected>

namespace KelvaLR {

/// Puts the plug-in that this program carries where Lightroom Classic looks for plug-ins.
class LightroomPluginInstaller
{
public:
    explicit LightroomPluginInstaller(QString modulesFolder = defaultModulesFolder());

    /// Lightroom's Modules folder below the user's home directory.
    [[nodiscard]] static QString defaultModulesFolder();

    /// The plug-in's own folder, whether or not it exists.
    [[nodiscard]] QString pluginFolder() const;

    /// Whether every file of the plug-in is there, whatever it holds.
    [[nodiscard]] bool isInPlace() const;

    /// Writes every file of the plug-in, each whole or not at all, over what is there. The error is a
    /// sentence; files written before it stay.
    [[nodiscard]] std::expected<void, QString> install() const;

private:
    QString m_modulesFolder;
};

} // namespace KelvaLR
