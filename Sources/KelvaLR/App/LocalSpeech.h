#pragma once

#include "Platform/Linux/FliteSpeechSynthesizer.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Services/Speech/SpeechFeedbackService.h"

namespace KelvaLR {

/// What speaks with this computer's own voice, from the speaker outward.
struct LocalSpeech
{
    explicit LocalSpeech(AudioThread &thread)
        : output(thread)
    {
    }

    QtAudioOutput output;
    FliteSpeechSynthesizer synthesizer{output};
    SpeechFeedbackService feedback{synthesizer};
};

} // namespace KelvaLR
