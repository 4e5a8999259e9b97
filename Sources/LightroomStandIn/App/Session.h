#pragma once

#include "Catalog/Catalog.h"
#include "Catalog/PresetLibrary.h"
#include "Plugin/PluginHost.h"

#include <memory>

namespace StandIn {

struct CommandLine;

/// Writes a line to a standard stream.
void say(std::FILE *stream, const QString &line);

/// Says on standard error why the program ends, and gives its exit code.
[[nodiscard]] int fail(const QString &sentence);

/// The catalog and the plug-in that the program was started for.
class Session
{
public:
    /// The plug-in is not loaded yet. The error is a finished sentence.
    [[nodiscard]] static std::expected<std::unique_ptr<Session>, QString> open(const CommandLine &line);

    Session(const CommandLine &line, Catalog catalog, PresetLibrary presets);

    [[nodiscard]] Catalog &catalog() { return m_catalog; }

    [[nodiscard]] PluginHost &host() { return m_host; }

private:
    void report();

    Catalog m_catalog;
    PresetLibrary m_presets;
    PluginHost m_host;
};

/// What a failure to listen means for the user.
[[nodiscard]] QString listenFailure(quint16 port, const QString &error);

} // namespace StandIn
