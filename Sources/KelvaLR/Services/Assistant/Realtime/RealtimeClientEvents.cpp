#include "Services/Assistant/Realtime/RealtimeClientEvents.h"

#include "Services/Assistant/AssistantTexts.h"
#include "Services/Assistant/Realtime/RealtimeToolDefinition.h"
#include "Support/OrderedJsonObject.h"

namespace KelvaLR::RealtimeClientEvents {

using namespace Qt::StringLiterals;

namespace {

OrderedJsonObject event(QLatin1StringView type)
{
    return OrderedJsonObject().add("type"_L1, type);
}

/// How the microphone's audio comes, and that the service itself hears where an utterance ends.
OrderedJsonObject audioInput()
{
    return OrderedJsonObject()
        .add("format"_L1, OrderedJsonObject().add("type"_L1, "audio/pcm"_L1).add("rate"_L1, 24000))
        .add("transcription"_L1, OrderedJsonObject().add("model"_L1, "gpt-4o-mini-transcribe"_L1))
        .add("turn_detection"_L1,
             OrderedJsonObject().add("type"_L1, "server_vad"_L1).add("create_response"_L1, true));
}

} // namespace

QByteArray sessionUpdate(RealtimeSessionKind kind)
{
    auto session = OrderedJsonObject()
                       .add("type"_L1, "realtime"_L1)
                       .add("instructions"_L1, realtimeInstructions())
                       .add("tools"_L1, QList{computerUseToolDefinition()})
                       .add("tool_choice"_L1, "auto"_L1);
    if (kind == RealtimeSessionKind::voice) {
        session.add("audio"_L1, OrderedJsonObject().add("input"_L1, audioInput()));
    }
    return event("session.update"_L1).add("session"_L1, session).toJson();
}

QByteArray appendAudio(const QByteArray &pcm)
{
    // Some 23 times a second: base64 needs no escaping, so no JSON writer has to look at it.
    return R"({"type":"input_audio_buffer.append","audio":")" + pcm.toBase64() + R"("})";
}

QByteArray clearInputAudio()
{
    return event("input_audio_buffer.clear"_L1).toJson();
}

QByteArray functionCallOutput(const QString &callID, const QString &output)
{
    return event("conversation.item.create"_L1)
        .add("item"_L1, event("function_call_output"_L1).add("call_id"_L1, callID).add("output"_L1, output))
        .toJson();
}

QByteArray createResponse()
{
    return event("response.create"_L1).toJson();
}

} // namespace KelvaLR::RealtimeClientEvents
