#pragma once

#include "Support/WaitForTask.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>

namespace KelvaLR::Testing {

/// A sound system that comes and goes while a test runs. This process finds it under one address all the
/// time, which is set for good before anything asks for sound.
class SoundSystem
{
public:
    SoundSystem() { qputenv("PULSE_SERVER", "unix:" + QFile::encodeName(address())); }

    ~SoundSystem()
    {
        signalDaemon(SIGCONT);
        end();
    }
    Q_DISABLE_COPY_MOVE(SoundSystem)

    /// False when it did not come up.
    [[nodiscard]] bool begin()
    {
        m_session.start(QStringLiteral(KELVALR_AUDIO_SESSION),
                        {QStringLiteral("sh"), QStringLiteral("-c"),
                         QStringLiteral("ln -sfT \"${PULSE_SERVER#unix:}\" \"$0\"; "
                                        "cat \"$PULSE_RUNTIME_PATH/pid\"; exec cat"),
                         address()});
        if (!waitUntil([this] { return m_session.canReadLine(); })) {
            return false;
        }
        m_daemon = m_session.readLine().trimmed().toLongLong();
        return m_daemon > 0;
    }

    void signalDaemon(int signal) const
    {
        if (m_daemon > 0) {
            ::kill(static_cast<pid_t>(m_daemon), signal);
        }
    }

    /// As when the daemon crashes.
    void end()
    {
        signalDaemon(SIGKILL);
        m_daemon = 0;
        m_session.closeWriteChannel();
        m_session.waitForFinished();
    }

private:
    [[nodiscard]] QString address() const { return m_folder.filePath(QStringLiteral("native")); }

    QTemporaryDir m_folder;
    QProcess m_session;
    qint64 m_daemon = 0;
};

} // namespace KelvaLR::Testing
