#include "Platform/Linux/CaptureHandlers.h"

#include "Support/Posted.h"

#include <QCoreApplication>

namespace KelvaLR {

CaptureHandlers::CaptureHandlers(AudioInput::BlockHandler onBlock, AudioInput::FailureHandler onFailure)
    : m_onBlock(std::move(onBlock))
    , m_onFailure(std::move(onFailure))
{
}

void CaptureHandlers::deliver(QByteArrayView samples, qsizetype frames, const AudioFormat &format)
{
    const std::unique_lock delivery(m_delivery, std::try_to_lock);
    if (delivery && m_isOpen) {
        m_onBlock(samples, frames, format);
    }
}

void CaptureHandlers::fail(const QString &sentence)
{
    auto report = [handlers = shared_from_this(), sentence] {
        if (handlers->m_isOpen.exchange(false)) {
            handlers->m_onFailure(sentence);
        }
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), Posted(std::move(report)), Qt::QueuedConnection);
}

void CaptureHandlers::close(std::chrono::milliseconds limit)
{
    m_isOpen = false;
    const std::unique_lock delivery(m_delivery, limit);
}

} // namespace KelvaLR
