#include "Platform/Linux/DesktopAppearance.h"

#include "Support/PrivateSessionBus.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QGuiApplication>
#include <QPalette>

#include <gtest/gtest.h>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settings = u"org.freedesktop.portal.Settings"_s;

/// A settings portal that knows the colour scheme and whether there are animations.
class SettingsPortal final : public QDBusVirtualObject
{
public:
    uint colorScheme = 0;
    bool isAnimated = true;

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override
    {
        const bool isAboutColors = message.arguments().value(1) == u"color-scheme"_s;
        const QVariant value = isAboutColors ? QVariant(colorScheme) : QVariant(isAnimated);
        const QVariant wrappedTwice =
            QVariant::fromValue(QDBusVariant(QVariant::fromValue(QDBusVariant(value))));
        return connection.send(message.createReply(wrappedTwice));
    }
};

class DesktopAppearanceTest : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(bus.isUp());
        QDBusConnection server = bus.connect(u"portal"_s);
        ASSERT_TRUE(server.registerVirtualObject(portalPath, &portal));
        ASSERT_TRUE(server.registerService(u"org.freedesktop.portal.Desktop"_s));
    }

    void announce(const QString &group, const QString &key, const QVariant &value)
    {
        QDBusMessage change = QDBusMessage::createSignal(portalPath, settings, u"SettingChanged"_s);
        change << group << key << QVariant::fromValue(QDBusVariant(value));
        EXPECT_TRUE(QDBusConnection(u"portal"_s).send(change));
    }

    SettingsPortal portal;
    Testing::PrivateSessionBus bus;
};

TEST_F(DesktopAppearanceTest, asksThePortalAndFollowsItsChanges)
{
    portal.colorScheme = 1;
    portal.isAnimated = false;
    const DesktopAppearance appearance(bus.connect(u"client"_s));
    EXPECT_TRUE(waitUntil([&] { return appearance.isDark() && appearance.isMotionReduced(); }));

    announce(u"org.freedesktop.appearance"_s, u"contrast"_s, 1U);
    announce(u"org.freedesktop.appearance"_s, u"color-scheme"_s, 2U);
    announce(u"org.gnome.desktop.interface"_s, u"enable-animations"_s, true);
    EXPECT_TRUE(waitUntil([&] { return !appearance.isDark() && !appearance.isMotionReduced(); }));
}

TEST_F(DesktopAppearanceTest, withoutAPreferenceOrAPortalThePaletteDecides)
{
    const QPalette previous = QGuiApplication::palette();
    const DesktopAppearance without(QDBusConnection(u"not connected"_s));
    const DesktopAppearance undecided(bus.connect(u"client"_s));
    int changes = 0;
    QObject::connect(&without, &Appearance::changed, &without, [&changes] { ++changes; });

    QGuiApplication::setPalette(QPalette(Qt::white, Qt::black));
    EXPECT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_TRUE(without.isDark() && undecided.isDark());
    QGuiApplication::setPalette(QPalette(Qt::black, Qt::white));
    EXPECT_FALSE(without.isDark() || undecided.isDark());
    QGuiApplication::setPalette(previous);
}

} // namespace
