#include "Services/Lightroom/Language/LightroomSliderPromptParser.h"

#include "Services/Lightroom/Language/NumbersInText.h"
#include "Support/DecimalNumber.h"
#include "Support/LowercasedText.h"
#include "Support/PhraseTable.h"

#include <array>
#include <cmath>

namespace KelvaLR::LightroomSliderPromptParser {

namespace {

using namespace Qt::StringLiterals;

constexpr std::array<PhraseRow<QLatin1StringView>, 18> sliderTable{{
    {u"exposure", "exposure"_L1},
    {u"contrast", "contrast"_L1},
    {u"highlights", "highlights"_L1},
    {u"shadows", "shadows"_L1},
    {u"whites", "whites"_L1},
    {u"blacks", "blacks"_L1},
    {u"temperature", "temperature"_L1},
    {u"temp", "temperature"_L1},
    {u"tint", "tint"_L1},
    {u"texture", "texture"_L1},
    {u"clarity", "clarity"_L1},
    {u"dehaze", "dehaze"_L1},
    {u"vibrance", "vibrance"_L1},
    {u"saturation", "saturation"_L1},
    {u"grain amount", "grainamount"_L1},
    {u"grain size", "grainsize"_L1},
    {u"grain frequency", "grainfrequency"_L1},
    {u"grain", "grainamount"_L1},
}};

constexpr PhraseList<12> actionWords{
    u"adjust",   u"change", u"set", u"reduce", u"decrease", u"lower",
    u"increase", u"raise",  u"add", u"remove", u"brighten", u"darken",
};

constexpr PhraseList<5> decreaseWords{u"reduce", u"decrease", u"lower", u"darken", u"remove"};

constexpr PhraseList<4> increaseWords{u"increase", u"raise", u"brighten", u"add"};

bool referencesLightroomAction(QStringView lower)
{
    return lower.contains(u"lightroom") || containsAny(lower, actionWords);
}

bool setsAbsoluteValue(QStringView lower)
{
    return lower.contains(u" set ") || lower.startsWith(u"set ");
}

double signedChange(QStringView lower, double number)
{
    const bool meansDecrease = containsAny(lower, decreaseWords);
    const bool meansIncrease = containsAny(lower, increaseWords);
    if (meansIncrease && (meansDecrease || number < 0)) {
        return std::abs(number);
    }
    return meansDecrease && number > 0 ? -number : number;
}

} // namespace

std::optional<ParsedLightroomSliderCommand> parse(const QString &text)
{
    const QString lower = lowercased(text);
    const auto sliderName = valueOfFirstPhrase(lower, sliderTable);
    if (!sliderName || !referencesLightroomAction(lower)) {
        return std::nullopt;
    }
    const auto number = decimalNumber(firstNumber(lower));
    if (!number) {
        return std::nullopt;
    }
    if (setsAbsoluteValue(lower)) {
        return ParsedLightroomSliderCommand{*sliderName, *number, false};
    }
    return ParsedLightroomSliderCommand{*sliderName, signedChange(lower, *number), true};
}

} // namespace KelvaLR::LightroomSliderPromptParser
