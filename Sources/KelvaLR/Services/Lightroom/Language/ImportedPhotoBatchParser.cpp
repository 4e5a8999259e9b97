#include "Services/Lightroom/Language/ImportedPhotoBatchParser.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Services/Lightroom/Language/LightroomPhrases.h"
#include "Services/Lightroom/Language/LightroomSliderPromptParser.h"
#include "Services/Lightroom/Language/NumbersInText.h"
#include "Support/TextTrimming.h"

#include <QStringList>

#include <array>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using namespace ImportedPhotoBatch;

constexpr PhraseList<5> targetableActions{
    u"lr_adjust_slider", u"lr_adjust_sliders", u"lr_apply_preset", u"lr_cull_photo", u"lr_set_rating",
};

constexpr PhraseList<2> articles{u"the", u"a"};

/// Words that say which photos are meant and are no part of a preset's name, removed in this order.
constexpr std::array<QLatin1StringView, 4> targetPhrases{
    " to these"_L1,
    " to selected"_L1,
    " to the selected photos"_L1,
    " to all imported photos"_L1,
};

constexpr PhraseList<2> presetNamePrefixes{u"called ", u"named "};

/// "apply NAME preset". An article alone is no name: "apply the preset NAME" has another form.
std::optional<QString> presetNameInBrackets(const LowercasedText &request)
{
    constexpr QStringView opening = u"apply ";
    const qsizetype openingAt = request.lower().indexOf(opening);
    if (openingAt < 0) {
        return std::nullopt;
    }
    const qsizetype start = openingAt + opening.size();
    const qsizetype end = request.lower().indexOf(u" preset", start);
    if (end < 0) {
        return std::nullopt;
    }
    const LowercasedText words(trimmedPunctuation(request.textBetween(start, end)));
    QString name = words.text();
    for (const QStringView article : articles) {
        if (words.lower() == article) {
            return std::nullopt;
        }
        if (words.lower().startsWith(article.toString() + u' ')) {
            name = words.textFrom(article.size());
            break;
        }
    }
    name = stripMatchingQuotes(name);
    return name.isEmpty() ? std::nullopt : std::optional(std::move(name));
}

/// The name of a preset from what stands behind "apply preset " and its like.
QString cleanPresetName(const QString &words)
{
    QString name = words;
    for (const QLatin1StringView phrase : targetPhrases) {
        name.replace(phrase, QString(), Qt::CaseInsensitive);
    }
    name = stripMatchingQuotes(trimmedPunctuation(name));
    const LowercasedText named(name);
    for (const QStringView prefix : presetNamePrefixes) {
        if (const auto rest = withoutPrefix(named, prefix)) {
            return stripMatchingQuotes(*rest);
        }
    }
    return name;
}

std::optional<QString> presetName(const LowercasedText &request)
{
    const auto name = presetNameInBrackets(request);
    return name ? name : nameBehindPresetMarker(request, cleanPresetName);
}

std::optional<QString> cullType(const LowercasedText &request)
{
    return valueOfFirstPhrase(request.lower(), CommandTables::batchCullTable);
}

std::optional<int> ratingValue(const LowercasedText &request)
{
    return firstRating(request.lower());
}

std::optional<ParsedLightroomSliderCommand> sliderCommand(const LowercasedText &request)
{
    return LightroomSliderPromptParser::parse(request.text());
}

std::optional<QString> inferredBatchAdjustments(const LowercasedText &request)
{
    QStringList adjustments;
    for (const CommandTables::LookRow &look : CommandTables::lookTable) {
        if (containsAny(request.lower(), look.phrases)) {
            adjustments.append(look.adjustment);
        }
    }
    return adjustments.isEmpty() ? std::nullopt : std::optional(adjustments.join(u';'));
}

using Rule = std::optional<ImportedPhotoBatchIntent> (*)(const LowercasedText &request);

/// Makes a rule of an extraction: its result and the whole request become the intent.
template <typename Batch, auto extract>
std::optional<ImportedPhotoBatchIntent> rule(const LowercasedText &request)
{
    if (auto extracted = extract(request)) {
        return Batch{*std::move(extracted), request.text()};
    }
    return std::nullopt;
}

/// In the order in which they are tried.
constexpr Rule rules[] = {
    rule<ApplyPreset, presetName>,
    rule<Cull, cullType>,
    rule<Rate, ratingValue>,
    rule<AdjustSlider, sliderCommand>,
    rule<AdjustSliders, inferredBatchAdjustments>,
};

} // namespace

std::optional<ImportedPhotoBatchIntent> importedPhotoBatchIntent(const QString &text)
{
    const LowercasedText request(text);
    if (!referencesImportedPhotoSelection(request.lower())) {
        return std::nullopt;
    }
    for (const Rule tryRule : rules) {
        if (auto intent = tryRule(request)) {
            return intent;
        }
    }
    return std::nullopt;
}

bool referencesImportedPhotoSelection(QStringView lower)
{
    return containsAny(lower, CommandTables::importedPhotoPhrases);
}

bool meansAllImportedPhotos(QStringView lower)
{
    return containsAny(lower, CommandTables::allImportedPhotosPhrases);
}

bool isImportedPhotoTargetableAction(const QString &action)
{
    return std::ranges::find(targetableActions, lowercased(trimmedWhitespace(action))) !=
           targetableActions.end();
}

} // namespace KelvaLR
