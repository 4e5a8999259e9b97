#pragma once

#include "Platform/Linux/FliteSpeechSynthesizer.h"
#include "Platform/Linux/QtAudioInput.h"
#include "Platform/Linux/QtAudioOutput.h"
#include "Platform/Linux/Speech/PocketSphinxRecognizer.h"
#include "Services/Lightroom/DevelopPresetNames.h"
#include "Services/Speech/SpeechFeedbackService.h"
#include "Services/Speech/WakeWordVoiceService.h"

namespace KelvaLR {

/// Hearing the wake phrase and reading aloud on this computer, from the microphone and the speaker outward.
struct LocalSpeech
{
    explicit LocalSpeech(AudioThread &thread)
        : input(thread)
        , output(thread)
    {
    }

    QtAudioInput input;
    PocketSphinxRecognizer recognizer;
    DevelopPresetNames presetNames;
    WakeWordVoiceService listener{input, recognizer, [this] { return presetNames.read(); }};

    QtAudioOutput output;
    FliteSpeechSynthesizer synthesizer{output};
    SpeechFeedbackService feedback{synthesizer};
};

} // namespace KelvaLR
