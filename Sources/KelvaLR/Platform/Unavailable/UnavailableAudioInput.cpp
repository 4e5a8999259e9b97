#include "Platform/Unavailable/UnavailableAudioInput.h"

namespace KelvaLR {

namespace {

std::unexpected<QString> unavailable()
{
    return std::unexpected(QStringLiteral("Sound cannot be recorded on this system."));
}

} // namespace

QCoro::Task<bool> UnavailableAudioInput::requestAccess()
{
    co_return true;
}

std::expected<AudioFormat, QString> UnavailableAudioInput::format()
{
    return unavailable();
}

std::expected<void, QString> UnavailableAudioInput::start(qsizetype, BlockHandler, FailureHandler)
{
    return unavailable();
}

void UnavailableAudioInput::stop() {}

} // namespace KelvaLR
