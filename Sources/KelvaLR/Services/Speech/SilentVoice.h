#pragma once

#include "Services/Speech/SpokenFeedback.h"
#include "Services/Speech/WakePhraseListener.h"

namespace KelvaLR {

/// The listener of an application without a microphone: it never listens and never wakes.
class DeafWakePhraseListener final : public WakePhraseListener
{
public:
    void start() override;
    void stop() override;
};

/// The voice of an application without a speaker: a text is spoken as soon as the event loop turns.
class SilentSpokenFeedback final : public SpokenFeedback
{
public:
    void speak(const QString &text, std::function<void()> completion) override;
    void stop() override;
};

} // namespace KelvaLR
