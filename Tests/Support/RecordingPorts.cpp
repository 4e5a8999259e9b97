#include "Support/RecordingPorts.h"

#include <QCoroTimer>

#include <algorithm>
#include <chrono>

namespace KelvaLR::Testing {

namespace {

using namespace Qt::StringLiterals;

/// Comes back on a later turn of the event loop.
QCoro::Task<> laterTurn()
{
    co_await QCoro::sleepFor(std::chrono::milliseconds(0));
}

} // namespace

QCoro::Task<AccessibilityTree> FakeAccessibility::tree(qint64 processId, qsizetype limit)
{
    co_await laterTurn();
    lastProcessId = processId;
    AccessibilityTree roles;
    for (const AccessibilityElement &element : elements.first(std::min(limit, elements.size()))) {
        roles.append({.id = element.id,
                      .role = element.role,
                      .subrole = element.subrole,
                      .parent = element.parent,
                      .children = element.children});
    }
    co_return roles;
}

QCoro::Task<AccessibilityTree> FakeAccessibility::withAttributes(AccessibilityTree tree, ElementPlaces places,
                                                                 ElementAttributes attributes)
{
    co_await laterTurn();
    for (const qsizetype place : places) {
        AccessibilityElement &target = tree[place];
        const AccessibilityElement &source =
            *std::ranges::find(elements, target.id, &AccessibilityElement::id);
        const auto copy = [&](ElementAttribute attribute, auto AccessibilityElement::*member) {
            if (attributes.testFlag(attribute)) {
                target.*member = source.*member;
            }
        };
        copy(ElementAttribute::title, &AccessibilityElement::title);
        copy(ElementAttribute::description, &AccessibilityElement::description);
        copy(ElementAttribute::value, &AccessibilityElement::value);
        copy(ElementAttribute::help, &AccessibilityElement::help);
        copy(ElementAttribute::placeholder, &AccessibilityElement::placeholder);
        copy(ElementAttribute::identifier, &AccessibilityElement::identifier);
        copy(ElementAttribute::actions, &AccessibilityElement::actions);
        copy(ElementAttribute::center, &AccessibilityElement::center);
    }
    co_return tree;
}

QCoro::Task<bool> FakeAccessibility::press(AccessibilityElementID element)
{
    co_await laterTurn();
    m_journal.append(u"press %1"_s.arg(element));
    co_return pressSucceeds;
}

QCoro::Task<bool> FakeAccessibility::setValue(AccessibilityElementID element, double value)
{
    co_await laterTurn();
    m_journal.append(u"set %1 to %2"_s.arg(element).arg(value));
    co_return setValueSucceeds;
}

QCoro::Task<> FakeAccessibility::focus(AccessibilityElementID element)
{
    co_await laterTurn();
    m_journal.append(u"focus %1"_s.arg(element));
}

QCoro::Task<bool> RecordingInputEvents::postKey(quint16 virtualKeyCode, KeyModifiers modifiers)
{
    const bool isPosted = co_await post(u"key %1 0x%2"_s.arg(virtualKeyCode).arg(modifiers.toInt(), 0, 16));
    whenPosted(virtualKeyCode);
    co_return isPosted;
}

QCoro::Task<bool> RecordingInputEvents::postText(QString text)
{
    return post(u"text "_s + text);
}

QCoro::Task<bool> RecordingInputEvents::postClick(QPointF point)
{
    return post(u"click %1,%2"_s.arg(point.x()).arg(point.y()));
}

QCoro::Task<bool> RecordingInputEvents::post(QString event)
{
    co_await laterTurn();
    if (isReceived) {
        m_journal.append(event);
    }
    co_return isReceived;
}

} // namespace KelvaLR::Testing
