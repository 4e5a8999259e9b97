#pragma once

#include "Platform/Appearance.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

namespace KelvaLR {

/// The settings portal of the desktop (XDG Desktop Portal, interface org.freedesktop.portal.Settings); where
/// it says nothing about colours, the application's palette decides. Never waits for the bus.
class DesktopAppearance final : public Appearance
{
    Q_OBJECT

public:
    /// @param bus the session bus; one that is not connected is a desktop without a portal
    explicit DesktopAppearance(QDBusConnection bus, QObject *parent = nullptr);

    bool isDark() const override;

    bool isMotionReduced() const override { return m_isMotionReduced; }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    Q_SLOT void settingChanged(const QDBusMessage &change);
    void ask(const QString &group, const QString &key);
    void take(const QString &group, const QString &key, const QVariant &value);

    QDBusConnection m_bus;
    std::optional<bool> m_isDark; ///< none while the portal has not said
    bool m_isMotionReduced = false;
};

} // namespace KelvaLR
