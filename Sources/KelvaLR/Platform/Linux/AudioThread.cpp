#include "Platform/Linux/AudioThread.h"

#include "Support/Posted.h"

#include <QDebug>

namespace KelvaLR {

namespace {

constexpr std::chrono::seconds timeToEnd(2);

} // namespace

AudioThread::AudioThread()
    : m_thread(std::make_unique<QThread>())
    , m_place(std::make_unique<QObject>())
{
    m_thread->setObjectName(QStringLiteral("audio"));
    m_place->moveToThread(m_thread.get());
    m_thread->start(QThread::HighPriority);
}

AudioThread::~AudioThread()
{
    m_thread->quit();
    if (!m_thread->wait(QDeadlineTimer(timeToEnd))) {
        qWarning("The sound system does not let go of the audio thread.");
        [[maybe_unused]] const QThread *thread = m_thread.release();
        [[maybe_unused]] const QObject *place = m_place.release();
    }
}

void AudioThread::post(std::function<void()> work)
{
    QMetaObject::invokeMethod(m_place.get(), Posted(std::move(work)), Qt::QueuedConnection);
}

} // namespace KelvaLR
