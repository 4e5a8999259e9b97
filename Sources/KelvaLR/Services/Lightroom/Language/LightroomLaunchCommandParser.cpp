#include "Services/Lightroom/Language/LightroomLaunchCommandParser.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Services/Lightroom/Language/LightroomPhrases.h"
#include "Support/TextTrimming.h"

namespace KelvaLR::LightroomLaunchCommandParser {

std::optional<QString> parse(const QString &text)
{
    const LowercasedText request(trimmedWhitespace(text));
    for (const QStringView verb : CommandTables::launchVerbs) {
        if (const auto rest = withoutPrefix(request, verb)) {
            QString name = trimmedWhitespace(*rest);
            return lowercased(name).contains(u"lightroom") ? std::optional(std::move(name)) : std::nullopt;
        }
    }
    return std::nullopt;
}

} // namespace KelvaLR::LightroomLaunchCommandParser
