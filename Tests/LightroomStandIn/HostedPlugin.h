#pragma once

#include "Catalog/Catalog.h"
#include "Catalog/PresetLibrary.h"
#include "Plugin/PluginHost.h"

#include <QJsonObject>
#include <QTemporaryDir>

#include <expected>
#include <memory>
#include <optional>
#include <vector>

namespace StandIn::Testing {

/// Copies the real plug-in into a modules folder, and gives the plug-in folder.
QString installPluginInto(const QString &modules);

/// Makes a file with this content, with the folders that it lies in.
void writeFile(const QString &path, const QByteArray &content = "photo");

[[nodiscard]] QByteArray readFile(const QString &path);

/// The text of a property such as "Xmp.crs.Exposure2012" in an XMP file, as exiv2 reads it; empty when
/// absent.
[[nodiscard]] QString xmpText(const QString &path, const char *key);

/// A preset file that gives one develop setting.
[[nodiscard]] QByteArray presetFile(const QString &name, const QString &setting);

/// The real plug-in in a stand-in of its own folders, spoken to over TCP. It holds the bridge port.
class HostedPlugin
{
public:
    struct Setup
    {
        QStringList photos{QStringLiteral("a.jpg"), QStringLiteral("b.CR3"), QStringLiteral("c.dng")};
        std::vector<std::pair<QString, QByteArray>> presets; ///< file name and content
        FacadeSources facades;
        PluginStart start = PluginStart::asItsManifestSays;
        bool shouldListen = true; ///< wait until the plug-in listens
    };

    HostedPlugin();
    explicit HostedPlugin(const Setup &setup);

    /// The path of a photo, or of another file, in the catalog's folder.
    [[nodiscard]] QString photoPath(const QString &name) const;
    [[nodiscard]] QString pluginFolder() const;
    [[nodiscard]] QString folder(const QString &name) const; ///< a folder beside the catalog's

    [[nodiscard]] Catalog &catalog() { return *m_catalog; }

    [[nodiscard]] PluginHost &host() { return *m_host; }

    /// Sends a request, whose request_id is filled in when it has none, and waits for its reply. A reply that
    /// is no JSON object, or does not come, fails the test and gives an empty object.
    QJsonObject request(QJsonObject fields);

    /// Sends a line as it is and waits for the reply of this id.
    QJsonObject sendLine(const QByteArray &line, const QString &requestId);

    [[nodiscard]] QByteArray log() const; ///< the plug-in's own log file

    [[nodiscard]] const std::vector<DialogMessage> &messages() const { return m_messages; }

    [[nodiscard]] const QStringList &failures() const { return m_failures; } ///< of tasks and callbacks

private:
    void load(PluginStart start = PluginStart::asItsManifestSays);

    QTemporaryDir m_directory;
    std::optional<Catalog> m_catalog;
    PresetLibrary m_presets;
    std::unique_ptr<PluginHost> m_host;
    std::vector<DialogMessage> m_messages;
    QStringList m_failures;
    bool m_isListening = false;
    bool m_isRefused = false;
};

/// Connects to the bridge port, again while it is refused, writes the bytes and hangs up. False when nothing
/// listened for two seconds.
[[nodiscard]] bool sendToPlugin(const QByteArray &bytes);

[[nodiscard]] QString replyPath(const QString &requestId);

} // namespace StandIn::Testing
