#include "Support/RecordingPorts.h"

#include <QCoroTimer>

#include <QTimer>

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

FixedFrontmostApplication::FixedFrontmostApplication(RunningApplication frontmost)
    : application(std::move(frontmost))
{
}

RunningApplication FixedFrontmostApplication::lightroomClassic()
{
    return {u"Adobe Lightroom Classic"_s, u"com.adobe.LightroomClassicCC7"_s, 4711};
}

std::optional<RunningApplication> FixedFrontmostApplication::frontmostApplication() const
{
    ++questions;
    return application;
}

FakeAccessibility::FakeAccessibility(QStringList &journal)
    : m_journal(journal)
{
}

bool FakeAccessibility::isTrusted(TrustPrompt prompt)
{
    lastPrompt = prompt;
    return trusted;
}

QCoro::Task<AccessibilityTree> FakeAccessibility::tree(qint64 processId)
{
    co_await laterTurn();
    lastProcessId = processId;
    co_return AccessibilityTree(elements); // QCoro 0.8 moves out of a member that is co_returned
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

RecordingInputEvents::RecordingInputEvents(QStringList &journal)
    : m_journal(journal)
{
}

QCoro::Task<> RecordingInputEvents::postKey(quint16 virtualKeyCode, KeyModifiers modifiers)
{
    co_await laterTurn();
    m_journal.append(u"key %1 0x%2"_s.arg(virtualKeyCode).arg(modifiers.toInt(), 0, 16));
}

QCoro::Task<> RecordingInputEvents::postText(QString text)
{
    co_await laterTurn();
    m_journal.append(u"text "_s + text);
}

QCoro::Task<> RecordingInputEvents::postClick(QPointF point)
{
    co_await laterTurn();
    m_journal.append(u"click %1,%2"_s.arg(point.x()).arg(point.y()));
}

} // namespace KelvaLR::Testing
