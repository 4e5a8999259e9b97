#pragma once

#include <QString>

namespace KelvaLR {

/// How an operation on the frontmost application's interface ended.
struct UIAutomationResult
{
    enum class Outcome {
        success,            ///< it was performed; the message says what was done
        failure,            ///< it was not performed; the message says why
        accessibilityDenied ///< this program may not use the accessibility interface; there is no message
    };

    Outcome outcome = Outcome::failure;
    QString message;

    [[nodiscard]] static UIAutomationResult success(const QString &message)
    {
        return {Outcome::success, message};
    }

    [[nodiscard]] static UIAutomationResult failure(const QString &message)
    {
        return {Outcome::failure, message};
    }

    [[nodiscard]] static UIAutomationResult accessibilityDenied()
    {
        return {Outcome::accessibilityDenied, QString()};
    }

    [[nodiscard]] bool isSuccess() const { return outcome == Outcome::success; }

    /// The sentence for the user: the message, or the caller's own words about the missing permission.
    [[nodiscard]] QString sentence(const QString &whenDenied) const
    {
        return outcome == Outcome::accessibilityDenied ? whenDenied : message;
    }

    bool operator==(const UIAutomationResult &) const = default;
};

} // namespace KelvaLR
