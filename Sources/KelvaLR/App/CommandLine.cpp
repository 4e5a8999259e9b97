#include "App/CommandLine.h"

#include <QCommandLineParser>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// The options of the program; the parser holds what was given of them.
struct Options
{
    QCommandLineOption openSection{
        u"open-section"_s, u"Bring the window to the front and show a section of it: chat."_s, u"SECTION"_s};
    QCommandLineOption createNote{
        u"create-note"_s, u"Bring the window to the front with TEXT in its composer. Nothing is sent."_s,
        u"TEXT"_s};
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
    QCommandLineOption service{
        u"gapplication-service"_s,
        u"Wait without a window until the session bus asks for something; the bus starts it so."_s};
    QCommandLineOption help{{u"h"_s, u"help"_s}, u"Show this help."_s};
    QCommandLineOption version{{u"v"_s, u"version"_s}, u"Show the version."_s};

    void addTo(QCommandLineParser &parser) const
    {
        parser.setApplicationDescription(
            u"Desktop assistant for Lightroom Classic. Without an option it opens its window."_s);
        parser.addOptions({openSection, createNote, prompt, terminal, json, explain, assumeFrontmost,
                           installPlugin, allowComputerControl, service, help, version});
    }
};

/// What the program is started for when the option is given; several exclude each other.
struct ModeRow
{
    const QCommandLineOption &option;
    LaunchMode mode;
};

std::expected<LaunchMode, QString> modeGiven(const QCommandLineParser &parser, const Options &options)
{
    if (parser.isSet(options.help)) {
        return LaunchMode::help;
    }
    if (parser.isSet(options.version)) {
        return LaunchMode::version;
    }
    const ModeRow rows[] = {
        {options.openSection, LaunchMode::window}, {options.createNote, LaunchMode::window},
        {options.explain, LaunchMode::explain},    {options.installPlugin, LaunchMode::installPlugin},
        {options.terminal, LaunchMode::terminal},  {options.prompt, LaunchMode::prompts},
        {options.service, LaunchMode::service},
    };
    QStringList given;
    LaunchMode mode = parser.isSet(options.allowComputerControl) ? LaunchMode::consent : LaunchMode::window;
    for (const ModeRow &row : rows) {
        if (parser.isSet(row.option)) {
            given.append(u"--"_s + row.option.names().constFirst());
            mode = row.mode;
        }
    }
    if (given.size() > 1) {
        return std::unexpected(u"Give only one of %1."_s.arg(given.join(" and "_L1)));
    }
    const bool isConversation = mode == LaunchMode::prompts || mode == LaunchMode::terminal;
    if (!isConversation && mode != LaunchMode::consent && parser.isSet(options.allowComputerControl)) {
        return std::unexpected(u"Give --allow-computer-control by itself, or with --prompt or --terminal."_s);
    }
    return mode;
}

/// None when no action is asked for.
std::expected<std::optional<KelvaLRIntent>, QString> intentGiven(const QCommandLineParser &parser,
                                                                 const Options &options)
{
    if (parser.isSet(options.createNote)) {
        return CreateKelvaLRNoteIntent{parser.value(options.createNote)};
    }
    if (!parser.isSet(options.openSection)) {
        return std::nullopt;
    }
    const auto section = sectionNamed(parser.value(options.openSection));
    if (!section) {
        return std::unexpected(section.error());
    }
    return OpenKelvaLRSectionIntent{*section};
}

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

    const auto mode = modeGiven(parser, options);
    if (!mode) {
        return std::unexpected(mode.error());
    }
    line.mode = *mode;
    const auto intent = intentGiven(parser, options);
    if (!intent) {
        return std::unexpected(intent.error());
    }
    line.intent = *intent;
    return line;
}

QString CommandLine::helpText()
{
    QCommandLineParser parser;
    Options().addTo(parser);
    return parser.helpText();
}

} // namespace KelvaLR
