#include "App/CommandLine.h"

#include <QCommandLineParser>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// The options of the program; the parser holds what was given of them.
struct Options
{
    QCommandLineOption prompt{
        u"prompt"_s, u"Submit TEXT, wait for its answer and print it. May be repeated."_s, u"TEXT"_s};
    QCommandLineOption terminal{u"terminal"_s, u"Read requests from standard input, one a line."_s};
    QCommandLineOption json{u"json"_s, u"Print one JSON object a line instead of text."_s};
    QCommandLineOption explain{
        u"explain"_s, u"Read requests from standard input and print how each would be routed, as one "
                      "JSON object a line. Carries nothing out."_s};
    QCommandLineOption assumeFrontmost{u"assume-lightroom-frontmost"_s,
                                       u"With --explain: take Lightroom for the frontmost application."_s};
    QCommandLineOption installPlugin{u"install-plugin"_s,
                                     u"Install the Lightroom plug-in, print its folder and end."_s};
    QCommandLineOption allowComputerControl{
        u"allow-computer-control"_s,
        u"Whether KelvaLR may press keys and click in other programs, from now on. By itself it only "
        "keeps the answer."_s,
        u"yes|no"_s};
    QCommandLineOption help{{u"h"_s, u"help"_s}, u"Show this help."_s};
    QCommandLineOption version{{u"v"_s, u"version"_s}, u"Show the version."_s};

    void addTo(QCommandLineParser &parser) const
    {
        parser.setApplicationDescription(
            u"Desktop assistant for Lightroom Classic. Without an option it opens its window."_s);
        parser.addOptions({prompt, terminal, json, explain, assumeFrontmost, installPlugin,
                           allowComputerControl, help, version});
    }
};

} // namespace

std::expected<CommandLine, QString> CommandLine::parse(const QStringList &arguments)
{
    const Options options;
    QCommandLineParser parser;
    options.addTo(parser);
    if (!parser.parse(arguments)) {
        return std::unexpected(parser.errorText());
    }
    if (!parser.positionalArguments().isEmpty()) {
        return std::unexpected(u"Unexpected argument '%1'. A request is given with --prompt."_s.arg(
            parser.positionalArguments().constFirst()));
    }

    CommandLine line;
    line.format = parser.isSet(options.json) ? OutputFormat::json : OutputFormat::text;
    line.prompts = parser.values(options.prompt);
    line.isLightroomAssumedFrontmost = parser.isSet(options.assumeFrontmost);

    if (parser.isSet(options.allowComputerControl)) {
        const QString answer = parser.value(options.allowComputerControl);
        if (answer != "yes"_L1 && answer != "no"_L1) {
            return std::unexpected(u"--allow-computer-control takes yes or no."_s);
        }
        line.allowsComputerControl = answer == "yes"_L1;
    }

    const std::pair<const QCommandLineOption &, LaunchMode> modes[] = {
        {options.help, LaunchMode::help},         {options.version, LaunchMode::version},
        {options.explain, LaunchMode::explain},   {options.installPlugin, LaunchMode::installPlugin},
        {options.terminal, LaunchMode::terminal}, {options.prompt, LaunchMode::prompts},
    };
    for (const auto &[option, mode] : modes) {
        if (!parser.isSet(option)) {
            continue;
        }
        if (line.mode != LaunchMode::window) {
            return std::unexpected(
                u"Give only one of --explain, --install-plugin, --terminal and --prompt."_s);
        }
        line.mode = mode;
        if (mode == LaunchMode::help || mode == LaunchMode::version) {
            break;
        }
    }
    if (line.mode == LaunchMode::window && line.allowsComputerControl) {
        line.mode = LaunchMode::consent;
    }
    return line;
}

QString CommandLine::helpText()
{
    QCommandLineParser parser;
    Options().addTo(parser);
    return parser.helpText();
}

} // namespace KelvaLR
