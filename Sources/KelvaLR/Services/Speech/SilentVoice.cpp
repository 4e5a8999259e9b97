#include "Services/Speech/SilentVoice.h"

#include <QCoreApplication>
#include <QMetaObject>

namespace KelvaLR {

void DeafWakePhraseListener::start() {}

void DeafWakePhraseListener::stop() {}

void SilentSpokenFeedback::speak(const QString &, std::function<void()> completion)
{
    if (completion) {
        QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(completion), Qt::QueuedConnection);
    }
}

void SilentSpokenFeedback::stop() {}

} // namespace KelvaLR
