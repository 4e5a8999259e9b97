#include "Services/Lightroom/Bridge/ReplyMailbox.h"

#include "Services/Lightroom/Bridge/ReplyFile.h"

#include <QCoroTimer>

#include <QDeadlineTimer>
#include <QFile>
#include <QPointer>

#include <algorithm>
#include <chrono>

namespace KelvaLR {

ReplyMailbox::ReplyMailbox(const BridgeEndpoint &endpoint, const QString &requestID, BridgeTiming timing)
    : m_path(endpoint.replyPath(requestID))
    , m_timing(timing)
{
    m_pause.setSingleShot(true);
    const auto lookNow = [this] { m_pause.start(0); };
    QObject::connect(&m_watcher, &QFileSystemWatcher::directoryChanged, &m_pause, lookNow);
    QObject::connect(&m_watcher, &QFileSystemWatcher::fileChanged, &m_pause, lookNow);
    m_watcher.addPath(endpoint.replyDirectory);
}

ReplyMailbox::~ReplyMailbox()
{
    discard();
}

QCoro::Task<std::optional<QString>> ReplyMailbox::takeReply(const QObject *owner)
{
    const QPointer<const QObject> waiting(owner);
    const QDeadlineTimer deadline(m_timing.reply);
    while (waiting) {
        if (std::optional<QString> reply = take()) {
            co_return reply;
        }
        if (deadline.hasExpired()) {
            break; // behind a last look: a busy computer may have come back late
        }
        m_pause.start(std::min(m_timing.poll, std::chrono::ceil<BridgeTiming::milliseconds>(
                                                  deadline.remainingTimeAsDuration())));
        co_await m_pause;
    }
    co_return std::nullopt;
}

void ReplyMailbox::discard()
{
    QFile::remove(m_path);
}

std::optional<QString> ReplyMailbox::take()
{
    std::optional<ReplyFileContent> content = readReplyFile(m_path);
    if ((!content || !content->isComplete) && watchFile()) {
        content = readReplyFile(m_path); // it may have been written before it was watched
    }
    if (!content || !(content->isComplete || hasSettled(content->size))) {
        return std::nullopt;
    }
    discard();
    return content->text;
}

bool ReplyMailbox::hasSettled(qint64 size)
{
    if (size != m_unfinishedSize) {
        m_unfinishedSize = size;
        m_settled.setRemainingTime(m_timing.poll);
        return false;
    }
    return m_settled.hasExpired();
}

/// The directory reports the file's creation but not its content, so the file itself is watched as soon as it
/// is there. True when the watch has just begun.
bool ReplyMailbox::watchFile()
{
    return m_watcher.files().isEmpty() && QFile::exists(m_path) && m_watcher.addPath(m_path);
}

} // namespace KelvaLR
