#pragma once

#include "Platform/Accessibility.h"
#include "Platform/FrontmostApplication.h"
#include "Platform/InputEvents.h"

#include <QStringList>

#include <functional>

// Test doubles of the ports that reach other programs. Their tasks answer on a later turn of the event loop,
// as the real ones do.

namespace KelvaLR::Testing {

/// Answers the frontmost question with a fixed application and counts how often it is asked.
class FixedFrontmostApplication final : public FrontmostApplication
{
public:
    explicit FixedFrontmostApplication(std::optional<RunningApplication> frontmost = {})
        : application(std::move(frontmost))
    {
    }

    /// Lightroom Classic is in front.
    [[nodiscard]] static RunningApplication lightroomClassic()
    {
        return {QStringLiteral("Adobe Lightroom Classic"), QStringLiteral("com.adobe.LightroomClassicCC7"),
                4711};
    }

    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override
    {
        ++questions;
        return application;
    }

    std::optional<RunningApplication> application;
    mutable int questions = 0;
};

/// Serves a tree and writes down what is done to it, in the order in which it is done.
class FakeAccessibility final : public Accessibility
{
public:
    explicit FakeAccessibility(QStringList &journal)
        : m_journal(journal)
    {
    }

    bool isTrusted(TrustPrompt prompt) override
    {
        lastPrompt = prompt;
        return trusted;
    }

    QCoro::Task<AccessibilityTree> tree(qint64 processId, qsizetype limit) override;
    QCoro::Task<AccessibilityTree> withAttributes(AccessibilityTree tree, ElementPlaces places,
                                                  ElementAttributes attributes) override;
    QCoro::Task<bool> press(AccessibilityElementID element) override;
    QCoro::Task<bool> setValue(AccessibilityElementID element, double value) override;
    QCoro::Task<> focus(AccessibilityElementID element) override;

    bool trusted = true;
    bool pressSucceeds = true;
    bool setValueSucceeds = true;
    AccessibilityTree elements;
    std::optional<TrustPrompt> lastPrompt;
    std::optional<qint64> lastProcessId;

private:
    QStringList &m_journal;
};

/// Writes down the events that are posted: "key 6 0x120000", "text hello", "click 10,20".
class RecordingInputEvents final : public InputEvents
{
public:
    explicit RecordingInputEvents(QStringList &journal)
        : m_journal(journal)
    {
    }

    QCoro::Task<bool> postKey(quint16 virtualKeyCode, KeyModifiers modifiers) override;
    QCoro::Task<bool> postText(QString text) override;
    QCoro::Task<bool> postClick(QPointF point) override;

    std::function<void(quint16)> whenPosted = [](quint16) {}; ///< after each key
    bool isReceived = true;                                   ///< else nothing is posted

private:
    QCoro::Task<bool> post(QString event);

    QStringList &m_journal;
};

} // namespace KelvaLR::Testing
