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

    RealtimeSessionTest() { useService(server.baseUrl()); }

    /// Sessions whose waits end soon, but for those that a test is not about.
    static RealtimeTiming timing()
    {
        using namespace std::chrono_literals;
        return {
            .connection = 5s, .ping = 1s, .idleDisconnect = 20s, .speechEnd = 30ms, .feedbackEcho = 200ms};
    }

    void useService(const QString &baseUrl, RealtimeTiming timing = RealtimeSessionTest::timing())
    {
        useService(baseUrl, timing, input, output);
    }

    void useService(const QString &baseUrl, RealtimeTiming timing, AudioInput &microphone,
                    AudioOutput &speaker)
    {
        const auto lookup = [this](const QString &) { return apiKey; };
        service = std::make_unique<OpenAIRealtimeVoiceService>(
            OpenAIAccess(QStringLiteral("KELVALR_OPENAI_API_KEY"), baseUrl, lookup), microphone, speaker,
            RealtimeToolRunner(*lightroom.service, computerUse), log, timing);
        service->onStateChange = [this](State state) { states.append(state); };
        service->onAssistantTranscript = [this](const QString &text) { transcripts.append(text); };
        service->onComputerUseResult = [this](const ComputerUseResult &result) {
            results.append(result.summary);
        };
        service->onWakePhraseDetected = [this] { ++wakePhrases; };
        service->onError = [this](const QString &text) { errors.append(text); };
        service->onResponseDone = [this] { ++responsesDone; };
    }

    /// Opens a session and takes what it begins with.
    void open(RealtimeSessionKind kind)
    {
        waitForTask(service->start(kind));
        ASSERT_TRUE(service->isActive()) << errors.join(u' ').toStdString();
        ASSERT_TRUE(
            waitUntil([&] { return server.events.size() >= (kind == RealtimeSessionKind::voice ? 2 : 1); }));
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

    void sendError(const QJsonValue &error)
    {
        server.send({{QStringLiteral("type"), QStringLiteral("error")}, {QStringLiteral("error"), error}});
    }

    [[nodiscard]] QStringList typesWhen(qsizetype count)
    {
        QStringList types;
        EXPECT_TRUE(waitUntil([&] {
            types += server.takeTypes();
            return types.size() >= count;
        })) << types.join(u' ').toStdString();
        return types;
    }

    [[nodiscard]] QString logged() const
    {
        QFile file(log.file());
        return file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QTemporaryDir folder;
    DebugLog log{folder.filePath(QStringLiteral("app_debug.log"))};
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
