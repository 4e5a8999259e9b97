#include "App/Session.h"

#include "App/CommandLine.h"

#include <QDir>

#include <cstdio>
#include <cstdlib>
#include <utility>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

std::expected<PresetLibrary, QString> loadPresets(const QString &folder)
{
    PresetLibrary presets = PresetLibrary::shipped();
    if (!folder.isEmpty()) {
        if (const auto added = presets.addFolder(folder); !added) {
            return std::unexpected(added.error());
        }
    }
    return presets;
}

} // namespace

void say(std::FILE *stream, const QString &line)
{
    std::fprintf(stream, "%s\n", line.toUtf8().constData());
    std::fflush(stream);
}

int fail(const QString &sentence)
{
    say(stderr, sentence);
    return EXIT_FAILURE;
}

QString listenFailure(quint16 port, const QString &error)
{
    return u"The plug-in cannot listen on port %1: %2. Does Lightroom or another stand-in run?"_s.arg(port)
        .arg(error);
}

std::expected<std::unique_ptr<Session>, QString> Session::open(const CommandLine &line)
{
    auto catalog = Catalog::open(line.photoFolder);
    if (!catalog) {
        return std::unexpected(catalog.error());
    }
    auto presets = loadPresets(line.presetFolder);
    if (!presets) {
        return std::unexpected(presets.error());
    }
    return std::make_unique<Session>(line, *std::move(catalog), *std::move(presets));
}

Session::Session(const CommandLine &line, Catalog catalog, PresetLibrary presets)
    : m_catalog(std::move(catalog))
    , m_presets(std::move(presets))
    , m_host(QDir(line.moduleFolder).filePath(u"KelvaLR.lrplugin"_s), m_catalog, m_presets)
{
    report();
}

void Session::report()
{
    QObject::connect(
        &m_host, &PluginHost::listening, &m_host, [] { say(stdout, u"ready"_s); }, Qt::SingleShotConnection);
    QObject::connect(&m_host, &PluginHost::listenFailed, &m_host,
                     [](quint16 port, const QString &error) { say(stderr, listenFailure(port, error)); });
    QObject::connect(&m_host, &PluginHost::messageShown, &m_host, [](const DialogMessage &message) {
        say(stderr, u"%1: %2"_s.arg(message.title, message.text));
    });
    QObject::connect(&m_host, &PluginHost::taskFailed, &m_host, [](const QString &error) {
        say(stderr, u"A task of the plug-in failed: %1"_s.arg(error));
    });
}

} // namespace StandIn
