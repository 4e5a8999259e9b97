#include "Services/Automation/UIAutomationService.h"

#include "Platform/Accessibility.h"
#include "Platform/FrontmostApplication.h"
#include "Platform/InputEvents.h"
#include "Services/Automation/ElementReading.h"
#include "Support/TextTrimming.h"

#include <expected>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

using Ports = UIAutomationService::Ports;

/// The frontmost application, or the result that says why it cannot be looked at.
std::expected<RunningApplication, UIAutomationResult> searchableApplication(const Ports &ports)
{
    if (!ports.accessibility->isTrusted(TrustPrompt::shown)) {
        return std::unexpected(UIAutomationResult::accessibilityDenied());
    }
    if (const auto application = ports.frontmost->frontmostApplication()) {
        return *application;
    }
    return std::unexpected(UIAutomationResult::failure(u"No frontmost app is available."_s));
}

QCoro::Task<UIAutomationResult> click(Ports ports, QString name)
{
    if (name.isEmpty()) {
        co_return UIAutomationResult::failure(u"No click target provided."_s);
    }
    const auto application = searchableApplication(ports);
    if (!application) {
        co_return application.error();
    }
    const AccessibilityTree tree =
        co_await treeToSearch(ports.accessibility, application->processId, name, ElementPurpose::click);
    const AccessibilityElement *element = findElement(tree, name, ElementPurpose::click);
    if (!element) {
        co_return UIAutomationResult::failure(u"Could not find "_s + name + u" on screen."_s);
    }
    const bool isPressed = co_await ports.accessibility->press(element->id);
    if (!isPressed && !(element->center && co_await ports.inputEvents->postClick(*element->center))) {
        co_return UIAutomationResult::failure(u"Could not click "_s + name + u"."_s);
    }
    co_return UIAutomationResult::success(u"Clicked "_s + name + u"."_s);
}

QCoro::Task<UIAutomationResult> focus(Ports ports, QString name)
{
    if (name.isEmpty()) {
        co_return UIAutomationResult::failure(u"No field target provided."_s);
    }
    const auto application = searchableApplication(ports);
    if (!application) {
        co_return application.error();
    }
    const AccessibilityTree tree =
        co_await treeToSearch(ports.accessibility, application->processId, name, ElementPurpose::field);
    const AccessibilityElement *element = findElement(tree, name, ElementPurpose::field);
    if (!element) {
        co_return UIAutomationResult::failure(u"Could not find "_s + name + u" field on screen."_s);
    }
    co_await ports.accessibility->focus(element->id);
    if (element->center && !co_await ports.inputEvents->postClick(*element->center)) {
        co_return UIAutomationResult::failure(u"Could not focus "_s + name + u"."_s);
    }
    co_return UIAutomationResult::success(u"Focused "_s + name + u"."_s);
}

QCoro::Task<UIAutomationResult> typeInto(Ports ports, QString text, QString field)
{
    const UIAutomationResult focused = co_await focus(ports, field);
    if (!focused.isSuccess()) {
        co_return focused;
    }
    if (!co_await ports.inputEvents->postText(text)) {
        co_return UIAutomationResult::failure(u"Could not type all of the text into "_s + field + u"."_s);
    }
    co_return UIAutomationResult::success(u"Typed text into "_s + field + u"."_s);
}

QCoro::Task<UIAutomationResult> type(Ports ports, QString text)
{
    if (text.isEmpty()) {
        co_return UIAutomationResult::failure(u"No text provided."_s);
    }
    if (!ports.accessibility->isTrusted(TrustPrompt::shown)) {
        co_return UIAutomationResult::accessibilityDenied();
    }
    if (!co_await ports.inputEvents->postText(text)) {
        co_return UIAutomationResult::failure(u"Could not type all of the text."_s);
    }
    co_return UIAutomationResult::success(u"Typed text."_s);
}

QCoro::Task<UIAutomationResult> press(Ports ports, KeyboardKey key)
{
    if (!ports.accessibility->isTrusted(TrustPrompt::shown)) {
        co_return UIAutomationResult::accessibilityDenied();
    }
    if (!key.keyCode || !co_await ports.inputEvents->postKey(*key.keyCode, key.modifiers)) {
        co_return UIAutomationResult::failure(u"Could not press "_s + key.displayName + u"."_s);
    }
    co_return UIAutomationResult::success(u"Pressed "_s + key.displayName + u"."_s);
}

QCoro::Task<QList<UIElementDescription>> list(Ports ports)
{
    const auto application = searchableApplication(ports);
    if (!application) {
        co_return QList<UIElementDescription>();
    }
    co_return visibleElements(co_await treeToList(ports.accessibility, application->processId));
}

} // namespace

UIAutomationService::UIAutomationService(Accessibility &accessibility, InputEvents &inputEvents,
                                         const FrontmostApplication &frontmost)
    : m_ports{&accessibility, &inputEvents, &frontmost}
{
}

QCoro::Task<UIAutomationResult> UIAutomationService::clickVisibleElement(const QString &name) const
{
    return click(m_ports, trimmedWhitespace(name));
}

QCoro::Task<UIAutomationResult> UIAutomationService::focusField(const QString &name) const
{
    return focus(m_ports, trimmedWhitespace(name));
}

QCoro::Task<UIAutomationResult> UIAutomationService::typeTextIntoField(const QString &text,
                                                                       const QString &field) const
{
    return typeInto(m_ports, text, trimmedWhitespace(field));
}

QCoro::Task<UIAutomationResult> UIAutomationService::typeText(const QString &text) const
{
    return type(m_ports, trimmedWhitespace(text));
}

QCoro::Task<UIAutomationResult> UIAutomationService::pressKey(const KeyboardKey &key) const
{
    return press(m_ports, key);
}

QCoro::Task<QList<UIElementDescription>> UIAutomationService::getVisibleElements() const
{
    return list(m_ports);
}

} // namespace KelvaLR
