#include "Platform/Linux/DesktopAppearance.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QEvent>
#include <QGuiApplication>
#include <QPalette>

namespace KelvaLR {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView portal("org.freedesktop.portal.Desktop");
constexpr QLatin1StringView portalPath("/org/freedesktop/portal/desktop");
constexpr QLatin1StringView settings("org.freedesktop.portal.Settings");
constexpr QLatin1StringView appearanceGroup("org.freedesktop.appearance");
constexpr QLatin1StringView colorScheme("color-scheme");
constexpr QLatin1StringView interfaceGroup("org.gnome.desktop.interface");
constexpr QLatin1StringView animations("enable-animations");
constexpr int answerTime = 2000; ///< milliseconds; a portal that hangs is as good as none

/// Read wraps its answer twice.
QVariant unwrapped(QVariant value)
{
    while (value.canConvert<QDBusVariant>()) {
        value = value.value<QDBusVariant>().variant();
    }
    return value;
}

} // namespace

DesktopAppearance::DesktopAppearance(QDBusConnection bus, QObject *parent)
    : Appearance(parent)
    , m_bus(std::move(bus))
{
    QCoreApplication::instance()->installEventFilter(this);
    if (m_bus.isConnected()) {
        m_bus.connect(portal, portalPath, settings, u"SettingChanged"_s, this,
                      SLOT(settingChanged(QDBusMessage)));
        ask(appearanceGroup, colorScheme);
        ask(interfaceGroup, animations);
    }
}

bool DesktopAppearance::isDark() const
{
    return m_isDark.value_or(QGuiApplication::palette().window().color().lightnessF() < 0.5F);
}

bool DesktopAppearance::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && object == QCoreApplication::instance()) {
        Q_EMIT changed();
    }
    return Appearance::eventFilter(object, event);
}

void DesktopAppearance::settingChanged(const QDBusMessage &change)
{
    const QVariantList arguments = change.arguments();
    if (arguments.size() == 3) {
        take(arguments[0].toString(), arguments[1].toString(), arguments[2]);
    }
}

void DesktopAppearance::ask(const QString &group, const QString &key)
{
    QDBusMessage question = QDBusMessage::createMethodCall(portal, portalPath, settings, u"Read"_s);
    question.setAutoStartService(false);
    question << group << key;
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question, answerTime), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, group, key] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        if (!reply.isError()) {
            take(group, key, reply.value().variant());
        }
    });
}

void DesktopAppearance::take(const QString &group, const QString &key, const QVariant &value)
{
    const bool wasDark = isDark();
    const bool wasMotionReduced = m_isMotionReduced;
    if (group == appearanceGroup && key == colorScheme) {
        // 0: no preference, 1: dark, 2: light
        const uint scheme = unwrapped(value).toUInt();
        m_isDark = scheme == 1 ? std::optional(true) : scheme == 2 ? std::optional(false) : std::nullopt;
    } else if (group == interfaceGroup && key == animations) {
        m_isMotionReduced = !unwrapped(value).toBool();
    }
    if (isDark() != wasDark || m_isMotionReduced != wasMotionReduced) {
        Q_EMIT changed();
    }
}

} // namespace KelvaLR
