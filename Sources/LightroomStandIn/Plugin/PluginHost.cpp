#include "Plugin/PluginHost.h"

#include "Catalog/Catalog.h"
#include "Plugin/PluginEnvironment.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace StandIn {

PluginHost::PluginHost(QString pluginFolder, Catalog &catalog, const PresetLibrary &presets,
                       FacadeSources facades)
    : m_folder(std::move(pluginFolder))
    , m_catalog(catalog)
    , m_presets(presets)
    , m_facades(std::move(facades))
{
}

PluginHost::~PluginHost() = default;

std::expected<void, QString> PluginHost::load(PluginStart start)
{
    m_environment.reset();
    m_catalog.discardChanges(); // of a task that was inside the write gate
    m_isInitialised = false;
    m_manifest = {};
    auto result = readManifest();
    if (result) {
        makeEnvironment();
    }
    Q_EMIT stateChanged();
    const bool isStarted = m_manifest.isInitForced && start == PluginStart::asItsManifestSays;
    return result && isStarted ? initialise() : result;
}

PluginState PluginHost::state() const
{
    if (!m_environment) {
        return PluginState::absent;
    }
    return m_isInitialised ? PluginState::running : PluginState::loaded;
}

bool PluginHost::isInstalled() const
{
    return QFileInfo(m_folder).isDir();
}

std::expected<void, QString> PluginHost::readManifest()
{
    if (!isInstalled()) {
        return std::unexpected(
            u"There is no plug-in at \"%1\"; run \"kelvalr --install-plugin\" first."_s.arg(m_folder));
    }
    auto manifest = PluginManifest::read(m_folder);
    if (!manifest) {
        return std::unexpected(manifest.error());
    }
    m_manifest = *std::move(manifest);
    return {};
}

void PluginHost::makeEnvironment()
{
    m_environment = std::make_unique<PluginEnvironment>(
        PluginIdentity{.folder = m_folder, .identifier = m_manifest.identifier}, m_catalog, m_presets,
        m_module, m_facades);
    connect(m_environment.get(), &PluginEnvironment::listening, this, &PluginHost::listening);
    connect(m_environment.get(), &PluginEnvironment::listenFailed, this, &PluginHost::listenFailed);
    connect(m_environment.get(), &PluginEnvironment::messageShown, this, &PluginHost::messageShown);
    connect(m_environment.get(), &PluginEnvironment::taskFailed, this, &PluginHost::taskFailed);
}

std::expected<void, QString> PluginHost::initialise()
{
    if (m_isInitialised || m_manifest.initFile.isEmpty()) {
        return {};
    }
    m_isInitialised = true;
    Q_EMIT stateChanged();
    return run(m_manifest.initFile);
}

std::expected<void, QString> PluginHost::run(const QString &file)
{
    QFile script(QDir(m_folder).filePath(file));
    if (!script.open(QIODevice::ReadOnly)) {
        return std::unexpected(u"The plug-in's %1 cannot be read: %2"_s.arg(file, script.errorString()));
    }
    if (const auto ran = m_environment->run(script.readAll(), file); !ran) {
        return std::unexpected(u"The plug-in's %1 failed: %2"_s.arg(file, ran.error()));
    }
    return {};
}

std::expected<void, QString> PluginHost::chooseMenuItem(const QString &title)
{
    const auto &items = m_manifest.libraryMenuItems;
    const auto item = std::ranges::find(items, title, &PluginMenuItem::title);
    if (item == items.end() || !m_environment) {
        return std::unexpected(u"The plug-in has no menu item \"%1\"."_s.arg(title));
    }
    if (auto initialised = initialise(); !initialised) {
        return initialised;
    }
    return run(item->file);
}

} // namespace StandIn
