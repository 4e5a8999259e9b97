#include "Services/Lightroom/Language/LightroomCommandParser.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Services/Lightroom/Language/LightroomFrontmost.h"
#include "Services/Lightroom/Language/LightroomLaunchCommandParser.h"
#include "Services/Lightroom/Language/LightroomPhrases.h"
#include "Services/Lightroom/Language/LightroomSliderPromptParser.h"
#include "Support/TextTrimming.h"

#include <algorithm>

namespace KelvaLR::LightroomCommandParser {

namespace {

using namespace CommandTables;
using namespace LightroomCommand;

/// The suffixes are taken off one after the other, so "Exposure slider in Lightroom" becomes "Exposure".
QString stripLightroomSuffix(const QString &name)
{
    QString stripped = trimmedWhitespace(name);
    for (const QStringView suffix : locationSuffixes) {
        if (const auto rest = withoutSuffix(LowercasedText(stripped), suffix)) {
            stripped = trimmedWhitespace(*rest);
        }
    }
    return stripped;
}

/// The name of an element on screen from the words that name it.
QString elementName(const QString &words)
{
    return stripLightroomSuffix(stripMatchingQuotes(trimmedPunctuation(words)));
}

QString cleanPresetName(const QString &words)
{
    QString name = stripLightroomSuffix(stripMatchingQuotes(words));
    for (const QStringView prefix : presetNamePrefixes) {
        if (const auto rest = withoutPrefix(LowercasedText(name), prefix)) {
            name = trimmedWhitespace(*rest);
        }
    }
    if (const auto rest = withoutSuffix(LowercasedText(name), presetSuffix)) {
        name = trimmedWhitespace(*rest);
    }
    return name;
}

/// Whether a sentence begins with the verb or has it at the beginning of a later word.
bool hasVerb(const QString &lower, QStringView verb)
{
    return lower.startsWith(verb) || lower.contains(u' ' + verb.toString());
}

QString textBehind(const LowercasedText &request, QStringView phrase)
{
    return request.textFrom(request.lower().indexOf(phrase) + phrase.size());
}

std::optional<LightroomGetStatus> statusQuestion(const LowercasedText &request)
{
    const QString &lower = request.lower();
    const bool asksForStatus = containsAny(lower, statusPhrases) ||
                               (lower.contains(u"current photo") && lower.contains(u"settings"));
    return asksForStatus ? std::optional(LightroomGetStatus{}) : std::nullopt;
}

std::optional<QString> presetName(const LowercasedText &request)
{
    if (auto name = nameBehindPresetMarker(
            request, [](const QString &words) { return cleanPresetName(trimmedPunctuation(words)); })) {
        return name;
    }
    const QString &lower = request.lower();
    for (const QStringView verb : presetVerbs) {
        if (lower.startsWith(verb) && lower.endsWith(presetSuffix)) {
            QString name =
                cleanPresetName(request.textBetween(verb.size(), lower.size() - presetSuffix.size()));
            if (!name.isEmpty()) {
                return name;
            }
        }
    }
    return std::nullopt;
}

std::optional<QString> cullType(const LowercasedText &request)
{
    return valueOfFirstPhrase(request.lower(), cullTable);
}

std::optional<int> ratingValue(const LowercasedText &request)
{
    return containsAny(request.lower(), ratingPhrases) ? valueOfFirstPhrase(request.lower(), ratingTable)
                                                       : std::nullopt;
}

std::optional<QString> navigationDirection(const LowercasedText &request)
{
    const auto direction = valueOfFirstPhrase(request.lower(), directionTable);
    return direction ? direction : valueOfWholeText(request.lower(), loneDirectionTable);
}

std::optional<QString> clickTarget(const LowercasedText &request)
{
    for (const QStringView verb : clickVerbs) {
        if (hasVerb(request.lower(), verb)) {
            QString name = elementName(textBehind(request, verb));
            if (!name.isEmpty()) {
                return name;
            }
        }
    }
    return std::nullopt;
}

std::optional<KeyboardKey> keyPress(const LowercasedText &request)
{
    const auto verb = std::ranges::find_if(
        keyVerbs, [&](QStringView candidate) { return hasVerb(request.lower(), candidate); });
    return verb == keyVerbs.end() ? std::nullopt
                                  : KeyboardKey::parse(trimmedPunctuation(textBehind(request, *verb)));
}

/// What stands behind the type verb that the sentence begins with.
std::optional<QString> textBehindTypeVerb(const LowercasedText &request)
{
    for (const QStringView verb : typeVerbs) {
        if (auto rest = withoutPrefix(request, verb)) {
            return rest;
        }
    }
    return std::nullopt;
}

std::optional<TypeTextIntoField> typedTextIntoField(const LowercasedText &request)
{
    const auto behindVerb = textBehindTypeVerb(request);
    if (!behindVerb) {
        return std::nullopt;
    }
    const LowercasedText rest(*behindVerb);
    for (const QStringView separator : fieldSeparators) {
        const qsizetype at = rest.lower().lastIndexOf(separator);
        if (at < 0) {
            continue;
        }
        QString text = stripMatchingQuotes(rest.textBetween(0, at));
        QString field = elementName(rest.textFrom(at + separator.size()));
        if (!text.isEmpty() && !field.isEmpty()) {
            return TypeTextIntoField{std::move(text), std::move(field)};
        }
    }
    return std::nullopt;
}

std::optional<QString> typedText(const LowercasedText &request)
{
    const auto behindVerb = textBehindTypeVerb(request);
    if (!behindVerb) {
        return std::nullopt;
    }
    QString text = stripMatchingQuotes(*behindVerb);
    return text.isEmpty() ? std::nullopt : std::optional(std::move(text));
}

bool speaksOfLightroom(const QString &lower)
{
    return lower.contains(u"lightroom") || lower.contains(u"lr ");
}

bool asksToInspect(const QString &lower, const FrontmostApplication &frontmost)
{
    if (lower.contains(u"inspect lightroom")) {
        return true;
    }
    if (lower.contains(u"inspect ui") && speaksOfLightroom(lower)) {
        return true;
    }
    return lower == u"inspect" && isLightroomFrontmost(frontmost);
}

using Rule = std::optional<LightroomComputerUseCommand> (*)(const LowercasedText &request);

/// Makes a rule of an extraction: its result becomes the command.
template <typename Command, auto extract>
std::optional<LightroomComputerUseCommand> rule(const LowercasedText &request)
{
    if (auto extracted = extract(request)) {
        return Command{*std::move(extracted)};
    }
    return std::nullopt;
}

/// The rules for a sentence about Lightroom, in the order in which they are tried.
constexpr Rule rules[] = {
    rule<LightroomGetStatus, statusQuestion>,
    rule<LightroomImportFolder, importFolderPath>,
    rule<LightroomApplyPreset, presetName>,
    rule<LightroomCullPhoto, cullType>,
    rule<LightroomSetRating, ratingValue>,
    rule<LightroomNavigate, navigationDirection>,
    rule<ClickElement, clickTarget>,
    rule<PressKey, keyPress>,
    rule<TypeTextIntoField, typedTextIntoField>,
    rule<TypeText, typedText>,
};

} // namespace

std::optional<LightroomComputerUseCommand> parse(const QString &text, const FrontmostApplication &frontmost)
{
    if (auto slider = LightroomSliderPromptParser::parse(text)) {
        return LightroomAdjustSlider{*std::move(slider)};
    }
    const LowercasedText request(trimmedWhitespace(text));
    if (asksToInspect(request.lower(), frontmost)) {
        return InspectUI{};
    }
    if (auto name = LightroomLaunchCommandParser::parse(request.text())) {
        return OpenLightroom{*std::move(name)};
    }
    if (!speaksOfLightroom(request.lower()) && !isLightroomFrontmost(frontmost)) {
        return std::nullopt;
    }
    for (const Rule tryRule : rules) {
        if (auto command = tryRule(request)) {
            return command;
        }
    }
    return std::nullopt;
}

} // namespace KelvaLR::LightroomCommandParser
