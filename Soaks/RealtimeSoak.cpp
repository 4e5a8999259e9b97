// realtime_soak [MINUTES]: a realtime voice session with a scripted server that talks and asks for actions
// all the time, over the test doubles of the microphone, the speaker and the plug-in. Prints what was sent
// and what arrived, and the memory; ends with 1 when an event was lost. Ten events a second, a tool call
// every three seconds.

#include "ResidentMemory.h"

#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/FakeAudio.h"
#include "Support/LightroomRig.h"
#include "Support/WaitForTask.h"

#include <QJsonDocument>
#include <QTemporaryDir>
#include <QTimer>
#include <QWebSocket>
#include <QWebSocketServer>

#include <cstdio>

using namespace KelvaLR;
using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What has been sent one way, and what has arrived of it.
struct Count
{
    const char *name;
    qint64 sent = 0;
    qint64 arrived = 0;
};

/// The service's side: keeps nothing, counts what comes, and sends a round of events every second.
class TalkativeServer : public QObject
{
public:
    TalkativeServer()
    {
        server.listen(QHostAddress::LocalHost);
        connect(&server, &QWebSocketServer::newConnection, this, [this] {
            client = server.nextPendingConnection();
            client->setParent(this);
            connect(client, &QWebSocket::textMessageReceived, this, &TalkativeServer::count);
            send(u"session.created"_s);
        });
    }

    void send(const QString &type, QJsonObject members = {})
    {
        members.insert(u"type"_s, type);
        client->sendTextMessage(QString::fromUtf8(QJsonDocument(members).toJson(QJsonDocument::Compact)));
    }

    void talk()
    {
        ++rounds;
        send(u"response.created"_s);
        for (int i = 0; i < 4; ++i) {
            send(u"response.output_audio_transcript.delta"_s, {{u"delta"_s, u"word "_s}});
            ++words.sent;
            const QByteArray sound(4'800, 'a');
            send(u"response.output_audio.delta"_s, {{u"delta"_s, QString::fromLatin1(sound.toBase64())}});
            sounds.sent += sound.size();
        }
        if (rounds % 3 == 0) {
            send(u"response.function_call_arguments.done"_s,
                 {{u"name"_s, u"computer_use"_s},
                  {u"call_id"_s, u"call_%1"_s.arg(rounds)},
                  {u"arguments"_s, uR"({"action": "lr_navigate", "text": "next"})"_s}});
            ++calls.sent;
        }
        send(u"conversation.item.input_audio_transcription.completed"_s,
             {{u"transcript"_s, u"and warmer"_s}});
        send(u"response.done"_s);
    }

    QWebSocketServer server{u"soak"_s, QWebSocketServer::NonSecureMode};
    QWebSocket *client = nullptr;
    qint64 rounds = 0;
    Count words{"words of replies"};
    Count sounds{"bytes of replies' sound"};
    Count calls{"tool calls"};
    qint64 blocks = 0; ///< of the microphone; it is closed while the assistant speaks

private:
    void count(const QString &text)
    {
        if (text.contains("\"function_call_output\""_L1)) {
            ++calls.arrived;
        } else if (text.startsWith(R"({"type":"input_audio_buffer.append")"_L1)) {
            ++blocks;
        }
    }
};

bool report(const Count &count)
{
    std::printf("%s: %lld sent, %lld arrived\n", count.name, static_cast<long long>(count.sent),
                static_cast<long long>(count.arrived));
    return count.sent == count.arrived;
}

/// Whether everything arrived.
bool converse(std::chrono::minutes length)
{
    const QTemporaryDir folder;
    TalkativeServer service;
    LightroomRig lightroom;
    lightroom.plugin.answer(ScriptedPlugin::successReply(u"Done"_s));
    MacComputerUseService computerUse(*lightroom.service, lightroom.automation, lightroom.applications);
    FakeAudioInput microphone;
    FakeAudioOutput speaker;
    OpenAIRealtimeVoiceService session(
        OpenAIAccess(u"KEY"_s, u"http://127.0.0.1:%1/v1"_s.arg(service.server.serverPort()),
                     [](const QString &) { return u"key"_s; }),
        microphone, speaker, RealtimeToolRunner(*lightroom.service, computerUse),
        DebugLog(folder.filePath(u"log"_s)));
    session.onAssistantTranscript = [&](const QString &) { ++service.words.arrived; };
    waitForTask(session.start(RealtimeSessionKind::voice));

    const QByteArray block(2'048 * qsizetype{4}, '\x11');
    QTimer talking;
    QObject::connect(&talking, &QTimer::timeout, &service, [&] { service.talk(); });
    QTimer listening;
    QObject::connect(&listening, &QTimer::timeout, &service, [&] {
        microphone.deliver(block);
        service.sounds.arrived += speaker.played.size();
        speaker.played.clear();
    });
    talking.start(1s);
    listening.start(43ms);
    QTimer reporting;
    QObject::connect(&reporting, &QTimer::timeout, &service, [&] {
        std::printf("%lld s: %.1f MB\n", static_cast<long long>(service.rounds), residentMegabytes());
        std::fflush(stdout);
    });
    reporting.start(60s);
    (void)waitUntil([] { return false; }, length);
    talking.stop();
    (void)waitUntil([&] { return service.calls.sent == service.calls.arrived; }, 20s);
    listening.stop();
    (void)waitUntil([] { return false; }, 1s);
    service.sounds.arrived += speaker.played.size();

    std::printf("after %lld minutes: %.1f MB\n", static_cast<long long>(length.count()), residentMegabytes());
    bool isWhole = true;
    for (const Count &count : {service.words, service.sounds, service.calls}) {
        isWhole = report(count) && isWhole;
    }
    std::printf("blocks of the microphone: %lld arrived\n", static_cast<long long>(service.blocks));
    waitForTask(session.stop());
    (void)waitUntil([] { return false; }, 1s); // what the connection deletes later
    return isWhole;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const int minutes = QCoreApplication::arguments().value(1, u"30"_s).toInt();
    try {
        return converse(std::chrono::minutes(std::max(1, minutes))) ? 0 : 1;
    } catch (const std::exception &error) {
        std::fprintf(stderr, "realtime_soak: %s\n", error.what());
        return 1;
    }
}
