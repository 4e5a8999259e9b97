// What a reply of the chat service costs: an ordinary one, and megabytes of JSON that mean no good.

#include "Services/Assistant/AssistantReplyDecoder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <benchmark/benchmark.h>

namespace KelvaLR {

namespace {

using namespace Qt::StringLiterals;

QByteArray bodyOf(const QString &content)
{
    const QJsonObject message{{u"content"_s, content}};
    return QJsonDocument(QJsonObject{{u"choices"_s, QJsonArray{QJsonObject{{u"message"_s, message}}}}})
        .toJson();
}

QString ordinaryReply()
{
    return uR"({"message":"Warmer.","action":{"type":"lr_adjust_sliders","text":"Temp:600:1;Blacks:18:0"},
               "artifact":{"kind":"markdown","title":"Look","body":"- warm\\n- faded"}})"_s;
}

/// One million characters of `unit`, each occurrence of "%1" numbered.
QString oneMillion(const QString &unit, const QString &head = {}, const QString &tail = {})
{
    QString text = head;
    for (int i = 0; text.size() < 1'000'000; ++i) {
        text += unit.contains("%1"_L1) ? unit.arg(i) : unit;
    }
    return text + tail;
}

void decode(benchmark::State &state, const QString &content)
{
    const QByteArray body = bodyOf(content);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(decodeAssistantReply(chatTextOutput(body).value()));
    }
}

BENCHMARK_CAPTURE(decode, ordinary, ordinaryReply())->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode, nested_arrays_1MB, oneMillion(u"["_s))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, nested_objects_1MB, oneMillion(u"{\"a\":"_s))->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, keys_1MB, oneMillion(u"\"%1\":0,"_s, u"{"_s, u"\"z\":0}"_s))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, repeated_keys_1MB, oneMillion(u"\"message\":0,"_s, u"{"_s, u"\"z\":0}"_s))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, falling_keys_1MB,
                  oneMillion(u"\"%1\":{\"b\":0,\"a\":[]},"_s, u"{"_s, u"\"z\":0}"_s))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, escapes_1MB, oneMillion(u"\\u0000"_s, u"{\"message\":\""_s, u"\"}"_s))
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(decode, backticks_1MB, oneMillion(u"```"_s))->Unit(benchmark::kMillisecond);

} // namespace

} // namespace KelvaLR
