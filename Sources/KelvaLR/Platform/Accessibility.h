#pragma once

#include <QCoroTask>

#include <QList>
#include <QPointF>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace KelvaLR {

/// Names one element of another program for as long as its tree snapshot is the latest of its adapter.
using AccessibilityElementID = quint64;

/// One element of a tree snapshot. Role, subrole and action names are the accessibility interface's own
/// ("AXButton", "AXPress"); an absent attribute is an empty optional.
struct AccessibilityElement
{
    using Value = std::variant<std::monostate, QString, double>;

    AccessibilityElementID id = 0;
    QString role;
    QString subrole;
    std::optional<QString> title;
    std::optional<QString> description;
    Value value; ///< a text, a number, or nothing readable
    std::optional<QString> help;
    std::optional<QString> placeholder;
    std::optional<QString> identifier;
    QStringList actions;
    std::optional<QPointF> center; ///< in global screen coordinates, origin at the top left
    std::optional<qsizetype> parent;
    QList<qsizetype> children; ///< indices into the tree, in the order in which a search visits them

    bool operator==(const AccessibilityElement &) const = default;
};

/// A snapshot of one application's elements; index 0 is the application itself. Empty when it could not be
/// read. An element occurs once, so a walk along `children` ends.
using AccessibilityTree = QList<AccessibilityElement>;

/// Whether asking for trust may lead the user to the setting that gives it.
enum class TrustPrompt { silent, shown };

/// Port: reading and driving the interfaces of other programs. Main thread; the tasks do not block it and end
/// within a bounded time, also when the other program hangs or vanishes.
class Accessibility
{
public:
    Accessibility() = default;
    virtual ~Accessibility() = default;
    Q_DISABLE_COPY_MOVE(Accessibility)

    /// Whether this program may use the accessibility interface.
    [[nodiscard]] virtual bool isTrusted(TrustPrompt prompt) = 0;

    /// The elements of a running application as they are now.
    virtual QCoro::Task<AccessibilityTree> tree(qint64 processId) = 0;

    /// Performs the element's press action; false when that failed.
    virtual QCoro::Task<bool> press(AccessibilityElementID element) = 0;

    /// Writes a number to the element's value; false when that failed.
    virtual QCoro::Task<bool> setValue(AccessibilityElementID element, double value) = 0;

    /// Asks for keyboard focus; whether it was given is not reported.
    virtual QCoro::Task<> focus(AccessibilityElementID element) = 0;
};

} // namespace KelvaLR
