#include "Platform/Unavailable/UnavailableSpeechSynthesizer.h"

#include <QTimer>

namespace KelvaLR {

void UnavailableSpeechSynthesizer::speak(const QString &, EndHandler onEnd)
{
    QTimer::singleShot(0, &m_context, [onEnd = std::move(onEnd)] { onEnd(SpeechEnd::failed); });
}

void UnavailableSpeechSynthesizer::stopSpeaking() {}

bool UnavailableSpeechSynthesizer::isSpeaking() const
{
    return false;
}

} // namespace KelvaLR
