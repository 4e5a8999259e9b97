#include "Services/Lightroom/LightroomService.h"

#include "Platform/Accessibility.h"
#include "Platform/RunningLightroom.h"
#include "Services/Automation/KeyboardKey.h"
#include "Services/Automation/UIAutomationService.h"
#include "Services/Lightroom/AccessibilitySliders.h"
#include "Services/Lightroom/LightroomOperation.h"
#include "Services/Lightroom/LightroomSentences.h"
#include "Services/Lightroom/SliderAdjustments.h"

#include <QCoroTimer>

#include <QDeadlineTimer>
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

QString valueText(const AccessibilityElement::Value &value)
{
    const double *number = std::get_if<double>(&value);
    return number ? QString::number(*number) : u"no value"_s;
}

/// Whether the frontmost window shows something else than before, as soon as it does.
QCoro::Task<bool> willChange(UIAutomationService automation, QList<UIElementDescription> before,
                             BridgeTiming timing)
{
    const QDeadlineTimer deadline(timing.effect);
    while (co_await automation.getVisibleElements() == before) {
        if (deadline.hasExpired()) {
            co_return false;
        }
        co_await QCoro::sleepFor(timing.poll);
    }
    co_return true;
}

} // namespace

QCoro::Task<QString> LightroomService::proceedWithoutPlugin(QString explanation)
{
    co_return explanation;
}

/// "Pressed, and nothing happened" is found out from the log: the answer says only what was posted.
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
    const QList<UIElementDescription> before = co_await m_automation.getVisibleElements();
    if (!self) {
        co_return QString();
    }
    const UIAutomationResult pressed = co_await m_automation.pressKey(*key);
    if (self && pressed.isSuccess()) {
        const DebugLog log = m_log;
        const bool isSeen = co_await willChange(m_automation, before, m_timing);
        log.write(u"hands: pressed %1, and the window %2"_s.arg(
            key->displayName, isSeen ? u"changed"_s : u"shows no change"_s));
    }
    co_return KeyFallbackSentence::outcome(fallback.kind, pressed);
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
    const std::optional<RunningApplication> lightroom = runningLightroom(m_applications);
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
    const auto slider = co_await sliderNamed(&m_accessibility, lightroom->processId, change.sliderName);
    if (!slider || !self) {
        co_return false;
    }
    const double value = newValue(*slider, change);
    const bool isWritten = co_await m_accessibility.setValue(slider->id, value);
    const auto now = self ? co_await sliderValue(&m_accessibility, *slider) : AccessibilityElement::Value();
    if (self) {
        m_log.write(u"hands: wrote %1 to the slider %2, which had %3 and has %4"_s.arg(
            QString::number(value), change.sliderName, valueText(slider->value), valueText(now)));
    }
    co_return isWritten;
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
