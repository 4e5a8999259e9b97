#pragma once

#include "Support/WaitForTask.h"

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

namespace KelvaLR::Testing {

/// A real message bus of its own. Connections are named, and closed when it ends.
class PrivateSessionBus
{
public:
    PrivateSessionBus()
    {
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       {QStringLiteral("--session"), QStringLiteral("--nofork"),
                        QStringLiteral("--print-address"),
                        QStringLiteral("--address=unix:path=") + m_folder.filePath(QStringLiteral("bus"))});
        if (waitUntil([this] { return m_daemon.canReadLine(); })) {
            m_address = QString::fromUtf8(m_daemon.readLine().trimmed());
        }
    }

    ~PrivateSessionBus()
    {
        for (const QString &name : std::as_const(m_names)) {
            QDBusConnection::disconnectFromBus(name);
        }
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    Q_DISABLE_COPY_MOVE(PrivateSessionBus)

    [[nodiscard]] bool isUp() const { return !m_address.isEmpty(); }

    [[nodiscard]] QDBusConnection connect(const QString &name)
    {
        m_names.append(name);
        return QDBusConnection::connectToBus(m_address, name);
    }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

} // namespace KelvaLR::Testing
