// Any frame is an event or nothing, any tool call is good or a sentence, any transcript is compared by its
// words; and whatever we answer is an event that gives the text back.

#include "FuzzedText.h"

#include "Services/Assistant/Realtime/RealtimeClientEvents.h"
#include "Services/Assistant/Realtime/RealtimePhrases.h"
#include "Services/Assistant/Realtime/RealtimeServerEvent.h"
#include "Services/Assistant/Realtime/RealtimeToolCall.h"
#include "Services/Assistant/Realtime/RealtimeToolKeys.h"

#include <cmath>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;
using Fuzzing::require;

void parseToolCall(const RealtimeServerEvent &event)
{
    const auto call = RealtimeToolCall::parse(event);
    if (!call) {
        require(call.error().isEmpty() ||
                call.error().startsWith("Failed to parse tool call arguments: "_L1));
        return;
    }
    require(event.text("call_id"_L1) == call->callID && call->arguments.contains("action"_L1));
    require(!call->value || std::isfinite(*call->value));
    require(targetRequest(*call, u"words"_s).action == call->action);
}

void parseArguments(const QString &arguments)
{
    parseToolCall(
        {{}, {{u"name"_s, RealtimeToolKey::toolName}, {u"call_id"_s, u"c"_s}, {u"arguments"_s, arguments}}});
}

void compareTranscript(const QString &transcript)
{
    const QString words = normalizedComputerUseText(transcript);
    require(!words.contains("  "_L1) && !words.startsWith(u' ') && !words.endsWith(u' '));
    require(!containsWakePhrase(transcript) || words.contains("hey "_L1));
    require(isVoiceSessionStopCommand(transcript + " stop"_L1));
    require(!isVoiceSessionStopCommand(transcript) || !words.isEmpty());
}

void answerWith(const QString &output)
{
    const auto event = RealtimeServerEvent::parse(RealtimeClientEvents::functionCallOutput(output, output));
    require(event.has_value());
    const QJsonObject item = event->members.value("item"_L1).toObject();
    require(item.value("output"_L1).toString() == output && item.value("call_id"_L1).toString() == output);
}

void appendSamples(const QByteArray &pcm)
{
    const auto event = RealtimeServerEvent::parse(RealtimeClientEvents::appendAudio(pcm));
    require(event && QByteArray::fromBase64(event->text("audio"_L1).value().toLatin1()) == pcm);
}

} // namespace

} // namespace KelvaLR

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    if (const auto event = KelvaLR::RealtimeServerEvent::parse(bytes)) {
        KelvaLR::parseToolCall(*event);
    }
    KelvaLR::appendSamples(bytes);
    for (const QString &text : KelvaLR::Fuzzing::textsOf(data, size)) {
        KelvaLR::parseArguments(text);
        KelvaLR::compareTranscript(text);
        KelvaLR::answerWith(text);
    }
    return 0;
}
