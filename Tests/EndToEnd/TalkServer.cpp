// talk-server: a realtime service on a free local port, whose address it prints. Once it has heard somebody
// speak into the session, it asks for an exposure higher by 1, and, when it is told the outcome, answers in
// sound: a tone of two seconds for the words "I raised the exposure by one.". Says on standard output what it
// was told, and with which code the session ended.

#include "Support/ScriptedRealtimeServer.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <memory>

using namespace KelvaLR::Testing;
using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype deltaBytes = 9600;
constexpr int loud = 2000;
constexpr int loudBlocks = 10;  ///< after which somebody has spoken
constexpr int quietBlocks = 12; ///< after which they have ended: half a second

bool isLoud(const QByteArray &pcm)
{
    const auto *samples = reinterpret_cast<const qint16 *>(pcm.constData());
    return std::any_of(samples, samples + pcm.size() / 2,
                       [](qint16 sample) { return sample > loud || sample < -loud; });
}

/// Two seconds at 500 Hz.
QByteArray tone()
{
    const QByteArray high = QByteArrayLiteral("\x00\x20").repeated(24);
    const QByteArray low = QByteArrayLiteral("\x00\xE0").repeated(24);
    const QByteArray wave = high + low;
    return wave.repeated(1000);
}

void say(const QString &line)
{
    std::puts(qPrintable(line));
    std::fflush(stdout);
}

class TalkServer
{
public:
    TalkServer()
    {
        m_server.whenReceived = [this](const QJsonObject &event) { take(event); };
        m_server.whenConnected = [this] {
            m_server.send(u"session.created"_s);
            QObject::connect(m_server.client(), &QWebSocket::disconnected, m_server.client(),
                             [client = m_server.client()] {
                                 say(u"closed with %1"_s.arg(static_cast<int>(client->closeCode())));
                             });
        };
    }

    [[nodiscard]] QString baseUrl() const { return m_server.baseUrl(); }

private:
    void take(const QJsonObject &event)
    {
        const QString type = event.value("type"_L1).toString();
        if (type == "input_audio_buffer.append"_L1) {
            hear(QByteArray::fromBase64(event.value("audio"_L1).toString().toLatin1()));
        } else if (type == "session.update"_L1) {
            const bool isVoice = event.value("session"_L1).toObject().contains("audio"_L1);
            say(isVoice ? u"voice session"_s : u"text session"_s);
        } else if (type == "conversation.item.create"_L1) {
            say(event.value("item"_L1).toObject().value("output"_L1).toString());
        } else if (type == "response.create"_L1) {
            answer();
        }
    }

    void hear(const QByteArray &pcm)
    {
        m_loudBlocks += isLoud(pcm) ? 1 : 0;
        m_quietBlocks = isLoud(pcm) ? 0 : m_quietBlocks + 1;
        if (m_loudBlocks < loudBlocks || m_quietBlocks < quietBlocks || m_hasAsked) {
            return;
        }
        m_hasAsked = true;
        m_server.send(u"input_audio_buffer.speech_started"_s);
        m_server.send({{u"type"_s, u"conversation.item.input_audio_transcription.completed"_s},
                       {u"transcript"_s, u"Please raise the exposure by one."_s}});
        m_server.send(u"response.created"_s);
        m_server.send(
            {{u"type"_s, u"response.function_call_arguments.done"_s},
             {u"name"_s, u"computer_use"_s},
             {u"call_id"_s, u"call-1"_s},
             {u"arguments"_s,
              uR"({"action":"lr_adjust_slider","slider":"exposure","value":1,"relative":true})"_s}});
        m_server.send(u"response.done"_s);
    }

    void answer()
    {
        const QString words = u"I raised the exposure by one."_s;
        m_server.send(u"response.created"_s);
        m_server.send({{u"type"_s, u"response.output_audio_transcript.delta"_s}, {u"delta"_s, words}});
        const QByteArray sound = tone();
        for (qsizetype at = 0; at < sound.size(); at += deltaBytes) {
            m_server.send({{u"type"_s, u"response.output_audio.delta"_s},
                           {u"delta"_s, QString::fromLatin1(sound.mid(at, deltaBytes).toBase64())}});
        }
        m_server.send({{u"type"_s, u"response.output_audio_transcript.done"_s}, {u"transcript"_s, words}});
        m_server.send(u"response.done"_s);
    }

    ScriptedRealtimeServer m_server;
    int m_loudBlocks = 0;
    int m_quietBlocks = 0; ///< one after the other
    bool m_hasAsked = false;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const auto server = std::make_unique<TalkServer>();
    say(server->baseUrl());
    return QCoreApplication::exec();
}
