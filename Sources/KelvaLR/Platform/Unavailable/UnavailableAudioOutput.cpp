#include "Platform/Unavailable/UnavailableAudioOutput.h"

namespace KelvaLR {

std::expected<void, QString> UnavailableAudioOutput::start(AudioFormat, FinishedHandler, FailureHandler)
{
    return std::unexpected(QStringLiteral("Sound cannot be played on this system."));
}

void UnavailableAudioOutput::play(QByteArray) {}

void UnavailableAudioOutput::stop() {}

bool UnavailableAudioOutput::isPlaying() const
{
    return false;
}

} // namespace KelvaLR
