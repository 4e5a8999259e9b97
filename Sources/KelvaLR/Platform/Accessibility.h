#pragma once

#include <QCoroTask>

#include <QList>
#include <QPointF>
#include <QString>
#include <QStringList>

#include <limits>
#include <optional>
#include <variant>

namespace KelvaLR {

/// The adapter's own name of one element of another program, for as long as that element exists.
using AccessibilityElementID = QString;

/// What can be asked of an element beyond its role and its place. Each costs a question to its program.
enum class ElementAttribute {
    title = 1 << 0,
    description = 1 << 1,
    value = 1 << 2,
    help = 1 << 3,
    placeholder = 1 << 4,
    identifier = 1 << 5,
    actions = 1 << 6,
    center = 1 << 7,
};
Q_DECLARE_FLAGS(ElementAttributes, ElementAttribute)
Q_DECLARE_OPERATORS_FOR_FLAGS(ElementAttributes)

/// Indices into a tree.
using ElementPlaces = QList<qsizetype>;

/// One element of a tree snapshot. Role, subrole and action names are the accessibility interface's own
/// ("AXButton", "AXPress"); an absent attribute, or one not asked for yet, is an empty optional.
struct AccessibilityElement
{
    using Value = std::variant<std::monostate, QString, double>;

    AccessibilityElementID id;
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
    ElementPlaces children; ///< in the order in which a search visits them

    bool operator==(const AccessibilityElement &) const = default;
};

/// A snapshot of one application's elements, level by level; index 0 is the application itself. Empty when it
/// could not be read. An element occurs once, so a walk along `children` ends.
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

    /// As a limit of elements: none.
    static constexpr qsizetype unlimited = std::numeric_limits<qsizetype>::max();

    /// Whether this program may use the accessibility interface.
    [[nodiscard]] virtual bool isTrusted(TrustPrompt prompt) = 0;

    /// The elements of a running application that are on the screen or in a menu now, with their roles and
    /// subroles and nothing else. Of a program that takes too long it is the part nearest to the root.
    /// @param limit no more elements than this
    virtual QCoro::Task<AccessibilityTree> tree(qint64 processId, qsizetype limit) = 0;

    /// The tree with these attributes read for the elements at these places.
    virtual QCoro::Task<AccessibilityTree> withAttributes(AccessibilityTree tree, ElementPlaces places,
                                                          ElementAttributes attributes) = 0;

    /// Performs the element's press action; false when that failed.
    virtual QCoro::Task<bool> press(AccessibilityElementID element) = 0;

    /// Writes a number to the element's value; false when that failed.
    virtual QCoro::Task<bool> setValue(AccessibilityElementID element, double value) = 0;

    /// Asks for keyboard focus; whether it was given is not reported.
    virtual QCoro::Task<> focus(AccessibilityElementID element) = 0;
};

} // namespace KelvaLR
