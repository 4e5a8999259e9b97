#pragma once

#include "Plugin/CurrentModule.h"
#include "Plugin/DialogMessage.h"
#include "Plugin/PluginManifest.h"

#include <QHash>
#include <QObject>

#include <memory>

namespace StandIn {

class Catalog;
class PluginEnvironment;
class PresetLibrary;

/// Lua sources of SDK modules that take the place of the stand-in's own, by the name that is imported.
using FacadeSources = QHash<QString, QByteArray>;

/// When the init script of a plug-in runs.
enum class PluginStart {
    asItsManifestSays,
    whenFirstUsed,
};

enum class PluginState {
    absent,
    loaded,  ///< its manifest is known
    running, ///< its init script has run too
};

/// Loads one plug-in folder and runs its scripts as Lightroom does: in an environment of their own, which
/// lasts until the plug-in is reloaded. Main thread; needs a running event loop for anything asynchronous.
class PluginHost : public QObject
{
    Q_OBJECT

public:
    /// The catalog and the presets must outlive the host.
    PluginHost(QString pluginFolder, Catalog &catalog, const PresetLibrary &presets,
               FacadeSources facades = {});
    ~PluginHost() override;

    /// Loads the plug-in, or loads it again in a fresh environment, and runs its init script if the manifest
    /// asks for that. The error is a finished sentence. Not to be called while a script of the plug-in is
    /// running.
    [[nodiscard]] std::expected<void, QString> load(PluginStart start = PluginStart::asItsManifestSays);

    [[nodiscard]] PluginState state() const;

    /// Whether there is a plug-in folder, be it sound or not.
    [[nodiscard]] bool isInstalled() const;

    [[nodiscard]] const QString &folder() const { return m_folder; }

    /// The module that the plug-in sees and switches.
    [[nodiscard]] CurrentModule &currentModule() { return m_module; }

    [[nodiscard]] const PluginManifest &manifest() const { return m_manifest; }

    /// Runs the script of a menu item of the Library menu, after the init script if that has not run yet.
    [[nodiscard]] std::expected<void, QString> chooseMenuItem(const QString &title);

Q_SIGNALS:
    void stateChanged();
    void listening(quint16 port); ///< each time a socket of the plug-in begins to listen
    void listenFailed(quint16 port,
                      const QString &error); ///< a socket could not listen, not for lack of clients
    void messageShown(const StandIn::DialogMessage &message);
    void taskFailed(const QString &error); ///< a task or callback of the plug-in ended in this error

private:
    [[nodiscard]] std::expected<void, QString> readManifest();
    void makeEnvironment();
    [[nodiscard]] std::expected<void, QString> initialise();
    [[nodiscard]] std::expected<void, QString> run(const QString &file);

    QString m_folder;
    Catalog &m_catalog;
    const PresetLibrary &m_presets;
    FacadeSources m_facades;
    CurrentModule m_module;
    PluginManifest m_manifest;
    std::unique_ptr<PluginEnvironment> m_environment;
    bool m_isInitialised = false;
};

} // namespace StandIn
