#include "Services/Lightroom/Language/LightroomFrontmost.h"

#include "Platform/FrontmostApplication.h"
#include "Support/LowercasedText.h"

namespace KelvaLR {

bool isLightroomFrontmost(const FrontmostApplication &frontmost)
{
    const auto application = frontmost.frontmostApplication();
    const auto namesLightroom = [](const QString &text) { return lowercased(text).contains(u"lightroom"); };
    return application && (namesLightroom(application->name) || namesLightroom(application->identifier));
}

} // namespace KelvaLR
