#include "Platform/Linux/AtSpiAccessibility.h"

#include "Platform/Linux/AccessibilityTreeWalk.h"
#include "Platform/Linux/AtSpiAttributes.h"
#include "Platform/Linux/AtSpiElement.h"

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// For one walk and for one reading of attributes; a large window takes one second.
constexpr std::chrono::seconds walkTime(10);

/// A question about the element at a place of the tree.
struct PlacedQuestion
{
    qsizetype place;
    AtSpi::AttributeQuestion about;
};

QList<PlacedQuestion> questionsAbout(const AccessibilityTree &tree, const ElementPlaces &places,
                                     ElementAttributes attributes)
{
    QList<PlacedQuestion> questions;
    for (const qsizetype place : places) {
        for (const AtSpi::AttributeQuestion &question : AtSpi::questionsFor(tree.at(place), attributes)) {
            questions.append({place, question});
        }
    }
    return questions;
}

QCoro::Task<bool> hasInterface(AccessibilityBus *bus, AccessibilityElementID element,
                               QLatin1StringView interface)
{
    co_return AtSpi::isInterfaceIn(co_await bus->answer(AtSpi::askInterfaces(element)), interface);
}

} // namespace

AtSpiAccessibility::AtSpiAccessibility(AccessibilityBus &bus, Trust trust)
    : m_bus(bus)
    , m_trust(std::move(trust))
{
}

bool AtSpiAccessibility::isTrusted(TrustPrompt prompt)
{
    return m_trust(prompt);
}

QCoro::Task<AccessibilityTree> AtSpiAccessibility::tree(qint64 processId, qsizetype limit)
{
    AccessibilityBus *const bus = &m_bus;
    const QDeadlineTimer deadline(walkTime);
    const auto root = co_await applicationRoot(bus, processId);
    if (!root) {
        co_return AccessibilityTree();
    }
    co_return co_await walkTree(bus, *root, limit, deadline);
}

QCoro::Task<AccessibilityTree>
AtSpiAccessibility::withAttributes(AccessibilityTree tree, ElementPlaces places, ElementAttributes attributes)
{
    AccessibilityBus *const bus = &m_bus;
    const QDeadlineTimer deadline(walkTime);
    QList<PlacedQuestion> questions = questionsAbout(tree, places, attributes);
    while (!questions.isEmpty()) {
        QList<QDBusMessage> messages;
        for (const PlacedQuestion &question : std::as_const(questions)) {
            messages.append(question.about.question);
        }
        const QList<QDBusMessage> answers = co_await bus->answers(std::move(messages), deadline);
        QList<PlacedQuestion> further;
        for (qsizetype i = 0; i < answers.size(); ++i) {
            const qsizetype place = questions.at(i).place;
            if (auto next = questions.at(i).about.take(tree[place], answers.at(i))) {
                further.append({place, *std::move(next)});
            }
        }
        questions = std::move(further);
    }
    co_return tree;
}

QCoro::Task<bool> AtSpiAccessibility::press(AccessibilityElementID element)
{
    AccessibilityBus *const bus = &m_bus;
    if (!co_await hasInterface(bus, element, "Action"_L1)) {
        co_return false;
    }
    const auto action =
        AtSpi::pressActionIn(co_await bus->answer(AtSpi::call(element, "Action"_L1, "GetActions"_L1)));
    if (!action) {
        co_return false;
    }
    const QDBusMessage done =
        co_await bus->answer(AtSpi::call(element, "Action"_L1, "DoAction"_L1, {*action}));
    // A program that shows a dialog of its own in answer to a press answers us only after that.
    const bool isBusyWithIt =
        done.type() == QDBusMessage::ErrorMessage && QDBusError(done).type() == QDBusError::NoReply;
    co_return isBusyWithIt || (AtSpi::isAnswered(done) && done.arguments().constFirst().toBool());
}

QCoro::Task<bool> AtSpiAccessibility::setValue(AccessibilityElementID element, double value)
{
    AccessibilityBus *const bus = &m_bus;
    if (!co_await hasInterface(bus, element, "Value"_L1)) {
        co_return false;
    }
    const QDBusMessage answer = co_await bus->answer(
        AtSpi::writeProperty(element, "Value"_L1, "CurrentValue"_L1, QVariant::fromValue(value)));
    co_return answer.type() == QDBusMessage::ReplyMessage;
}

QCoro::Task<> AtSpiAccessibility::focus(AccessibilityElementID element)
{
    AccessibilityBus *const bus = &m_bus;
    if (co_await hasInterface(bus, element, "Component"_L1)) {
        co_await bus->answer(AtSpi::call(element, "Component"_L1, "GrabFocus"_L1));
    }
}

} // namespace KelvaLR
