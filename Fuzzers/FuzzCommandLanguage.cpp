// Any text at all is routed, and its explanation is one line of JSON that gives the text back; its spoken
// numbers are read in one go.

#include "FuzzedText.h"

#include "Platform/FrontmostApplication.h"
#include "Services/Lightroom/Language/RouteExplanation.h"
#include "Services/Lightroom/Language/SpokenNumbers.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Fuzzing::require;

class FixedFrontmost final : public FrontmostApplication
{
public:
    explicit FixedFrontmost(const QString &name)
        : m_application{name, QString(), 1}
    {
    }

    std::optional<RunningApplication> frontmostApplication() const override { return m_application; }

private:
    RunningApplication m_application;
};

const FixedFrontmost elsewhere(u"Terminal"_s);
const FixedFrontmost inLightroom(u"Lightroom"_s);

void requireSoundPayload(const PromptRoute &route)
{
    if (const auto *import = std::get_if<Route::FolderImport>(&route)) {
        require(!import->path.isEmpty());
    }
    const auto *command = std::get_if<Route::Command>(&route);
    if (!command) {
        return;
    }
    if (const auto *move = std::get_if<LightroomCommand::LightroomAdjustSlider>(&command->command)) {
        require(std::isfinite(move->slider.value) && !move->slider.sliderName.isEmpty());
    }
    if (const auto *rating = std::get_if<LightroomCommand::LightroomSetRating>(&command->command)) {
        require(rating->value >= 0 && rating->value <= 5);
    }
    if (const auto *preset = std::get_if<LightroomCommand::LightroomApplyPreset>(&command->command)) {
        require(!preset->name.isEmpty());
    }
}

void routeAndExplain(const QString &text)
{
    const PromptRoute away = routePrompt(text, elsewhere);
    const PromptRoute front = routePrompt(text, inLightroom);
    // The frontmost application can make a command of a chat, and changes nothing else.
    require(away == front || std::holds_alternative<Route::Chat>(away));
    require(routePrompt(u" \n"_s + text + u"\u00A0"_s, inLightroom) == front);
    requireSoundPayload(front);

    const QByteArray line = explainedRoute(text, front);
    require(!line.contains('\n') && !line.contains('\r'));
    const QJsonObject explanation = QJsonDocument::fromJson(line).object();
    require(explanation.value("text"_L1).toString() == text);
    require(explanation.value("route"_L1).isString());

    const QString read = withSpokenNumbersRead(text);
    require(withSpokenNumbersRead(read) == read);
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::routeAndExplain(text);
    }
    return 0;
}
