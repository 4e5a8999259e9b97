#pragma once

#include "Platform/SpeechSynthesizer.h"

#include <QObject>

namespace KelvaLR {

/// For a system on which this build has no voice.
class UnavailableSpeechSynthesizer final : public SpeechSynthesizer
{
public:
    void speak(const QString &text, EndHandler onEnd) override;
    void stopSpeaking() override;
    bool isSpeaking() const override;

private:
    QObject m_context; ///< ends the reports with us
};

} // namespace KelvaLR
