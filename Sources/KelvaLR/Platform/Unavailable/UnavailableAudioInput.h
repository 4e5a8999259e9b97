#pragma once

#include "Platform/AudioInput.h"

namespace KelvaLR {

/// For a system whose microphones this build cannot reach. Nobody denies access to them.
class UnavailableAudioInput final : public AudioInput
{
public:
    QCoro::Task<bool> requestAccess() override;
    std::expected<AudioFormat, QString> format() override;
    std::expected<void, QString> start(qsizetype blockFrames, BlockHandler onBlock,
                                       FailureHandler onFailure) override;
    void stop() override;
};

} // namespace KelvaLR
