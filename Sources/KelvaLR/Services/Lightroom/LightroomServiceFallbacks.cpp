#include "Services/Lightroom/LightroomService.h"

#include "Platform/Accessibility.h"
#include "Platform/RunningApplications.h"
#include "Services/Automation/KeyboardKey.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Lightroom/AccessibilitySliders.h"
#include "Services/Lightroom/LightroomOperation.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Services/Lightroom/SliderAdjustments.h"

#include <QCoroTimer>

#include <QPointer>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

// Lightroom's shortcuts for its views.
constexpr QLatin1StringView developModuleKey("d");
constexpr QLatin1StringView loupeKey("e");

/// A relative change of a slider whose value cannot be read sets it to the change itself.
double newValue(const AccessibilityElement &slider, const ParsedLightroomSliderCommand &change)
{
    const double *current = std::get_if<double>(&slider.value);
    return change.relative && current ? *current + change.value : change.value;
}

} // namespace

QCoro::Task<QString> LightroomService::proceedWithoutPlugin(QString explanation)
{
    co_return explanation;
}

QCoro::Task<QString> LightroomService::proceedWithoutPlugin(KeyFallback fallback)
{
    const QPointer<LightroomService> self(this);
    const std::optional<KeyboardKey> key = KeyboardKey::parse(fallback.key);
    if (!key) {
        co_return KeyFallbackSentence::unreadableKey(fallback);
    }
    co_await activateLightroom();
    if (self) {
        co_await pressAndWait(loupeKey, m_timing.loupe);
    }
    if (!self) {
        co_return QString();
    }
    co_return KeyFallbackSentence::outcome(fallback.kind, co_await m_automation.pressKey(*key));
}

QCoro::Task<QString> LightroomService::proceedWithoutPlugin(SliderFallback fallback)
{
    const QPointer<LightroomService> self(this);
    const QList<std::optional<ParsedLightroomSliderCommand>> changes =
        parsedSliderAdjustments(fallback.adjustments);
    if (changes.isEmpty()) {
        co_return NotConnected::noAdjustments();
    }
    int successes = 0;
    for (const std::optional<ParsedLightroomSliderCommand> &change : changes) {
        if (change && co_await adjustSliderAccessibility(*change)) {
            ++successes;
        }
        if (!self) {
            co_return QString();
        }
    }
    co_return "UI Accessibility Fallback: Adjusted "_L1 + QString::number(successes) + " of "_L1 +
        QString::number(changes.size()) + " sliders."_L1;
}

QCoro::Task<bool> LightroomService::adjustSliderAccessibility(ParsedLightroomSliderCommand change)
{
    const QPointer<LightroomService> self(this);
    const std::optional<RunningApplication> lightroom = runningLightroom();
    if (!lightroom) {
        co_return false;
    }
    co_await activateLightroom();
    if (self) {
        co_await pressAndWait(developModuleKey, m_timing.developModule);
    }
    if (!self || !m_accessibility.isTrusted(TrustPrompt::silent)) {
        co_return false;
    }
    const AccessibilityTree tree = co_await m_accessibility.tree(lightroom->processId);
    const AccessibilityElement *slider = findSliderDirectly(tree, change.sliderName);
    if (!slider) {
        slider = findSliderByTextLabel(tree, change.sliderName);
    }
    if (!slider || !self) {
        co_return false;
    }
    co_return co_await m_accessibility.setValue(slider->id, newValue(*slider, change));
}

/// Presses a key, whether or not it can be pressed, and gives Lightroom the time to follow.
QCoro::Task<> LightroomService::pressAndWait(QLatin1StringView keyDescription,
                                             BridgeTiming::milliseconds pause)
{
    if (const std::optional<KeyboardKey> key = KeyboardKey::parse(keyDescription)) {
        co_await m_automation.pressKey(*key);
        co_await QCoro::sleepFor(pause);
    }
}

} // namespace KelvaLR
