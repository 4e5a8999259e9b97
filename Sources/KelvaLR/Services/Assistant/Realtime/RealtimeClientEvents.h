#pragma once

#include "Services/Assistant/RealtimeVoiceService.h"

#include <QByteArray>
#include <QString>

/// What is sent to the realtime service: each event is one JSON object in UTF-8.
namespace KelvaLR::RealtimeClientEvents {

/// Configures the session: what the service is for, its one tool and, in a voice session, how it listens.
[[nodiscard]] QByteArray sessionUpdate(RealtimeSessionKind kind);

/// @param pcm signed 16-bit little-endian samples, one channel, 24,000 Hz
[[nodiscard]] QByteArray appendAudio(const QByteArray &pcm);

/// Forgets what was appended since the last utterance.
[[nodiscard]] QByteArray clearInputAudio();

/// Answers a tool call.
[[nodiscard]] QByteArray functionCallOutput(const QString &callID, const QString &output);

/// Lets the model go on.
[[nodiscard]] QByteArray createResponse();

} // namespace KelvaLR::RealtimeClientEvents
