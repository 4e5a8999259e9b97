#include "Services/Lightroom/Language/PromptRouter.h"

#include "Services/Lightroom/Language/CommandTables.h"
#include "Services/Lightroom/Language/ImportedPhotoBatchParser.h"
#include "Services/Lightroom/Language/LightroomCommandParser.h"
#include "Services/Lightroom/Language/LightroomPhrases.h"
#include "Support/TextTrimming.h"

namespace KelvaLR {

namespace {

bool isLightroomConnectionTest(const LowercasedText &request)
{
    QString lower = request.lower();
    lower.replace(u'-', u' ');
    return containsAny(lower, CommandTables::connectionTestPhrases) ||
           (lower.contains(u"lightroom status") && lower.contains(u"connection"));
}

} // namespace

PromptRoute routePrompt(const QString &text, const FrontmostApplication &frontmost)
{
    const LowercasedText request(trimmedWhitespace(text));
    if (request.text().isEmpty()) {
        return Route::Ignored{};
    }
    if (isLightroomConnectionTest(request)) {
        return Route::ConnectionTest{};
    }
    if (auto path = importFolderPath(request)) {
        return Route::FolderImport{*std::move(path)};
    }
    if (auto intent = importedPhotoBatchIntent(request.text())) {
        return Route::Batch{*std::move(intent)};
    }
    if (auto command = LightroomCommandParser::parse(request.text(), frontmost)) {
        return Route::Command{*std::move(command)};
    }
    return Route::Chat{};
}

} // namespace KelvaLR
