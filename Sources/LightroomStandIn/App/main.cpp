#include "App/CommandLine.h"
#include "Catalog/Catalog.h"
#include "Catalog/PresetLibrary.h"
#include "Plugin/PluginHost.h"
#include "SamplePhotos/SamplePhotos.h"
#include "Support/TerminationSignals.h"

#include <QCoreApplication>
#include <QDir>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace StandIn;

namespace {

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

void report(PluginHost &host)
{
    QObject::connect(
        &host, &PluginHost::listening, &host, [] { say(stdout, u"ready"_s); }, Qt::SingleShotConnection);
    QObject::connect(&host, &PluginHost::listenFailed, &host, [](quint16 port, const QString &error) {
        say(stderr,
            u"The plug-in cannot listen on port %1: %2. Does Lightroom or another stand-in run?"_s.arg(port)
                .arg(error));
        QCoreApplication::exit(EXIT_FAILURE);
    });
    QObject::connect(&host, &PluginHost::messageShown, &host, [](const DialogMessage &message) {
        say(stderr, u"%1: %2"_s.arg(message.title, message.text));
    });
    QObject::connect(&host, &PluginHost::taskFailed, &host, [](const QString &error) {
        say(stderr, u"A task of the plug-in failed: %1"_s.arg(error));
    });
}

int serve(const CommandLine &line)
{
    auto catalog = Catalog::open(line.photoFolder);
    if (!catalog) {
        return fail(catalog.error());
    }
    const auto presets = loadPresets(line.presetFolder);
    if (!presets) {
        return fail(presets.error());
    }
    const KelvaLR::TerminationSignals signals;
    QObject::connect(&signals, &KelvaLR::TerminationSignals::terminationRequested, qApp,
                     &QCoreApplication::quit);

    PluginHost host(QDir(line.moduleFolder).filePath(u"KelvaLR.lrplugin"_s), *catalog, *presets);
    report(host);
    if (const auto loaded = host.load(); !loaded) {
        return fail(loaded.error());
    }
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto line = readCommandLine(QCoreApplication::arguments());
    if (!line) {
        return fail(line.error());
    }
    if (line->isHelpWanted) {
        say(stdout, usage());
        return EXIT_SUCCESS;
    }
    if (!line->sampleFolder.isEmpty()) {
        const auto painted = paintSamplePhotos(line->sampleFolder);
        return painted ? EXIT_SUCCESS : fail(painted.error());
    }
    return serve(*line);
}
