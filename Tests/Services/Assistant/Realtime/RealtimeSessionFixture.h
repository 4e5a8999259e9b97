#pragma once

#include "Services/Assistant/Realtime/OpenAIRealtimeVoiceService.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Support/FakeAudio.h"
#include "Support/LightroomRig.h"
#include "Support/PrintQt.h"
#include "Support/ScriptedRealtimeServer.h"
#include "Support/WaitForTask.h"

#include <QFile>

#include <gtest/gtest.h>

#include <memory>

namespace KelvaLR {

inline void PrintTo(RealtimeVoiceState state, std::ostream *out)
{
    *out << rawValue(state).data();
}

namespace Testing {

/// A realtime service between a scripted server, a fake microphone and speaker, and a scripted plug-in.
class RealtimeSessionTest : public testing::Test
{
protected:
    using State = RealtimeVoiceState;

    explicit RealtimeSessionTest(
        ScriptedHttpServer::Transport transport = ScriptedHttpServer::Transport::plain)
        : server(transport)
    {
        service = makeService(server.baseUrl());
    }

    /// Sessions whose waits end soon, but for those that a test is not about.
    static RealtimeTiming timing()
    {
        using namespace std::chrono_literals;
        return {
            .connection = 5s, .ping = 1s, .idleDisconnect = 20s, .speechEnd = 30ms, .feedbackEcho = 200ms};
    }

    std::unique_ptr<OpenAIRealtimeVoiceService>
    makeService(const QString &baseUrl, RealtimeTiming timing = RealtimeSessionTest::timing())
    {
        return makeService(baseUrl, timing, input, output);
    }

    std::unique_ptr<OpenAIRealtimeVoiceService> makeService(const QString &baseUrl, RealtimeTiming timing,
                                                            AudioInput &microphone, AudioOutput &speaker)
    {
        const auto lookup = [this](const QString &) { return apiKey; };
        auto made = std::make_unique<OpenAIRealtimeVoiceService>(
            OpenAIAccess(QStringLiteral("KELVALR_OPENAI_API_KEY"), baseUrl, lookup), microphone, speaker,
            RealtimeToolRunner(*lightroom.service, computerUse), DebugLog(log()), timing);
        made->onStateChange = [this](State state) { states.append(state); };
        made->onAssistantTranscript = [this](const QString &text) { transcripts.append(text); };
        made->onComputerUseResult = [this](const ComputerUseResult &result) {
            results.append(result.summary);
        };
        made->onWakePhraseDetected = [this] { ++wakePhrases; };
        made->onError = [this](const QString &text) { errors.append(text); };
        made->onResponseDone = [this] { ++responsesDone; };
        return made;
    }

    /// Opens a session and takes what it begins with.
    void open(RealtimeSessionKind kind)
    {
        waitForTask(service->start(kind));
        ASSERT_TRUE(service->isActive()) << errors.join(u' ').toStdString();
        ASSERT_TRUE(waitUntil([&] { return received(kind == RealtimeSessionKind::voice ? 2 : 1); }));
        (void)server.takeTypes();
        states.clear();
    }

    /// What the server sends has been handled once a harmless event behind it is in the log.
    void settle()
    {
        const QString mark = QStringLiteral("mark.%1").arg(++marks);
        server.send(mark);
        ASSERT_TRUE(waitUntil([&] { return logged().contains(mark); }));
    }

    [[nodiscard]] bool received(qsizetype events) const { return server.events.size() >= events; }

    [[nodiscard]] QStringList typesWhen(qsizetype count)
    {
        QStringList types;
        EXPECT_TRUE(waitUntil([&] {
            types += server.takeTypes();
            return types.size() >= count;
        })) << types.join(u' ').toStdString();
        return types;
    }

    [[nodiscard]] QString log() const { return folder.filePath(QStringLiteral("app_debug.log")); }

    [[nodiscard]] QString logged() const
    {
        QFile file(log());
        return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir folder;
    LightroomRig lightroom;
    MacComputerUseService computerUse{*lightroom.service, lightroom.automation, lightroom.applications};
    FakeAudioInput input;
    FakeAudioOutput output;
    ScriptedRealtimeServer server;
    std::optional<QString> apiKey = QStringLiteral("secret-key");
    std::unique_ptr<OpenAIRealtimeVoiceService> service;
    QList<State> states;
    QStringList transcripts;
    QStringList results;
    QStringList errors;
    int responsesDone = 0;
    int wakePhrases = 0;
    int marks = 0;
};

} // namespace Testing
} // namespace KelvaLR
