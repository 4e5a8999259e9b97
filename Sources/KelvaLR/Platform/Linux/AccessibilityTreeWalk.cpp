#include "Platform/Linux/AccessibilityTreeWalk.h"

#include "Platform/Linux/AccessibilityBus.h"
#include "Platform/Linux/AtSpiElement.h"
#include "Platform/Linux/AtSpiRoles.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

/// A table answers with all of its cells at once, however many there are; nobody looks further than this.
constexpr int longestTable = 500;

/// Of a level with very many elements no more are asked about at once, since the limit may be among them.
constexpr qsizetype portion = 1000;

/// An element that was found and is not in the tree yet.
struct Found
{
    AccessibilityElementID id;
    std::optional<qsizetype> parent;
    AtSpiKind kind;
};

/// The state of one walk.
class Walk
{
public:
    Walk(AccessibilityBus *bus, qsizetype limit, QDeadlineTimer deadline)
        : m_bus(bus)
        , m_limit(limit)
        , m_deadline(deadline)
    {
    }

    QCoro::Task<AccessibilityTree> run(AccessibilityElementID root)
    {
        m_seen.insert(root);
        QList<Found> level{{.id = root}};
        while (!level.isEmpty()) {
            const qsizetype first = m_tree.size();
            for (qsizetype i = 0; i < level.size() && !m_isOver; i += portion) {
                co_await enter(co_await withKinds(level.mid(i, portion)));
            }
            level = m_isOver ? QList<Found>() : co_await childrenFrom(first);
        }
        co_return std::move(m_tree);
    }

private:
    QCoro::Task<QList<QDBusMessage>> ask(QList<QDBusMessage> questions)
    {
        const qsizetype count = questions.size();
        QList<QDBusMessage> answers = co_await m_bus->answers(std::move(questions), m_deadline);
        m_isOver = m_isOver || answers.size() < count;
        co_return answers;
    }

    QCoro::Task<QList<Found>> withKinds(QList<Found> level)
    {
        QList<QDBusMessage> questions;
        for (const Found &found : std::as_const(level)) {
            questions.append(AtSpi::call(found.id, "Accessible"_L1, "GetRole"_L1));
            questions.append(AtSpi::call(found.id, "Accessible"_L1, "GetState"_L1));
        }
        const QList<QDBusMessage> answers = co_await ask(std::move(questions));
        level.resize(answers.size() / 2);
        for (qsizetype i = 0; i < level.size(); ++i) {
            const QDBusMessage &role = answers.at(2 * i);
            level[i].kind = {.role = AtSpi::isAnswered(role) ? role.arguments().constFirst().toUInt() : 0,
                             .states = AtSpi::statesIn(answers.at(2 * i + 1))};
        }
        co_return level;
    }

    /// What can be seen, and the items of menus, which can be chosen unseen.
    [[nodiscard]] bool isInSight(const Found &found) const
    {
        if (!found.parent || found.kind.isShowing()) {
            return true;
        }
        const AtSpiKind &around = m_kinds.at(*found.parent);
        return found.kind.isOfMenu() &&
               (around.isOfMenu() || m_tree.at(*found.parent).role == "AXMenuBar"_L1);
    }

    /// Takes the elements of a level that are in sight into the tree.
    QCoro::Task<> enter(QList<Found> level)
    {
        QList<qsizetype> buttonsOfTitleBars;
        for (const Found &found : std::as_const(level)) {
            if (m_tree.size() >= m_limit) {
                m_isOver = true;
                break;
            }
            if (!isInSight(found)) {
                continue;
            }
            const qsizetype place = m_tree.size();
            const QString role = accessibilityRole(found.kind);
            m_tree.append({.id = found.id, .role = role, .parent = found.parent});
            m_kinds.append(found.kind);
            if (found.parent) {
                m_tree[*found.parent].children.append(place);
                noteChild(m_tree[*found.parent], role);
                if (role == "AXButton"_L1 && m_kinds.at(*found.parent).isTitleBar()) {
                    buttonsOfTitleBars.append(place);
                }
            }
        }
        co_await markCloseButtons(std::move(buttonsOfTitleBars));
    }

    /// A combo box with a field to type into is another kind than one to choose from.
    static void noteChild(AccessibilityElement &parent, const QString &childRole)
    {
        if (parent.role == "AXPopUpButton"_L1 && childRole == "AXTextField"_L1) {
            parent.role = u"AXComboBox"_s;
        }
    }

    QCoro::Task<> markCloseButtons(QList<qsizetype> places)
    {
        QList<QDBusMessage> questions;
        for (const qsizetype place : std::as_const(places)) {
            questions.append(AtSpi::readProperty(m_tree.at(place).id, "Accessible"_L1, "Name"_L1));
        }
        const QList<QDBusMessage> answers = co_await ask(std::move(questions));
        for (qsizetype i = 0; i < answers.size(); ++i) {
            if (AtSpi::propertyIn(answers.at(i)).toString() == "Close"_L1) {
                m_tree[places.at(i)].subrole = u"AXCloseButton"_s;
            }
        }
    }

    /// How many rows the tables from this place on have, by their places.
    QCoro::Task<QHash<qsizetype, int>> tableLengths(qsizetype first)
    {
        QList<qsizetype> tables;
        QList<QDBusMessage> questions;
        for (qsizetype place = first; place < m_tree.size(); ++place) {
            if (m_kinds.at(place).isTable()) {
                tables.append(place);
                questions.append(AtSpi::readProperty(m_tree.at(place).id, "Accessible"_L1, "ChildCount"_L1));
            }
        }
        const QList<QDBusMessage> answers = co_await ask(std::move(questions));
        QHash<qsizetype, int> lengths;
        for (qsizetype i = 0; i < answers.size(); ++i) {
            lengths.insert(tables.at(i), AtSpi::propertyIn(answers.at(i)).toInt());
        }
        co_return lengths;
    }

    /// The children of the elements from this place on.
    QCoro::Task<QList<Found>> childrenFrom(qsizetype first)
    {
        const QHash<qsizetype, int> lengths = co_await tableLengths(first);
        QList<QDBusMessage> questions;
        QList<qsizetype> parents;
        for (qsizetype place = first; place < m_tree.size(); ++place) {
            const AccessibilityElementID &id = m_tree.at(place).id;
            const bool isLong = lengths.value(place) > longestTable;
            for (int row = 0; isLong && row < longestTable; ++row) {
                questions.append(AtSpi::call(id, "Accessible"_L1, "GetChildAtIndex"_L1, {row}));
                parents.append(place);
            }
            if (!isLong) {
                questions.append(AtSpi::call(id, "Accessible"_L1, "GetChildren"_L1));
                parents.append(place);
            }
        }
        const QList<QDBusMessage> answers = co_await ask(std::move(questions));
        co_return newElements(parents, answers);
    }

    /// The elements in the answers that were not met before.
    QList<Found> newElements(const QList<qsizetype> &parents, const QList<QDBusMessage> &answers)
    {
        QList<Found> found;
        for (qsizetype i = 0; i < answers.size(); ++i) {
            for (const AccessibilityElementID &id : AtSpi::elementsIn(answers.at(i))) {
                if (!m_seen.contains(id)) {
                    m_seen.insert(id);
                    found.append({.id = id, .parent = parents.at(i)});
                }
            }
        }
        return found;
    }

    AccessibilityBus *m_bus;
    qsizetype m_limit;
    QDeadlineTimer m_deadline;
    AccessibilityTree m_tree;
    QList<AtSpiKind> m_kinds; ///< of the tree's elements, in its order
    QSet<AccessibilityElementID> m_seen;
    bool m_isOver = false;
};

} // namespace

QCoro::Task<std::optional<AccessibilityElementID>> applicationRoot(AccessibilityBus *bus, qint64 processId)
{
    const AccessibilityElementID registry =
        AtSpi::elementID(u"org.a11y.atspi.Registry"_s, u"/org/a11y/atspi/accessible/root"_s);
    const QDBusMessage answer =
        co_await bus->answer(AtSpi::call(registry, "Accessible"_L1, "GetChildren"_L1));
    for (const AccessibilityElementID &application : AtSpi::elementsIn(answer)) {
        auto question =
            QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                           u"org.freedesktop.DBus"_s, u"GetConnectionUnixProcessID"_s);
        question << AtSpi::serviceOf(application);
        const QDBusMessage owner = co_await bus->answer(question);
        if (AtSpi::isAnswered(owner) && owner.arguments().constFirst().toLongLong() == processId) {
            co_return application;
        }
    }
    co_return std::nullopt;
}

QCoro::Task<AccessibilityTree> walkTree(AccessibilityBus *bus, AccessibilityElementID root, qsizetype limit,
                                        QDeadlineTimer deadline)
{
    Walk walk(bus, limit, deadline);
    co_return co_await walk.run(std::move(root));
}

} // namespace KelvaLR
