#pragma once

#include "Platform/AudioOutput.h"

namespace KelvaLR {

/// For a system whose speakers this build cannot reach.
class UnavailableAudioOutput final : public AudioOutput
{
public:
    std::expected<void, QString> start(AudioFormat format, FinishedHandler onFinished,
                                       FailureHandler onFailure) override;
    void play(QByteArray samples) override;
    void stop() override;
    bool isPlaying() const override;
};

} // namespace KelvaLR
