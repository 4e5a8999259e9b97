#pragma once

#include "Services/Assistant/AssistantActionRunner.h"
#include "Services/Lightroom/LightroomConnectionWatch.h"
#include "Services/Lightroom/MacComputerUseService.h"
#include "Stores/AppModel.h"
#include "Support/LightroomRig.h"
#include "Support/MemoryPreferences.h"
#include "Support/PrintQt.h"
#include "Support/ScriptedAssistantProvider.h"
#include "Support/VoiceDoubles.h"
#include "Support/WaitForTask.h"

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace KelvaLR::Testing {

/// The real model and Lightroom services, with a plug-in that is scripted and voices that are recorded.
class AppModelTest : public testing::Test
{
protected:
    explicit AppModelTest(BridgeTiming timing = patientTiming())
        : lightroom(timing)
    {
        makeModel(assistant, realtime, wakePhrase);
    }

    void makeModel(AssistantProvider &provider, RealtimeVoiceService &session, WakePhraseListener &listener)
    {
        model = std::make_unique<AppModel>(AppModelServices{provider, computerUse, session, listener, speech,
                                                            *lightroom.service, connection, actions,
                                                            lightroom.applications, preferences});
    }

    void TearDown() override
    {
        EXPECT_TRUE(waitUntil([&] { return !realtime.hasTasksUnderWay() && !connection.isLooking(); }));
    }

    void send(const QString &text)
    {
        model->setPromptText(text);
        model->submitPrompt();
    }

    /// Submits a text and waits until the model has answered it.
    void submit(const QString &text)
    {
        send(text);
        ASSERT_TRUE(waitUntil([&] { return !model->isResponding(); }));
    }

    /// The session reports, from a thread of its own, that it has come to a state.
    void enter(RealtimeVoiceState state)
    {
        std::jthread([&] { realtime.onStateChange(state); }).join();
        ASSERT_TRUE(waitUntil([&] { return model->realtimeVoiceState() == state; }));
    }

    /// What the assistant has said so far.
    [[nodiscard]] QStringList answers() const
    {
        QStringList texts;
        for (const ConversationMessage &message : model->messages()) {
            if (message.role == ConversationRole::assistant) {
                texts.append(message.content);
            }
        }
        return texts;
    }

    /// The members of the last command that the plug-in received, without its id.
    [[nodiscard]] QJsonObject lastCommand() const
    {
        QJsonObject command = lightroom.plugin.commands().constLast();
        command.remove(QStringLiteral("request_id"));
        return command;
    }

    LightroomRig lightroom;
    MacComputerUseService computerUse{*lightroom.service, lightroom.automation, lightroom.applications};
    LightroomConnectionWatch connection{*lightroom.service,
                                        lightroom.applications,
                                        lightroom.listening,
                                        {.gap = std::chrono::milliseconds(1),
                                         .follow = std::chrono::milliseconds(20),
                                         .loading = std::chrono::milliseconds(0)}};
    AssistantActionRunner actions{*lightroom.service, computerUse};
    ScriptedAssistantProvider assistant;
    RecordingRealtimeVoiceService realtime;
    RecordingWakePhraseListener wakePhrase;
    RecordingSpokenFeedback speech;
    MemoryPreferences preferences;
    std::unique_ptr<AppModel> model;
};

} // namespace KelvaLR::Testing
