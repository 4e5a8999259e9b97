#pragma once

#include "Services/Lightroom/Bridge/BridgeEndpoint.h"
#include "Services/Lightroom/Bridge/BridgeTiming.h"

#include <QCoroTask>

#include <QDeadlineTimer>
#include <QFileSystemWatcher>
#include <QTimer>

#include <optional>

namespace KelvaLR {

/// The place of one command's reply. Made before the command is sent, so that no change there is missed.
/// It lives in the frame of the coroutine that waits on it. Main thread.
class ReplyMailbox
{
public:
    ReplyMailbox(const BridgeEndpoint &endpoint, const QString &requestID, BridgeTiming timing);

    /// Removes what lies there: a reply that was begun and never finished, as by a plug-in that was killed
    /// over it. One that only comes later stays.
    ~ReplyMailbox();
    Q_DISABLE_COPY_MOVE(ReplyMailbox)

    /// Waits for the reply, takes it out and gives its text; none when none came in time. Ends early, within
    /// one poll, when `owner` is destroyed.
    QCoro::Task<std::optional<QString>> takeReply(const QObject *owner);

    /// Removes what an earlier command left behind.
    void discard();

private:
    [[nodiscard]] std::optional<QString> take();
    [[nodiscard]] bool hasSettled(qint64 size);
    bool watchFile();

    QString m_path;
    BridgeTiming m_timing;
    QFileSystemWatcher m_watcher;
    QTimer m_pause; ///< between two looks; a change in the directory cuts it short
    qint64 m_unfinishedSize = -1;
    QDeadlineTimer m_settled; ///< when an unfinished file of this size may be taken
};

} // namespace KelvaLR
