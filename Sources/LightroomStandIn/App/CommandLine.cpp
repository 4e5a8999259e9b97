#include "App/CommandLine.h"

#include <QCommandLineParser>
#include <QDir>

using namespace Qt::StringLiterals;

namespace StandIn {

namespace {

/// Where Lightroom Classic looks for plug-ins.
constexpr auto modulesBelowHome = "Library/Application Support/Adobe/Lightroom/Modules"_L1;

struct Options
{
    QCommandLineOption help{u"help"_s, u"Says how the program is called."_s};
    QCommandLineOption headless{u"headless"_s, u"Runs without a window."_s};
    QCommandLineOption withoutPluginStart{
        u"without-plugin-start"_s,
        u"Does not start the plug-in until one of its menu items is chosen; with a window only."_s};
    QCommandLineOption photos{u"photos"_s, u"The folder whose photos are the catalog."_s, u"DIR"_s};
    QCommandLineOption presets{u"presets"_s,
                               u"A folder of develop presets (.xmp), besides the shipped ones."_s, u"DIR"_s};
    QCommandLineOption modules{
        u"modules"_s, u"The folder that holds KelvaLR.lrplugin; default: ~/%1."_s.arg(modulesBelowHome),
        u"DIR"_s};
    QCommandLineOption samplePhotos{
        u"sample-photos"_s, u"Paints six landscapes into a folder that holds no photo yet, and ends."_s,
        u"DIR"_s};

    void addTo(QCommandLineParser &parser) const
    {
        parser.addOptions({help, headless, withoutPluginStart, photos, presets, modules, samplePhotos});
    }
};

} // namespace

std::expected<CommandLine, QString> readCommandLine(const QStringList &arguments)
{
    const Options options;
    QCommandLineParser parser;
    options.addTo(parser);
    if (!parser.parse(arguments)) {
        return std::unexpected(parser.errorText());
    }
    if (!parser.positionalArguments().isEmpty()) {
        return std::unexpected(
            u"Unexpected argument \"%1\"."_s.arg(parser.positionalArguments().constFirst()));
    }
    CommandLine line{
        .isHelpWanted = parser.isSet(options.help),
        .isHeadless = parser.isSet(options.headless),
        .isPluginStartedLater = parser.isSet(options.withoutPluginStart),
        .photoFolder = parser.value(options.photos),
        .presetFolder = parser.value(options.presets),
        .moduleFolder = parser.isSet(options.modules) ? parser.value(options.modules)
                                                      : QDir::home().filePath(modulesBelowHome),
        .sampleFolder = parser.value(options.samplePhotos),
    };
    if (line.isHelpWanted || !line.sampleFolder.isEmpty()) {
        return line;
    }
    if (line.isHeadless && line.isPluginStartedLater) {
        return std::unexpected(u"--without-plugin-start needs a window: leave out --headless."_s);
    }
    if (line.photoFolder.isEmpty()) {
        return std::unexpected(u"Name the folder with the photos: --photos DIR."_s);
    }
    return line;
}

QString usage()
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"A small Lightroom that hosts the KelvaLR plug-in where there is no other."_s);
    options.addTo(parser);
    return parser.helpText();
}

} // namespace StandIn
