#include "Services/Lightroom/Language/LightroomSliderPromptParser.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Services/Lightroom/Language/NumbersInText.h"
#include "Support/DecimalNumber.h"
#include "Support/LowercasedText.h"

#include <cmath>

namespace KelvaLR::LightroomSliderPromptParser {

namespace {

using namespace CommandTables;

bool referencesLightroomAction(QStringView lower)
{
    return lower.contains(u"lightroom") || containsAny(lower, actionWords);
}

bool setsAbsoluteValue(QStringView lower)
{
    return lower.contains(absoluteWord) || lower.startsWith(absoluteWord.sliced(1));
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
