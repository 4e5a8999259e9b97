#pragma once

#include "Platform/Linux/AtSpiElement.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>

#include <functional>

namespace KelvaLR::Testing {

struct ElementReference
{
    QString service;
    QDBusObjectPath path;

    friend QDBusArgument &operator<<(QDBusArgument &argument, const ElementReference &reference)
    {
        argument.beginStructure();
        argument << reference.service << reference.path;
        argument.endStructure();
        return argument;
    }

    // The shape that QtDBus asks of a type.
    friend const QDBusArgument &operator>>(const QDBusArgument &argument, ElementReference &reference)
    {
        argument.beginStructure();
        argument >> reference.service >> reference.path;
        argument.endStructure();
        return argument; // NOLINT(bugprone-return-const-ref-from-parameter)
    }
};

/// A program on the accessibility bus whose elements are made up as they are asked for: numbers, with the
/// children that a function gives to each. All of them are panels on the screen.
class FabricatedAccessibleTree : public QDBusVirtualObject
{
public:
    using Children = std::function<QList<int>(int)>;

    FabricatedAccessibleTree(QDBusConnection bus, Children children)
        : m_bus(std::move(bus))
        , m_children(std::move(children))
    {
        qDBusRegisterMetaType<ElementReference>();
        qDBusRegisterMetaType<QList<ElementReference>>();
        m_bus.registerVirtualObject(QLatin1StringView("/elements"), this, QDBusConnection::SubPath);
    }

    [[nodiscard]] AccessibilityElementID root() const
    {
        return AtSpi::elementID(m_bus.baseService(), pathOf(0));
    }

    [[nodiscard]] QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        constexpr uint panel = 39;
        QVariant answer;
        if (message.member() == QLatin1StringView("GetRole")) {
            answer = panel;
        } else if (message.member() == QLatin1StringView("GetState")) {
            answer = QVariant::fromValue(QList<uint>{1U << 25U, 0});
        } else if (message.member() == QLatin1StringView("GetChildren")) {
            QList<ElementReference> children;
            for (const int child : m_children(message.path().section(u'/', 2, 2).toInt())) {
                children.append({m_bus.baseService(), QDBusObjectPath(pathOf(child))});
            }
            answer = QVariant::fromValue(children);
        }
        return answer.isValid() && connection.send(message.createReply(answer));
    }

private:
    static QString pathOf(int element) { return QLatin1StringView("/elements/") + QString::number(element); }

    QDBusConnection m_bus;
    Children m_children;
};

} // namespace KelvaLR::Testing
